#pragma once

#include "hostsnapshot.h"

#include <string>
#include <vector>

namespace Plugin::BandwidthManager {

// A GigE camera as the host checks need it.
struct SCameraOnHost
{
    std::string interfaceName;
    // Host byte order.
    uint32_t address = 0;
    // Its largest packet; 0 unknown.
    uint32_t largestPacket = 0;
    // The receive buffer its stream asks for; -1 unknown.
    int64_t streamBuffer = -1;
};

// Reads the host's state for the checks from the kernel: links, MTU ranges and
// IPv4 addresses over rtnetlink, rings and coalescing over ethtool, sysctls
// from procSys, and the receive packet rate over a short window.
class CHostSnapshotReader
{
public:
    explicit CHostSnapshotReader(std::string procSys = "/proc/sys");

    SHostSnapshot read(const std::vector<SCameraOnHost>& cameras, int rateWindowMs = 250) const;

private:
    int64_t readSysctl(const std::string& path) const;
    std::string m_procSys;
};

} // namespace Plugin::BandwidthManager
