#pragma once

#include "hostfix.h"
#include "hostsnapshot.h"

#include <QString>

#include <optional>
#include <vector>

namespace Plugin::BandwidthManager {

enum class EHostCheck
{
    RmemMax,
    RxRing,
    Mtu,
    RpFilter,
    Coalescing,
    SharedSubnet,
    CameraOutsideSubnet
};

struct SHostCheck
{
    EHostCheck check = EHostCheck::RmemMax;
    std::string interfaceName;
    bool passed = true;
    QString text;
    // Where a fix exists.
    std::optional<HostFix::SFix> fix;
};

// Above this many packets a second, interrupt moderation matters.
constexpr double BusyPacketsPerSecond = 50000.0;
constexpr uint32_t JumboMtu = 9000;
// What the rmem_max fix sets: the most a stream of the camera backend asks for.
constexpr int64_t RmemMaxFix = int64_t(64) << 20;

// One line per check and interface that has GigE cameras; the subnet checks
// only where they find something.
std::vector<SHostCheck> runHostChecks(const SHostSnapshot& snapshot);

} // namespace Plugin::BandwidthManager
