#pragma once

#include "LinkStats.h"
#include "PacketRing.h"
#include "SwitchQueue.h"
#include "TapDevice.h"

#include <csignal>
#include <string>
#include <vector>

namespace bwm::link {

struct SLinkPumpConfig
{
    std::string tapName;
    std::string vethName;
    SSwitchQueueConfig queue;
    std::size_t ringBytes = 16u << 20;
    std::int64_t coalesceNs = 100000;
    std::string statsFile;
};

// Copies frames between the tap (host) and the veth end (cameras); frames
// towards the host pass through the switch queue, the others go at once.
class CLinkPump
{
public:
    explicit CLinkPump(const SLinkPumpConfig& config);

    // Runs until *stop is set. Signals are only delivered inside the wait.
    void run(volatile std::sig_atomic_t* stop, volatile std::sig_atomic_t* report,
             const sigset_t& waitMask);
    const SLinkStats& stats() const { return m_stats; }
    void writeStatsFile() const;

private:
    void captureFromCameras(std::int64_t realToMonoNs, std::int64_t nowNs);
    void deliverDue(std::int64_t nowNs);
    void forwardFromHost();

    SLinkPumpConfig m_config;
    CTapDevice m_tap;
    CPacketRing m_ring;
    CSwitchQueue m_queue;
    SLinkStats m_stats;
    std::vector<std::uint8_t> m_hostFrame;
};

} // namespace bwm::link
