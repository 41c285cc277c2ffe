#pragma once

#include "cfgapi/IManagementCalls.h"

#include <string>
#include <vector>

namespace CfgApi {

// Records every call and answers with the scripted results.
class CInMemoryManagementCalls : public IManagementCalls
{
public:
    int32_t m_dhcpResult = 0;
    bool m_staticResult = true;
    bool m_disableResult = true;
    bool m_enableResult = true;
    std::vector<std::string> m_calls;   // "EnableDHCP 7", "EnableStatic 7 10.0.0.2/255.0.0.0", "Disable 7"

    int32_t EnableDHCP(uint32_t adapterIndex) override;
    bool EnableStatic(const StaticAddressPair* pairs, size_t count, uint32_t adapterIndex) override;
    bool ExecuteAdapterMethod(const std::string& methodName, uint32_t adapterIndex) override;
};

} // namespace CfgApi
