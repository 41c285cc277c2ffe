#pragma once

#include "cfgapi/INetworkConfig.h"
#include "cfgapi/SPlatform.h"

namespace CfgApi {

class CNetworkConfig : public INetworkConfig
{
public:
    explicit CNetworkConfig(SPlatform platform);

    std::vector<std::shared_ptr<INetworkAdapter>> GetNetworkAdapters() override;
    std::vector<IPv4Configuration> GetIpv4Configurations() override;

private:
    SPlatform m_platform;
};

} // namespace CfgApi
