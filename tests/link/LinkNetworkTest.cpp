// Three emulated cameras behind one 1 Gbit/s link of the test network.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using Fields = std::map<std::string, double>;

constexpr int kLinkMbps = 1000;

std::string binary(const char* configured, const char* name)
{
    if (configured[0] && fs::exists(configured))
        return configured;
    return std::string(BWM_BINARY_DIR) + "/bin/" + name;
}

Fields parseFields(const std::string& line)
{
    Fields f;
    std::istringstream in(line);
    std::string word;
    while (in >> word) {
        const auto eq = word.find('=');
        if (eq == std::string::npos)
            continue;
        try {
            f[word.substr(0, eq)] = std::stod(word.substr(eq + 1));
        } catch (const std::exception&) {
            // Addresses and other text values are not needed.
        }
    }
    return f;
}

struct SRun
{
    int exitCode = -1;
    std::string output;
    std::vector<Fields> cameras;
    Fields link;
};

// Builds the network with three cameras streaming 9000-byte packets, runs the
// Aravis probe with probeArgs, and returns the probe's lines and the link's
// final counters.
SRun runNetwork(const std::string& probeArgs, double seconds)
{
    const std::string emulator = binary(BWM_GIGE_EMULATOR, "gige-emulator");
    const std::string probe = binary(BWM_STREAM_PROBE, "bwm-stream-probe");
    std::ostringstream cmd;
    // At a fully used link every scheduling delay of a camera becomes a burst
    // that the queue never drains; on a shared machine the set-up gets
    // real-time priority where it may, else a raised one.
    cmd << (std::system("chrt -f 5 true >/dev/null 2>&1") == 0 ? "chrt -f 5 " : "nice -n -10 ")
        << BWM_SOURCE_DIR << "/scripts/test-network.sh --build " << BWM_BINARY_DIR
        << " --emulator " << emulator << " --cameras 3 --mtu 9000 --link-mbps " << kLinkMbps
        << " --camera-mbps " << kLinkMbps
        << " --camera-args '--packet-size 9000 --fps 200'"
        << " -- sh -c '" << probe << " --seconds " << seconds << ' ' << probeArgs
        << " $BWM_NET_CAMERAS' 2>&1";
    SRun run;
    FILE* pipe = ::popen(cmd.str().c_str(), "r");
    if (!pipe)
        return run;
    char buffer[4096];
    while (std::fgets(buffer, sizeof buffer, pipe)) {
        const std::string line = buffer;
        run.output += line;
        // The figures go to the log on success too: they are what the run measured.
        if (line.rfind("camera=", 0) == 0) {
            run.cameras.push_back(parseFields(line));
            std::cout << line;
        }
        const auto at = line.find("link counters: ");
        if (at != std::string::npos) {
            run.link = parseFields(line.substr(at));
            std::cout << line;
        }
    }
    const int status = ::pclose(pipe);
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

#define SKIP_WITHOUT_NAMESPACES(run)                                                        \
    do {                                                                                    \
        if ((run).exitCode == 77 || ::geteuid() != 0)                                       \
            GTEST_SKIP() << "no network namespace can be made here (needs root)";           \
    } while (0)

} // namespace

TEST(LinkNetwork, ThreeCamerasAtFullRateOverflowTheLink)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "no network namespace can be made here (needs root)";
    const double seconds = 4;
    // Without resends, so that every packet the queue dropped stays missing.
    SRun run = runNetwork("--no-resend", seconds);
    SKIP_WITHOUT_NAMESPACES(run);
    ASSERT_EQ(run.exitCode, 0) << run.output;
    ASSERT_EQ(run.cameras.size(), 3u) << run.output;
    ASSERT_FALSE(run.link.empty()) << run.output;

    EXPECT_GT(run.link["dropped"], 0) << run.output;
    double missing = 0;
    for (const Fields& c : run.cameras)
        missing += c.at("missing_packets") + c.at("incomplete");
    EXPECT_GT(missing, 0) << run.output;
    // Full, but never more than the link: the switch port, not the host, limits.
    const double linkBytes = kLinkMbps * 1e6 / 8 * (seconds + 3);
    EXPECT_LT(run.link["to_host_bytes"], linkBytes) << run.output;
    EXPECT_GT(run.link["to_host_bytes"], 0.5 * kLinkMbps * 1e6 / 8 * seconds) << run.output;
}

TEST(LinkNetwork, ThreeCamerasAtThirtyPercentOfTheLinkEachLoseNothing)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "no network namespace can be made here (needs root)";
    const double seconds = 10;
    // With resends, as cameras run. The link is what is measured: it must drop
    // nothing. 90 % in all, the share an optimisation leaves: at 99.99 % a
    // camera that is late and catches up a little overflows the queue, on a
    // busy machine often. The host shares two cores with three cameras and the link at
    // 1 Gbit/s and now and then loses a burst itself; that may cost a frame in
    // fifty, not more.
    SRun run = runNetwork("--link-share 0.30 --link-mbps " + std::to_string(kLinkMbps),
                                seconds);
    SKIP_WITHOUT_NAMESPACES(run);
    ASSERT_EQ(run.exitCode, 0) << run.output;
    ASSERT_EQ(run.cameras.size(), 3u) << run.output;
    ASSERT_FALSE(run.link.empty()) << run.output;

    EXPECT_EQ(run.link["dropped"], 0) << run.output;
    EXPECT_EQ(run.link["overrun"], 0) << run.output;
    EXPECT_EQ(run.link["ring_dropped"], 0) << run.output;
    for (const Fields& c : run.cameras) {
        EXPECT_GT(c.at("scpd"), 0) << run.output;
        EXPECT_LE(c.at("incomplete"), 0.02 * c.at("completed")) << run.output;
        // Lossless because slowed down, not because nothing was sent. Three
        // emulators, the link and the receiver share two cores at 1 Gbit/s: on
        // a slow machine the emulators fall up to a tenth or more behind.
        ASSERT_GT(c.at("resulting_fps"), 0) << run.output;
        EXPECT_GT(c.at("completed"), 0.8 * c.at("resulting_fps") * c.at("seconds"))
            << run.output;
    }
}
