#pragma once

#include "baselibs/IPv4Configuration.h"
#include "baselibs/MacAddress.h"
#include "cfgapi/SRangedValue.h"

#include <cstdint>
#include <string>
#include <vector>

namespace CfgApi {

struct SAdapterSettings
{
    std::string uniqueName;
    std::string name;
    std::string description;
    MacAddress macAddress;
    uint32_t mtu = 0;
    std::vector<uint32_t> availableMtus;
    std::vector<IPv4Configuration> ipv4Configurations;
    int32_t linkSpeed = -1;
    uint8_t dhcpEnabled = 1;
    SRangedValue receiveBuffers;
    uint32_t interruptModeration = 0;
    uint32_t itr = 0;

    bool operator==(const SAdapterSettings& o) const;
    bool operator!=(const SAdapterSettings& o) const { return !(*this == o); }
};

} // namespace CfgApi
