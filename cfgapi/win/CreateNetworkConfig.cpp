#include "cfgapi/CreateNetworkConfig.h"

#include "baselibs/NetworkManager.h"
#include "cfgapi/CNetworkConfig.h"
#include "cfgapi/win/CRegistryViewWin.h"
#include "cfgapi/win/CTokenElevationWin.h"
#include "cfgapi/win/CWmiManagementCallsWin.h"

#include <windows.h>

#include <new>

namespace CfgApi {

std::unique_ptr<INetworkConfig> CreateNetworkConfig()
{
    // The token is asked once per process.
    static const auto elevation = std::make_shared<CTokenElevationWin>();
    SPlatform platform;
    platform.adapters = Baselibs::NetworkManager::PlatformSource();
    platform.elevation = elevation;
    platform.registry = std::make_shared<CRegistryViewWin>();
    platform.management = std::make_shared<CWmiManagementCallsWin>();
    platform.sleep = [](unsigned ms) { Sleep(ms); };
    return std::unique_ptr<INetworkConfig>(new (std::nothrow) CNetworkConfig(std::move(platform)));
}

} // namespace CfgApi
