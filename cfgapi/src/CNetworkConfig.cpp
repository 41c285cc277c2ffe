#include "cfgapi/CNetworkConfig.h"

#include "baselibs/NetworkManager.h"
#include "cfgapi/CNetworkAdapter.h"

#include <algorithm>

namespace CfgApi {

CNetworkConfig::CNetworkConfig(SPlatform platform) : m_platform(std::move(platform)) {}

std::vector<std::shared_ptr<INetworkAdapter>> CNetworkConfig::GetNetworkAdapters()
{
    std::vector<std::shared_ptr<Baselibs::INetworkAdapter>> listed =
        Baselibs::NetworkManager(m_platform.adapters).GetAdapters();
    std::vector<std::shared_ptr<INetworkAdapter>> adapters;
    if (listed.empty())
        return adapters;
    std::sort(listed.begin(), listed.end(), [](const auto& a, const auto& b) {
        return a->GetFriendlyName() < b->GetFriendlyName();
    });
    // A failing constructor loses the whole list; no adapter is skipped.
    for (const auto& entry : listed) {
        const std::string description = entry->HasDescription() ? entry->GetDescription() : std::string();
        adapters.push_back(std::make_shared<CNetworkAdapter>(entry->GetInternalName(), entry->GetMacAddress(),
                                                             entry->GetFriendlyName(), description, m_platform));
    }
    return adapters;
}

std::vector<IPv4Configuration> CNetworkConfig::GetIpv4Configurations()
{
    std::vector<IPv4Configuration> all;
    for (const auto& adapter : GetNetworkAdapters()) {
        const auto configurations = adapter->GetIpv4Configurations();
        all.insert(all.end(), configurations.begin(), configurations.end());
    }
    return all;
}

} // namespace CfgApi
