#pragma once

#include "cfgapi/linux/IDhcpService.h"

namespace CfgApi {

// NetworkManager when it runs, else systemd-networkd, over the system bus.
// Never starts a manager that isn't running.
class CDbusDhcpService : public IDhcpService
{
public:
    explicit CDbusDhcpService(std::string runRoot = "/run") : m_runRoot(std::move(runRoot)) {}
    int32_t EnableDhcp(uint32_t ifindex, const std::string& ifname) override;

private:
    std::string m_runRoot;
};

} // namespace CfgApi
