#include "PacketRing.h"
#include "SysError.h"

#include <arpa/inet.h>
#include <linux/if_ether.h>
#include <linux/if_packet.h>
#include <net/if.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

namespace bwm::link {
namespace {

std::size_t roundUpPow2(std::size_t v)
{
    std::size_t p = 1;
    while (p < v)
        p <<= 1;
    return p;
}

tpacket2_hdr* header(std::uint8_t* ring, std::size_t frameBytes, std::size_t index)
{
    return reinterpret_cast<tpacket2_hdr*>(ring + index * frameBytes);
}

} // namespace

CPacketRing::CPacketRing(const std::string& interfaceName, std::size_t maxFrameBytes,
                         std::size_t ringBytes)
{
    m_ifindex = static_cast<int>(if_nametoindex(interfaceName.c_str()));
    if (m_ifindex == 0)
        throw sysError("no interface " + interfaceName);
    m_fd = ::socket(AF_PACKET, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, htons(ETH_P_ALL));
    if (m_fd < 0)
        throw sysError("packet socket");
    try {
        int version = TPACKET_V2;
        if (::setsockopt(m_fd, SOL_PACKET, PACKET_VERSION, &version, sizeof version) < 0)
            throw sysError("PACKET_VERSION");
        // Our own sends towards the cameras would otherwise come back as captures.
        int one = 1;
        ::setsockopt(m_fd, SOL_PACKET, PACKET_IGNORE_OUTGOING, &one, sizeof one);

        m_frameBytes = roundUpPow2(maxFrameBytes + TPACKET2_HDRLEN + 64);
        const std::size_t blockBytes = std::max<std::size_t>(m_frameBytes, 1u << 17);
        const std::size_t blocks = std::max<std::size_t>(ringBytes / blockBytes, 4);
        tpacket_req req{};
        req.tp_block_size = static_cast<unsigned>(blockBytes);
        req.tp_block_nr = static_cast<unsigned>(blocks);
        req.tp_frame_size = static_cast<unsigned>(m_frameBytes);
        req.tp_frame_nr = static_cast<unsigned>(blocks * (blockBytes / m_frameBytes));
        if (::setsockopt(m_fd, SOL_PACKET, PACKET_RX_RING, &req, sizeof req) < 0)
            throw sysError("PACKET_RX_RING");
        m_frameCount = req.tp_frame_nr;
        m_ringBytes = blocks * blockBytes;
        void* map = ::mmap(nullptr, m_ringBytes, PROT_READ | PROT_WRITE, MAP_SHARED, m_fd, 0);
        if (map == MAP_FAILED)
            throw sysError("mmap packet ring");
        m_ring = static_cast<std::uint8_t*>(map);

        sockaddr_ll addr{};
        addr.sll_family = AF_PACKET;
        addr.sll_protocol = htons(ETH_P_ALL);
        addr.sll_ifindex = m_ifindex;
        if (::bind(m_fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) < 0)
            throw sysError("bind " + interfaceName);
        // Frames for the host carry the tap's address, not this end's.
        packet_mreq mreq{};
        mreq.mr_ifindex = m_ifindex;
        mreq.mr_type = PACKET_MR_PROMISC;
        if (::setsockopt(m_fd, SOL_PACKET, PACKET_ADD_MEMBERSHIP, &mreq, sizeof mreq) < 0)
            throw sysError("PACKET_MR_PROMISC");
        // Any socket asking for receive stamps makes the kernel stamp frames as
        // the veth hands them over, in the sender's own context; without it the
        // ring stamps them when a softirq gets round to them, in bunches.
        ::setsockopt(m_fd, SOL_SOCKET, SO_TIMESTAMPNS, &one, sizeof one);
        takeDrops();
    } catch (...) {
        if (m_ring)
            ::munmap(m_ring, m_ringBytes);
        ::close(m_fd);
        throw;
    }
}

CPacketRing::~CPacketRing()
{
    ::munmap(m_ring, m_ringBytes);
    ::close(m_fd);
}

bool CPacketRing::next(SCapturedFrame& frame)
{
    tpacket2_hdr* h = header(m_ring, m_frameBytes, m_index);
    const auto status = __atomic_load_n(&h->tp_status, __ATOMIC_ACQUIRE);
    if (!(status & TP_STATUS_USER))
        return false;
    frame.data = reinterpret_cast<const std::uint8_t*>(h) + h->tp_mac;
    frame.size = h->tp_snaplen;
    frame.wireSize = h->tp_len;
    frame.stampNs = static_cast<std::int64_t>(h->tp_sec) * 1000000000 + h->tp_nsec;
    return true;
}

void CPacketRing::release()
{
    tpacket2_hdr* h = header(m_ring, m_frameBytes, m_index);
    __atomic_store_n(&h->tp_status, TP_STATUS_KERNEL, __ATOMIC_RELEASE);
    m_index = (m_index + 1) % m_frameCount;
}

bool CPacketRing::send(const std::uint8_t* frame, std::size_t size)
{
    return ::send(m_fd, frame, size, 0) == static_cast<ssize_t>(size);
}

std::uint64_t CPacketRing::takeDrops()
{
    tpacket_stats stats{};
    socklen_t len = sizeof stats;
    if (::getsockopt(m_fd, SOL_PACKET, PACKET_STATISTICS, &stats, &len) < 0)
        return 0;
    return stats.tp_drops;
}

} // namespace bwm::link
