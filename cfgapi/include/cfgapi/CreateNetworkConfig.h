#pragma once

#include "cfgapi/INetworkConfig.h"

#include <memory>
#include <string>

namespace CfgApi {

// The system's own configuration; may be null when allocation fails.
std::unique_ptr<INetworkConfig> CreateNetworkConfig();
std::string GetVersion();

} // namespace CfgApi
