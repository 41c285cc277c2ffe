#pragma once

#include "cfgapi/StaticAddressPair.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace CfgApi {

// The three changes made through the system's management service.
class IManagementCalls
{
public:
    virtual ~IManagementCalls() = default;
    // 0 and 1 are success.
    virtual int32_t EnableDHCP(uint32_t adapterIndex) = 0;
    virtual bool EnableStatic(const StaticAddressPair* pairs, size_t count, uint32_t adapterIndex) = 0;
    // methodName is "Disable" or "Enable".
    virtual bool ExecuteAdapterMethod(const std::string& methodName, uint32_t adapterIndex) = 0;
};

} // namespace CfgApi
