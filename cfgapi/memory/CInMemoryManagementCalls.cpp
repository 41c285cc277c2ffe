#include "cfgapi/CInMemoryManagementCalls.h"

namespace CfgApi {

int32_t CInMemoryManagementCalls::EnableDHCP(uint32_t adapterIndex)
{
    m_calls.push_back("EnableDHCP " + std::to_string(adapterIndex));
    return m_dhcpResult;
}

bool CInMemoryManagementCalls::EnableStatic(const StaticAddressPair* pairs, size_t count, uint32_t adapterIndex)
{
    std::string call = "EnableStatic " + std::to_string(adapterIndex);
    for (size_t i = 0; i < count; ++i)
        call += std::string(" ") + pairs[i].address + "/" + pairs[i].mask;
    m_calls.push_back(call);
    return m_staticResult;
}

bool CInMemoryManagementCalls::ExecuteAdapterMethod(const std::string& methodName, uint32_t adapterIndex)
{
    m_calls.push_back(methodName + " " + std::to_string(adapterIndex));
    return methodName == "Disable" ? m_disableResult : m_enableResult;
}

} // namespace CfgApi
