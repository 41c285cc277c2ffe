#include "Config.h"
#include "Device.h"
#include "GvcpServer.h"
#include "MonotonicClock.h"
#include "UdpPacketSink.h"
#include "XmlDescription.h"

#include <arpa/inet.h>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <functional>
#include <ifaddrs.h>
#include <iostream>

using namespace gigeemu;

namespace {

std::atomic<bool> g_stop{false};

void onSignal(int)
{
    g_stop = true;
}

bool parseIp(const std::string& text, std::uint32_t& ip)
{
    in_addr a{};
    if (inet_pton(AF_INET, text.c_str(), &a) != 1)
        return false;
    ip = ntohl(a.s_addr);
    return true;
}

std::uint32_t interfaceMask(std::uint32_t ip)
{
    ifaddrs* list = nullptr;
    std::uint32_t mask = 0xFFFFFF00;
    if (getifaddrs(&list) != 0)
        return mask;
    for (ifaddrs* i = list; i; i = i->ifa_next) {
        if (!i->ifa_addr || i->ifa_addr->sa_family != AF_INET || !i->ifa_netmask)
            continue;
        if (ntohl(reinterpret_cast<sockaddr_in*>(i->ifa_addr)->sin_addr.s_addr) == ip)
            mask = ntohl(reinterpret_cast<sockaddr_in*>(i->ifa_netmask)->sin_addr.s_addr);
    }
    freeifaddrs(list);
    return mask;
}

bool parseMac(const std::string& text, std::array<std::uint8_t, 6>& mac)
{
    unsigned v[6];
    if (std::sscanf(text.c_str(), "%x:%x:%x:%x:%x:%x", &v[0], &v[1], &v[2], &v[3], &v[4], &v[5]) != 6)
        return false;
    for (int i = 0; i < 6; ++i)
        mac[i] = std::uint8_t(v[i]);
    return true;
}

std::array<std::uint8_t, 6> derivedMac(const std::string& serial)
{
    // Locally administered, stable per serial.
    const std::size_t h = std::hash<std::string>{}(serial);
    return {0x02, std::uint8_t(h >> 32), std::uint8_t(h >> 24), std::uint8_t(h >> 16), std::uint8_t(h >> 8),
            std::uint8_t(h)};
}

} // namespace

int main(int argc, char** argv)
{
    const SParseResult parsed = parseCommandLine(std::vector<std::string>(argv + 1, argv + argc));
    if (parsed.help) {
        std::cout << usageText();
        return 0;
    }
    if (!parsed.ok) {
        std::cerr << "gige-emulator: " << parsed.error << "\n\n" << usageText();
        return 1;
    }
    const SConfig& config = parsed.config;
    const CXmlDescription xml(config);
    if (!config.dumpXml.empty()) {
        std::ofstream out(config.dumpXml);
        out << xml.text();
        return out ? 0 : 1;
    }

    SDeviceIdentity identity;
    if (!parseIp(config.address, identity.ip)) {
        std::cerr << "gige-emulator: bad address " << config.address << "\n";
        return 1;
    }
    if (!config.netmask.empty()) {
        if (!parseIp(config.netmask, identity.netmask)) {
            std::cerr << "gige-emulator: bad netmask " << config.netmask << "\n";
            return 1;
        }
    } else {
        identity.netmask = interfaceMask(identity.ip);
    }
    if (!config.mac.empty()) {
        if (!parseMac(config.mac, identity.mac)) {
            std::cerr << "gige-emulator: bad MAC " << config.mac << "\n";
            return 1;
        }
    } else {
        identity.mac = derivedMac(config.serial);
    }
    identity.xmlFileName = xml.fileName();

    std::string error;
    CUdpPacketSink sink;
    if (!sink.open(identity.ip, error)) {
        std::cerr << "gige-emulator: " << error << "\n";
        return 2;
    }
    CMonotonicClock clock;
    CDevice device(config, identity, xml.blob(), sink, clock);
    CGvcpServer server(config, device, identity.ip, identity.netmask);
    if (!server.open(error)) {
        std::cerr << "gige-emulator: " << error << "\n";
        return 2;
    }

    struct sigaction sa {};
    sa.sa_handler = onSignal;
    sigaction(SIGINT, &sa, nullptr);
    sigaction(SIGTERM, &sa, nullptr);
    std::signal(SIGPIPE, SIG_IGN);

    device.startStreaming();
    std::cerr << "gige-emulator: " << config.vendor << "-" << config.model << "-" << config.serial << " on "
              << config.address << "\n";
    server.run(g_stop, clock);
    device.stopStreaming();
    return 0;
}
