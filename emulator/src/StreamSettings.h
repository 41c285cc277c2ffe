#pragma once

#include <cstdint>

namespace gigeemu {

// What the streaming thread needs, copied under the device lock.
struct SStreamSettings {
    bool acquiring = false;
    std::uint32_t acquisitionSerial = 0;
    bool singleFrame = false;
    bool frameStartTriggered = false;
    bool acquisitionStartTriggered = false;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t pixelFormat = 0;
    std::uint32_t payloadSize = 0;
    std::uint32_t packetSize = 0;
    double gapSeconds = 0.0;
    double frameDelaySeconds = 0.0;
    double frameIntervalSeconds = 0.0;
    double triggerIntervalSeconds = 0.0;
    std::uint32_t destIp = 0;
    std::uint16_t destPort = 0;
    bool doNotFragment = true;

    bool channelOpen() const { return destIp != 0 && destPort != 0; }
};

} // namespace gigeemu
