#include "LinkModel.h"

#include "Protocol.h"

#include <algorithm>
#include <cmath>

namespace gigeemu {

CLinkModel::CLinkModel(std::uint32_t linkMbps, std::uint64_t tickHz)
    : m_linkMbps(linkMbps)
    , m_tickHz(tickHz)
{
}

double CLinkModel::wireSeconds(std::uint32_t ipBytes) const
{
    return double(ipBytes + kEthernetOverhead) * 8.0 / (double(m_linkMbps) * 1e6);
}

double CLinkModel::ticksToSeconds(std::uint64_t ticks) const
{
    return double(ticks) / double(m_tickHz);
}

std::uint32_t CLinkModel::payloadPacketCount(std::uint32_t payloadSize, std::uint32_t packetSize)
{
    const std::uint32_t d = packetSize - kGvspOverhead;
    return (payloadSize + d - 1) / d;
}

std::uint64_t CLinkModel::bytesPerFrame(std::uint32_t payloadSize, std::uint32_t packetSize)
{
    const std::uint64_t n = payloadPacketCount(payloadSize, packetSize);
    return kLeaderIpSize + kTrailerIpSize + std::uint64_t(payloadSize) + kGvspOverhead * n;
}

double CLinkModel::frameSeconds(std::uint32_t payloadSize, std::uint32_t packetSize, std::uint64_t scpdTicks) const
{
    const std::uint64_t packets = payloadPacketCount(payloadSize, packetSize) + 2;
    const double wire = double(bytesPerFrame(payloadSize, packetSize) + kEthernetOverhead * packets) * 8.0
        / (double(m_linkMbps) * 1e6);
    return wire + double(packets) * ticksToSeconds(scpdTicks);
}

std::uint64_t CLinkModel::scpdForLimit(std::uint64_t limitBytesPerSecond, std::uint32_t packetSize,
                                       std::uint64_t scpdMax) const
{
    if (limitBytesPerSecond == 0)
        return scpdMax;
    const double seconds = double(packetSize) / double(limitBytesPerSecond) - wireSeconds(packetSize);
    // Rounding guards against 14481.999 becoming 14482 by floating noise alone.
    const double ticks = std::ceil(seconds * double(m_tickHz) - 1e-6);
    if (ticks <= 0)
        return 0;
    return std::min<std::uint64_t>(std::uint64_t(ticks), scpdMax);
}

std::uint64_t CLinkModel::deviceThroughput(double frameRate, std::uint64_t bytesPerFrame)
{
    return std::uint64_t(std::floor(frameRate * double(bytesPerFrame)));
}

} // namespace gigeemu
