#pragma once

#include "cfgapi/IManagementCalls.h"
#include "cfgapi/linux/IDhcpService.h"

#include <memory>

namespace CfgApi {

// Static address and link state over rtnetlink; DHCP through the link's manager.
class CLinuxManagementCalls : public IManagementCalls
{
public:
    explicit CLinuxManagementCalls(std::shared_ptr<IDhcpService> dhcp);

    int32_t EnableDHCP(uint32_t adapterIndex) override;
    bool EnableStatic(const StaticAddressPair* pairs, size_t count, uint32_t adapterIndex) override;
    bool ExecuteAdapterMethod(const std::string& methodName, uint32_t adapterIndex) override;

private:
    std::shared_ptr<IDhcpService> m_dhcp;
};

} // namespace CfgApi
