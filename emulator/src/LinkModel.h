#pragma once

#include <cstdint>

namespace gigeemu {

// Time a camera's Ethernet link needs for its stream, and the rates that follow.
class CLinkModel {
public:
    CLinkModel(std::uint32_t linkMbps, std::uint64_t tickHz);

    // Ethernet header, FCS, preamble and inter-frame gap around each IP datagram.
    static constexpr std::uint32_t kEthernetOverhead = 38;

    double wireSeconds(std::uint32_t ipBytes) const;
    double ticksToSeconds(std::uint64_t ticks) const;
    static std::uint32_t payloadPacketCount(std::uint32_t payloadSize, std::uint32_t packetSize);
    static std::uint64_t bytesPerFrame(std::uint32_t payloadSize, std::uint32_t packetSize);
    double frameSeconds(std::uint32_t payloadSize, std::uint32_t packetSize, std::uint64_t scpdTicks) const;
    // The packet delay that makes full packets leave at limitBytesPerSecond.
    std::uint64_t scpdForLimit(std::uint64_t limitBytesPerSecond, std::uint32_t packetSize, std::uint64_t scpdMax) const;
    static std::uint64_t deviceThroughput(double frameRate, std::uint64_t bytesPerFrame);

    std::uint32_t linkMbps() const { return m_linkMbps; }
    std::uint64_t tickHz() const { return m_tickHz; }

private:
    std::uint32_t m_linkMbps;
    std::uint64_t m_tickHz;
};

} // namespace gigeemu
