#pragma once

#include <cstdint>

namespace CfgApi {

// The caller's log: levels 0 detail, 1 progress, 2 warning.
class ILogSink
{
public:
    virtual ~ILogSink() = default;
    virtual void Write(uint32_t level, const char* text) = 0;
    virtual int32_t GetLevel() const = 0;
};

} // namespace CfgApi
