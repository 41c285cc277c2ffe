#pragma once

#include "baselibs/IAdapterListSource.h"
#include "cfgapi/IElevation.h"
#include "cfgapi/IManagementCalls.h"
#include "cfgapi/IRegistryView.h"

#include <functional>
#include <memory>

namespace CfgApi {

// The system seams the configuration layer runs on.
struct SPlatform
{
    std::shared_ptr<const Baselibs::IAdapterListSource> adapters;
    std::shared_ptr<IRegistryView> registry;
    std::shared_ptr<IManagementCalls> management;
    std::shared_ptr<IElevation> elevation;
    std::function<void(unsigned milliseconds)> sleep;
};

} // namespace CfgApi
