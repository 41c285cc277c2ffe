#include "GvcpServer.h"

#include "Bytes.h"
#include "Protocol.h"

#include <algorithm>
#include <chrono>
#include <arpa/inet.h>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace gigeemu {

namespace {
std::string dotted(std::uint32_t ip)
{
    in_addr a{htonl(ip)};
    return inet_ntoa(a);
}
} // namespace

CGvcpServer::CGvcpServer(const SConfig& config, CDevice& device, std::uint32_t ip, std::uint32_t netmask)
    : m_config(config)
    , m_device(device)
    , m_ip(ip)
    , m_netmask(netmask)
{
}

CGvcpServer::~CGvcpServer()
{
    if (m_unicast >= 0)
        ::close(m_unicast);
    for (int fd : m_broadcast)
        ::close(fd);
}

int CGvcpServer::bindSocket(std::uint32_t ip, bool shared, std::string& error)
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd < 0) {
        error = std::strerror(errno);
        return -1;
    }
    const int one = 1;
    if (shared)
        ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
    ::setsockopt(fd, SOL_SOCKET, SO_BROADCAST, &one, sizeof one);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_port = htons(kGvcpPort);
    a.sin_addr.s_addr = htonl(ip);
    if (::bind(fd, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0) {
        error = "cannot bind " + dotted(ip) + ":" + std::to_string(kGvcpPort) + ": " + std::strerror(errno);
        ::close(fd);
        return -1;
    }
    return fd;
}

bool CGvcpServer::open(std::string& error)
{
    m_unicast = bindSocket(m_ip, false, error);
    if (m_unicast < 0)
        return false;
    if (!m_config.broadcast)
        return true;
    const std::uint32_t directed = (m_ip & m_netmask) | ~m_netmask;
    for (std::uint32_t ip : {0xFFFFFFFFu, directed}) {
        if (ip == m_ip || (ip == directed && directed == 0xFFFFFFFFu))
            continue;
        const int fd = bindSocket(ip, true, error);
        if (fd < 0)
            return false;
        m_broadcast.push_back(fd);
    }
    return true;
}

void CGvcpServer::receive(int fd, bool viaBroadcast)
{
    std::uint8_t buf[2048];
    sockaddr_in from{};
    socklen_t len = sizeof from;
    const ssize_t n = ::recvfrom(fd, buf, sizeof buf, MSG_DONTWAIT, reinterpret_cast<sockaddr*>(&from), &len);
    if (n <= 0)
        return;
    const SPeer peer{ntohl(from.sin_addr.s_addr), ntohs(from.sin_port)};
    if (m_config.logGvcp && n >= 8)
        std::fprintf(stderr, "gvcp: %s:%u cmd 0x%04x id %u len %u%s\n", dotted(peer.ip).c_str(), peer.port,
                     getBe16(buf + 2), getBe16(buf + 6), getBe16(buf + 4), viaBroadcast ? " (broadcast)" : "");
    const auto reply = m_device.handle(buf, std::size_t(n), peer, viaBroadcast);
    if (!reply)
        return;
    if (m_config.gvcpLatencyUs > 0 && !viaBroadcast)
        std::this_thread::sleep_for(std::chrono::microseconds(m_config.gvcpLatencyUs));
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_addr.s_addr = htonl(reply->to.ip);
    to.sin_port = htons(reply->to.port);
    if (::sendto(m_unicast, reply->bytes.data(), reply->bytes.size(), 0, reinterpret_cast<sockaddr*>(&to), sizeof to)
            < 0
        && reply->to.ip != peer.ip) {
        // A broadcast ack that cannot leave still reaches the one who asked.
        ::sendto(m_unicast, reply->bytes.data(), reply->bytes.size(), 0, reinterpret_cast<sockaddr*>(&from), len);
    }
    if (m_config.logGvcp)
        std::fprintf(stderr, "gvcp: ack 0x%04x status 0x%04x len %zu\n", getBe16(&reply->bytes[2]),
                     getBe16(&reply->bytes[0]), reply->bytes.size());
}

void CGvcpServer::printStats() const
{
    const SStreamCounters& c = m_device.counters();
    std::fprintf(stderr, "stats: frames %u sent %u packets %u dropped-for-size %u lost %u resent %u test-packets %u\n",
                 c.frames.load(), c.framesSent.load(), c.packets.load(), c.droppedForSize.load(), c.droppedByLoss.load(),
                 c.resent.load(), c.testPackets.load());
}

void CGvcpServer::run(const std::atomic<bool>& stop, const IClock& clock)
{
    std::vector<pollfd> fds;
    fds.push_back(pollfd{m_unicast, POLLIN, 0});
    for (int fd : m_broadcast)
        fds.push_back(pollfd{fd, POLLIN, 0});
    const std::int64_t statsPeriod = std::int64_t(m_config.statsSeconds * 1e9);
    std::int64_t nextStats = clock.nowNs() + statsPeriod;
    while (!stop.load()) {
        std::int64_t timeoutMs = 200;
        const std::int64_t deadline = m_device.nextDeadlineNs();
        if (deadline >= 0)
            timeoutMs = std::clamp<std::int64_t>((deadline - clock.nowNs()) / 1000000 + 1, 0, timeoutMs);
        const int n = ::poll(fds.data(), fds.size(), int(timeoutMs));
        if (n > 0) {
            for (std::size_t i = 0; i < fds.size(); ++i)
                if (fds[i].revents & POLLIN)
                    receive(fds[i].fd, i > 0);
        }
        m_device.checkHeartbeat();
        if (statsPeriod > 0 && clock.nowNs() >= nextStats) {
            printStats();
            nextStats += statsPeriod;
        }
    }
}

} // namespace gigeemu
