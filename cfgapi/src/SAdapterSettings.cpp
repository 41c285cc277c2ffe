#include "cfgapi/SAdapterSettings.h"

namespace CfgApi {

bool SAdapterSettings::operator==(const SAdapterSettings& o) const
{
    return uniqueName == o.uniqueName && name == o.name && description == o.description &&
           macAddress == o.macAddress && mtu == o.mtu && availableMtus == o.availableMtus &&
           ipv4Configurations == o.ipv4Configurations && linkSpeed == o.linkSpeed && dhcpEnabled == o.dhcpEnabled &&
           receiveBuffers == o.receiveBuffers && interruptModeration == o.interruptModeration && itr == o.itr;
}

} // namespace CfgApi
