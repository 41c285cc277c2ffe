#pragma once

#include "baselibs/linux/CEthtool.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Plugin::BandwidthManager {

struct SIpv4Subnet
{
    // Host byte order.
    uint32_t address = 0;
    uint8_t prefixLength = 0;
    bool contains(uint32_t other) const
    {
        const uint32_t mask = prefixLength == 0 ? 0 : ~uint32_t(0) << (32 - prefixLength);
        return (address & mask) == (other & mask);
    }
};

// What the host checks look at of one interface.
struct SHostInterface
{
    std::string name;
    uint32_t mtu = 0;
    // IFLA_MAX_MTU; 0 where the kernel does not say.
    uint32_t maxMtu = 0;
    bool ringKnown = false;
    Baselibs::SRxRing ring;
    bool coalesceKnown = false;
    Baselibs::SRxCoalesce coalesce;
    // The effective rp_filter: the larger of "all" and the interface's; -1 unknown.
    int rpFilter = -1;
    std::vector<SIpv4Subnet> subnets;
    double packetsPerSecond = 0.0;
    // The GigE cameras found on it (host byte order) and the largest packet any of them could send.
    std::vector<uint32_t> cameras;
    uint32_t largestCameraPacket = 0;
};

struct SHostSnapshot
{
    // net.core.rmem_max, and the most a stream asks for; -1 unknown.
    int64_t rmemMax = -1;
    int64_t rmemWanted = -1;
    std::vector<SHostInterface> interfaces;
};

} // namespace Plugin::BandwidthManager
