#pragma once

#include <atomic>
#include <cstdint>

#include "StreamSettings.h"

namespace gigeemu {

struct SStreamCounters {
    std::atomic<std::uint32_t> frames{0};
    // Frames whose every packet left: fewer than frames when the queue was full.
    std::atomic<std::uint32_t> framesSent{0};
    std::atomic<std::uint32_t> packets{0};
    std::atomic<std::uint32_t> droppedForSize{0};
    std::atomic<std::uint32_t> droppedByLoss{0};
    std::atomic<std::uint32_t> resent{0};
    std::atomic<std::uint32_t> testPackets{0};
};

// What the control channel asks of the stream channel.
class IStreamControl {
public:
    virtual ~IStreamControl() = default;
    virtual void settingsChanged() = 0;
    virtual void softwareTrigger(std::uint32_t selector) = 0;
    virtual void fireTestPacket(const SStreamSettings& settings) = 0;
    virtual void resend(std::uint32_t blockId, std::uint32_t first, std::uint32_t last) = 0;
    virtual std::uint64_t timestampTicks() const = 0;
    virtual void resetTimestamp() = 0;
    virtual const SStreamCounters& counters() const = 0;
    virtual std::uint16_t sourcePort() const = 0;
};

} // namespace gigeemu
