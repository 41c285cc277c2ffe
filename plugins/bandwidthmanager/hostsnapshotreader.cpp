#include "hostsnapshotreader.h"

#include "hostchecks.h"

#include "baselibs/linux/CNetlinkRoute.h"

#include <net/if.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <map>
#include <thread>

namespace Plugin::BandwidthManager {

namespace {

// The backend's smallest stream buffer, where no camera says what it asks for.
constexpr int64_t SmallestStreamBuffer = int64_t(2) << 20;

} // namespace

CHostSnapshotReader::CHostSnapshotReader(std::string procSys)
    : m_procSys(std::move(procSys))
{
}

int64_t CHostSnapshotReader::readSysctl(const std::string& path) const
{
    std::ifstream in(m_procSys + "/" + path);
    int64_t value = -1;
    return in >> value ? value : -1;
}

SHostSnapshot CHostSnapshotReader::read(const std::vector<SCameraOnHost>& cameras, int rateWindowMs) const
{
    SHostSnapshot snapshot;
    snapshot.rmemMax = readSysctl("net/core/rmem_max");
    snapshot.rmemWanted = cameras.empty() ? SmallestStreamBuffer : 0;
    for (const SCameraOnHost& camera : cameras)
        snapshot.rmemWanted = std::max(snapshot.rmemWanted, camera.streamBuffer < 0 ? SmallestStreamBuffer : camera.streamBuffer);

    Baselibs::CNetlinkRoute route;
    std::vector<Baselibs::SKernelLink> links;
    std::vector<Baselibs::SKernelAddress> addresses;
    route.DumpLinks(links);
    route.DumpIpv4Addresses(addresses);
    const int64_t rpAll = readSysctl("net/ipv4/conf/all/rp_filter");
    std::map<std::string, uint64_t> packetsBefore;
    for (const Baselibs::SKernelLink& link : links) {
        if (link.flags & IFF_LOOPBACK)
            continue;
        SHostInterface interface;
        interface.name = link.name;
        interface.mtu = link.mtu;
        uint32_t minimum = 0;
        route.GetMtuRange(link.index, minimum, interface.maxMtu);
        interface.rpFilter = int(std::max(rpAll, readSysctl("net/ipv4/conf/" + link.name + "/rp_filter")));
        for (const Baselibs::SKernelAddress& address : addresses) {
            if (address.linkIndex == link.index)
                interface.subnets.push_back({uint32_t(address.local[0]) << 24 | uint32_t(address.local[1]) << 16 |
                                                 uint32_t(address.local[2]) << 8 | address.local[3],
                                             address.prefixLength});
        }
        for (const SCameraOnHost& camera : cameras) {
            if (camera.interfaceName != link.name)
                continue;
            interface.cameras.push_back(camera.address);
            // Unknown: GigE Vision cameras take jumbo frames as a rule.
            interface.largestCameraPacket =
                std::max(interface.largestCameraPacket, camera.largestPacket == 0 ? JumboMtu : camera.largestPacket);
        }
        if (!interface.cameras.empty()) {
            Baselibs::CEthtool ethtool;
            interface.ringKnown = ethtool.GetRxRing(link.name, interface.ring) == 0;
            interface.coalesceKnown = ethtool.GetRxCoalesce(link.name, interface.coalesce) == 0;
            Baselibs::SKernelReceiveStatistics statistics;
            if (route.GetReceiveStatistics(link.name.c_str(), statistics) == 0)
                packetsBefore[link.name] = statistics.packets;
        }
        snapshot.interfaces.push_back(interface);
    }
    if (packetsBefore.empty())
        return snapshot;
    const auto start = std::chrono::steady_clock::now();
    std::this_thread::sleep_for(std::chrono::milliseconds(rateWindowMs));
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    for (SHostInterface& interface : snapshot.interfaces) {
        Baselibs::SKernelReceiveStatistics statistics;
        const auto before = packetsBefore.find(interface.name);
        if (before != packetsBefore.end() && route.GetReceiveStatistics(interface.name.c_str(), statistics) == 0)
            interface.packetsPerSecond = double(statistics.packets - std::min(statistics.packets, before->second)) / seconds;
    }
    return snapshot;
}

} // namespace Plugin::BandwidthManager
