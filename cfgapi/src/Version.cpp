#include "cfgapi/CreateNetworkConfig.h"

namespace CfgApi {

std::string GetVersion()
{
    return "1.0.0.0";
}

} // namespace CfgApi
