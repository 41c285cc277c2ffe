#pragma once

#include "cfgapi/IManagementCalls.h"

namespace CfgApi {

// The methods of Win32_NetworkAdapterConfiguration and Win32_NetworkAdapter,
// each call with a management connection of its own.
class CWmiManagementCallsWin : public IManagementCalls
{
public:
    int32_t EnableDHCP(uint32_t adapterIndex) override;
    bool EnableStatic(const StaticAddressPair* pairs, size_t count, uint32_t adapterIndex) override;
    bool ExecuteAdapterMethod(const std::string& methodName, uint32_t adapterIndex) override;
};

} // namespace CfgApi
