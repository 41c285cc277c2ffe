#pragma once

#include <cstdint>
#include <string>

namespace CfgApi {

// Whatever manages the link's DHCP client. Codes: 0 applied, 1 activation
// running, 13 transport failure, 50 no manager, 65 refused, 84 link not
// managed, 91 access denied.
class IDhcpService
{
public:
    virtual ~IDhcpService() = default;
    virtual int32_t EnableDhcp(uint32_t ifindex, const std::string& ifname) = 0;
};

} // namespace CfgApi
