#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Baselibs {

struct SUnicastAddress
{
    int family = 0;            // AF_INET for the entries that count
    uint8_t address[4] = {};   // network byte order when family is AF_INET
    uint8_t onLinkPrefixLength = 0;
};

// One entry of the system's adapter list, as the listing walk sees it.
struct SPlatformAdapterEntry
{
    bool hasAdapterName = true;
    std::string adapterName;   // UTF-8
    std::string friendlyName;
    std::string description;
    std::vector<uint8_t> physicalAddress;
    bool operUp = false;
    std::vector<SUnicastAddress> unicastAddresses;   // in the system's order
    uint64_t receiveLinkSpeed = UINT64_MAX;           // bit/s; UINT64_MAX when unknown
    bool dhcpEnabled = false;
    uint32_t mtu = 0;
    uint32_t interfaceIndex = 0;
};

} // namespace Baselibs
