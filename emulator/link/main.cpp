// bwm-link: the switch port between emulated cameras and a host tap.
#include "LinkPump.h"

#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>

namespace {

volatile std::sig_atomic_t g_stop = 0;
volatile std::sig_atomic_t g_report = 0;

void onStop(int) { g_stop = 1; }
void onReport(int) { g_report = 1; }

const char* kUsage =
    "usage: bwm-link --tap NAME --veth NAME [--rate-mbps N] [--queue-bytes N]\n"
    "                [--max-frame N] [--ring-bytes N] [--coalesce-us N] [--stats-file PATH]\n"
    "Frames from the veth end go to the tap through a drop-tail queue drained\n"
    "at the link rate; frames from the tap go to the veth end at once.\n"
    "Frames reach the tap in batches at most --coalesce-us (100) apart.\n"
    "SIGUSR1 prints the counters, SIGTERM/SIGINT stop; counters at exit on stdout.\n";

std::size_t interfaceMtu(const std::string& name)
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq ifr{};
    name.copy(ifr.ifr_name, IFNAMSIZ - 1);
    const bool ok = fd >= 0 && ::ioctl(fd, SIOCGIFMTU, &ifr) == 0;
    if (fd >= 0)
        ::close(fd);
    return ok ? static_cast<std::size_t>(ifr.ifr_mtu) : 1500;
}

unsigned long long number(const char* option, const char* text)
{
    char* end = nullptr;
    const unsigned long long v = std::strtoull(text, &end, 10);
    if (!*text || *end || v == 0)
        throw std::invalid_argument(std::string(option) + " wants a positive number, not '" +
                                    text + "'");
    return v;
}

} // namespace

int main(int argc, char** argv)
{
    bwm::link::SLinkPumpConfig config;
    std::size_t maxFrame = 0;
    try {
        for (int i = 1; i < argc; ++i) {
            const std::string arg = argv[i];
            if (arg == "--help" || arg == "-h") {
                std::cout << kUsage;
                return 0;
            }
            if (i + 1 >= argc)
                throw std::invalid_argument("missing value for " + arg);
            const char* value = argv[++i];
            if (arg == "--tap")
                config.tapName = value;
            else if (arg == "--veth")
                config.vethName = value;
            else if (arg == "--rate-mbps")
                config.queue.rateBitsPerSecond = number(arg.c_str(), value) * 1000000ull;
            else if (arg == "--queue-bytes")
                config.queue.capacityBytes = number(arg.c_str(), value);
            else if (arg == "--max-frame")
                maxFrame = number(arg.c_str(), value);
            else if (arg == "--ring-bytes")
                config.ringBytes = number(arg.c_str(), value);
            else if (arg == "--coalesce-us")
                config.coalesceNs = static_cast<std::int64_t>(number(arg.c_str(), value)) * 1000;
            else if (arg == "--stats-file")
                config.statsFile = value;
            else
                throw std::invalid_argument("unknown option " + arg);
        }
        if (config.tapName.empty() || config.vethName.empty())
            throw std::invalid_argument("--tap and --veth are required");
    } catch (const std::exception& e) {
        std::cerr << "bwm-link: " << e.what() << '\n' << kUsage;
        return 2;
    }
    // Ethernet header plus one VLAN tag over the larger of the two MTUs.
    config.queue.maxFrameBytes =
        maxFrame ? maxFrame
                 : std::max(interfaceMtu(config.tapName), interfaceMtu(config.vethName)) + 18;

    // Deliveries are microseconds apart; the default 50 us slack would bunch them.
    ::prctl(PR_SET_TIMERSLACK, 1000UL, 0, 0, 0);

    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigaddset(&blocked, SIGINT);
    sigaddset(&blocked, SIGUSR1);
    sigset_t waitMask;
    sigprocmask(SIG_BLOCK, &blocked, &waitMask);
    struct sigaction sa{};
    sa.sa_handler = onStop;
    sigaction(SIGTERM, &sa, nullptr);
    sigaction(SIGINT, &sa, nullptr);
    sa.sa_handler = onReport;
    sigaction(SIGUSR1, &sa, nullptr);

    try {
        bwm::link::CLinkPump pump(config);
        std::cerr << "bwm-link: " << config.vethName << " -> " << config.tapName << " at "
                  << config.queue.rateBitsPerSecond / 1000000 << " Mb/s, queue "
                  << config.queue.capacityBytes << " bytes" << std::endl;
        pump.run(&g_stop, &g_report, waitMask);
        std::cout << pump.stats().format() << std::endl;
    } catch (const std::exception& e) {
        std::cerr << "bwm-link: " << e.what() << '\n';
        return 1;
    }
    return 0;
}
