#include "UdpPacketSink.h"

#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace gigeemu {

namespace {
constexpr std::size_t kBatch = 64;
}

CUdpPacketSink::~CUdpPacketSink()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

bool CUdpPacketSink::open(std::uint32_t ip, std::string& error)
{
    m_fd = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (m_fd < 0) {
        error = std::strerror(errno);
        return false;
    }
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(ip);
    if (::bind(m_fd, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0) {
        error = std::string("stream socket: ") + std::strerror(errno);
        return false;
    }
    socklen_t len = sizeof a;
    ::getsockname(m_fd, reinterpret_cast<sockaddr*>(&a), &len);
    m_port = ntohs(a.sin_port);
    const int sndbuf = 4 << 20;
    ::setsockopt(m_fd, SOL_SOCKET, SO_SNDBUF, &sndbuf, sizeof sndbuf);
    m_fragmenting = true;
    setFragmentation(false);
    return true;
}

void CUdpPacketSink::setFragmentation(bool allow)
{
    if (allow == m_fragmenting)
        return;
    const int mode = allow ? IP_PMTUDISC_DONT : IP_PMTUDISC_DO;
    ::setsockopt(m_fd, IPPROTO_IP, IP_MTU_DISCOVER, &mode, sizeof mode);
    m_fragmenting = allow;
}

void CUdpPacketSink::send(SOutPacket* packets, std::size_t count, bool allowFragmentation)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    setFragmentation(allowFragmentation);
    mmsghdr msgs[kBatch];
    iovec iovs[kBatch];
    sockaddr_in addrs[kBatch];
    std::size_t done = 0;
    while (done < count) {
        const std::size_t n = std::min(kBatch, count - done);
        for (std::size_t i = 0; i < n; ++i) {
            SOutPacket& p = packets[done + i];
            addrs[i] = sockaddr_in{};
            addrs[i].sin_family = AF_INET;
            addrs[i].sin_addr.s_addr = htonl(p.ip);
            addrs[i].sin_port = htons(p.port);
            iovs[i].iov_base = const_cast<std::uint8_t*>(p.data);
            iovs[i].iov_len = p.size;
            msgs[i] = mmsghdr{};
            msgs[i].msg_hdr.msg_name = &addrs[i];
            msgs[i].msg_hdr.msg_namelen = sizeof addrs[i];
            msgs[i].msg_hdr.msg_iov = &iovs[i];
            msgs[i].msg_hdr.msg_iovlen = 1;
        }
        const int sent = ::sendmmsg(m_fd, msgs, unsigned(n), 0);
        if (sent > 0) {
            for (int i = 0; i < sent; ++i)
                packets[done + i].error = 0;
            done += std::size_t(sent);
        } else {
            // The first datagram of the batch failed: record why and go on with the next.
            packets[done].error = errno == 0 ? EIO : errno;
            if (errno == EINTR)
                continue;
            ++done;
        }
    }
}

} // namespace gigeemu
