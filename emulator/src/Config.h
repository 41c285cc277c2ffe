#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace gigeemu {

// Parsed command line, immutable once the device runs.
struct SConfig {
    std::string address;
    std::string netmask;
    bool broadcast = true;
    std::string serial = "EMU0001";
    std::string model = "EMU-GV1";
    std::string vendor = "EmuVision";
    std::string userId;
    std::string mac;
    std::uint32_t width = 1920;
    std::uint32_t height = 1200;
    std::uint32_t sensorWidth = 0;
    std::uint32_t sensorHeight = 0;
    std::uint32_t pixelFormat = 0x01080001;
    double fps = 30.0;
    double maxFps = 200.0;
    std::uint32_t linkMbps = 1000;
    std::uint32_t packetSize = 1500;
    std::uint32_t maxPacketSize = 9216;
    std::uint64_t tickHz = 1000000000;
    double lossRatio = 0.0;
    std::uint64_t seed = 1;
    bool resend = true;
    std::uint32_t resendFrames = 8;
    bool throughputLimit = false;
    std::uint32_t heartbeatMs = 3000;
    bool xmlZip = false;
    std::string dumpXml;
    bool strictWrites = false;
    bool allowFragmentation = false;
    bool logGvcp = false;
    // Delay before each control answer, as a camera's firmware takes.
    std::uint32_t gvcpLatencyUs = 0;
    bool logGvsp = false;
    double statsSeconds = 0.0;
};

struct SParseResult {
    SConfig config;
    bool ok = false;
    bool help = false;
    std::string error;
};

SParseResult parseCommandLine(const std::vector<std::string>& args);
std::string usageText();
// PFNC code for a name such as "Mono8"; 0 when unknown.
std::uint32_t pixelFormatCode(const std::string& name);

} // namespace gigeemu
