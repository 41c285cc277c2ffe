#include "Config.h"

#include "PixelFormats.h"

#include <cstdlib>
#include <functional>
#include <map>
#include <sstream>

namespace gigeemu {

std::uint32_t pixelFormatCode(const std::string& name)
{
    for (const auto& f : kPixelFormats)
        if (name == f.name)
            return f.code;
    return 0;
}

std::string usageText()
{
    return R"(Usage: gige-emulator --address A [options]
Emulates one GigE Vision camera: GVCP on A:3956, GVSP paced by a model of its link.

  --address A              IPv4 address to bind (required; on the host use 127.0.0.2 and up)
  --netmask M              reported mask and directed broadcast (default: from the interface)
  --no-broadcast           do not listen for broadcast discovery
  --serial S               serial number, at most 15 characters (EMU0001)
  --model S                model name (EMU-GV1)
  --vendor S               vendor name (EmuVision)
  --user-id S              user-defined name (empty)
  --mac XX:XX:XX:XX:XX:XX  MAC address (default: derived from the serial)
  --width N --height N     image size (1920 x 1200)
  --sensor WxH             sensor size (default: the image size)
  --pixel-format F         Mono8, Mono12, Mono16, RGB8 or BayerRG8 (Mono8)
  --fps F                  AcquisitionFrameRate, enabled (30)
  --max-fps F              sensor frame rate limit at full height (200)
  --link-mbps N            link speed in Mb/s, 10..25000 (1000)
  --packet-size N          initial stream packet size (1500)
  --max-packet-size N      largest packet size the description allows (9216)
  --tick-hz N              timestamp tick frequency (1000000000)
  --loss-ratio P           drop first transmissions with probability P (0)
  --seed N                 seed of the loss generator (1)
  --no-resend              do not offer packet resend
  --resend-frames K        frames kept for resend (8)
  --throughput-limit       offer DeviceLinkThroughputLimit
  --heartbeat-ms N         initial heartbeat timeout (3000)
  --xml-zip                serve the description zipped
  --dump-xml PATH          write the description to PATH and exit
  --strict-writes          refuse out-of-range writes instead of clamping them
  --allow-fragmentation    let the kernel fragment while do-not-fragment is clear
  --gvcp-latency-us N      answer each control command N us late, as a real camera does (0)
  --log gvcp,gvsp          trace messages on stderr
  --stats S                print counters every S seconds
  --help                   this text

SIGINT and SIGTERM stop the emulator (exit 0); a bind failure exits 2.
)";
}

namespace {

bool toUnsigned(const std::string& s, std::uint64_t& out)
{
    if (s.empty())
        return false;
    char* end = nullptr;
    out = std::strtoull(s.c_str(), &end, 0);
    return *end == '\0' && s[0] != '-';
}

bool toDouble(const std::string& s, double& out)
{
    if (s.empty())
        return false;
    char* end = nullptr;
    out = std::strtod(s.c_str(), &end);
    return *end == '\0';
}

} // namespace

SParseResult parseCommandLine(const std::vector<std::string>& args)
{
    SParseResult r;
    SConfig& c = r.config;
    std::string sensor;
    using Setter = std::function<bool(const std::string&)>;
    auto u32 = [](std::uint32_t& field, std::uint64_t lo, std::uint64_t hi) {
        return Setter([&field, lo, hi](const std::string& v) {
            std::uint64_t n = 0;
            if (!toUnsigned(v, n) || n < lo || n > hi)
                return false;
            field = std::uint32_t(n);
            return true;
        });
    };
    auto text = [](std::string& field) {
        return Setter([&field](const std::string& v) { field = v; return true; });
    };
    auto real = [](double& field, double lo, double hi) {
        return Setter([&field, lo, hi](const std::string& v) {
            return toDouble(v, field) && field >= lo && field <= hi;
        });
    };
    const std::map<std::string, Setter> withValue = {
        {"--address", text(c.address)},
        {"--netmask", text(c.netmask)},
        {"--serial", Setter([&c](const std::string& v) { c.serial = v; return v.size() <= 15; })},
        {"--model", text(c.model)},
        {"--vendor", text(c.vendor)},
        {"--user-id", text(c.userId)},
        {"--mac", text(c.mac)},
        {"--width", u32(c.width, 16, 65532)},
        {"--height", u32(c.height, 1, 65535)},
        {"--sensor", text(sensor)},
        {"--pixel-format", Setter([&c](const std::string& v) { c.pixelFormat = pixelFormatCode(v); return c.pixelFormat != 0; })},
        {"--fps", real(c.fps, 0.1, 1000.0)},
        {"--max-fps", real(c.maxFps, 0.1, 1000.0)},
        {"--link-mbps", u32(c.linkMbps, 10, 25000)},
        {"--packet-size", u32(c.packetSize, 576, 65500)},
        {"--max-packet-size", u32(c.maxPacketSize, 576, 65500)},
        {"--tick-hz", Setter([&c](const std::string& v) { return toUnsigned(v, c.tickHz) && c.tickHz >= 1000; })},
        {"--loss-ratio", real(c.lossRatio, 0.0, 1.0)},
        {"--seed", Setter([&c](const std::string& v) { return toUnsigned(v, c.seed); })},
        {"--resend-frames", u32(c.resendFrames, 1, 1024)},
        {"--heartbeat-ms", u32(c.heartbeatMs, 500, 600000)},
        {"--dump-xml", text(c.dumpXml)},
        {"--log", Setter([&c](const std::string& v) {
             std::stringstream ss(v);
             std::string item;
             while (std::getline(ss, item, ',')) {
                 if (item == "gvcp")
                     c.logGvcp = true;
                 else if (item == "gvsp")
                     c.logGvsp = true;
                 else
                     return false;
             }
             return true;
         })},
        {"--stats", real(c.statsSeconds, 0.0, 3600.0)},
        {"--gvcp-latency-us", u32(c.gvcpLatencyUs, 0, 1000000)},
    };
    const std::map<std::string, bool*> flags = {
        {"--xml-zip", &c.xmlZip},
        {"--throughput-limit", &c.throughputLimit},
        {"--strict-writes", &c.strictWrites},
        {"--allow-fragmentation", &c.allowFragmentation},
    };
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--help" || a == "-h") {
            r.help = true;
            return r;
        }
        if (a == "--no-broadcast") {
            c.broadcast = false;
            continue;
        }
        if (a == "--no-resend") {
            c.resend = false;
            continue;
        }
        if (auto f = flags.find(a); f != flags.end()) {
            *f->second = true;
            continue;
        }
        auto s = withValue.find(a);
        if (s == withValue.end()) {
            r.error = "unknown option " + a;
            return r;
        }
        if (i + 1 >= args.size()) {
            r.error = a + " needs a value";
            return r;
        }
        if (!s->second(args[++i])) {
            r.error = "bad value for " + a + ": " + args[i];
            return r;
        }
    }
    if (c.address.empty() && c.dumpXml.empty()) {
        r.error = "--address is required";
        return r;
    }
    c.sensorWidth = c.width;
    c.sensorHeight = c.height;
    if (!sensor.empty()) {
        auto x = sensor.find_first_of("xX");
        std::uint64_t w = 0, h = 0;
        if (x == std::string::npos || !toUnsigned(sensor.substr(0, x), w) || !toUnsigned(sensor.substr(x + 1), h)
            || w < c.width || h < c.height || w > 65532 || h > 65535) {
            r.error = "bad value for --sensor: " + sensor;
            return r;
        }
        c.sensorWidth = std::uint32_t(w);
        c.sensorHeight = std::uint32_t(h);
    }
    if (c.width % 4 != 0) {
        r.error = "--width must be a multiple of 4";
        return r;
    }
    if (c.packetSize > c.maxPacketSize)
        c.packetSize = c.maxPacketSize;
    c.packetSize &= ~3u;
    r.ok = true;
    return r;
}

} // namespace gigeemu
