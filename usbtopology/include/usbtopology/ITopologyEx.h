#pragma once

#include <string>

namespace procLayer {

class ITopologyEx {
public:
    virtual ~ITopologyEx() = default;
    // Why the last Refresh failed; empty after a success.
    virtual std::wstring GetLastError() const = 0;
    // Reads the bus again. On failure the previous reading stays.
    virtual bool Refresh() = 0;
};

} // namespace procLayer
