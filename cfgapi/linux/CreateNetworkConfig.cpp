#include "cfgapi/CreateNetworkConfig.h"

#include "baselibs/NetworkManager.h"
#include "cfgapi/CNetworkConfig.h"
#include "cfgapi/linux/CCapabilityElevation.h"
#include "cfgapi/linux/CDbusDhcpService.h"
#include "cfgapi/linux/CKernelLinkOps.h"
#include "cfgapi/linux/CKernelRegistryView.h"
#include "cfgapi/linux/CLinuxManagementCalls.h"

#include <chrono>
#include <new>
#include <thread>

namespace CfgApi {

std::unique_ptr<INetworkConfig> CreateNetworkConfig()
{
    SPlatform platform;
    platform.adapters = Baselibs::NetworkManager::PlatformSource();
    platform.elevation = std::make_shared<CCapabilityElevation>();
    platform.registry = std::make_shared<CKernelRegistryView>(std::make_shared<CKernelLinkOps>(), platform.elevation);
    platform.management = std::make_shared<CLinuxManagementCalls>(std::make_shared<CDbusDhcpService>());
    platform.sleep = [](unsigned ms) { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); };
    return std::unique_ptr<INetworkConfig>(new (std::nothrow) CNetworkConfig(std::move(platform)));
}

} // namespace CfgApi
