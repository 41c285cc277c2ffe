#pragma once

namespace CfgApi {

class IElevation
{
public:
    virtual ~IElevation() = default;
    virtual bool IsElevated() const = 0;
};

} // namespace CfgApi
