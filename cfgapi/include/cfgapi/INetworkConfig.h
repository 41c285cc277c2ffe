#pragma once

#include "baselibs/IPv4Configuration.h"
#include "cfgapi/INetworkAdapter.h"

#include <memory>
#include <vector>

namespace CfgApi {

class INetworkConfig
{
public:
    // New adapter objects on every call.
    virtual std::vector<std::shared_ptr<INetworkAdapter>> GetNetworkAdapters() = 0;
    virtual std::vector<IPv4Configuration> GetIpv4Configurations() = 0;
    virtual ~INetworkConfig() = default;
};

} // namespace CfgApi
