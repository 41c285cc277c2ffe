#include <camerapool/SocketDrops.h>

#include <linux/inet_diag.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <linux/sock_diag.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>

namespace CameraPool {

namespace {

// Closes the netlink socket on every path.
struct SNetlinkSocket
{
    int fd = ::socket(AF_NETLINK, SOCK_DGRAM | SOCK_CLOEXEC, NETLINK_SOCK_DIAG);
    ~SNetlinkSocket()
    {
        if (fd >= 0)
            ::close(fd);
    }
};

qint64 dropsOf(const inet_diag_msg* message, int length)
{
    int left = length - int(NLMSG_ALIGN(sizeof *message));
    for (auto* attribute = reinterpret_cast<const rtattr*>(message + 1); RTA_OK(attribute, left);
         attribute = RTA_NEXT(attribute, left)) {
        if (attribute->rta_type == INET_DIAG_SKMEMINFO && RTA_PAYLOAD(attribute) >= sizeof(quint32) * (SK_MEMINFO_DROPS + 1))
            return static_cast<const quint32*>(RTA_DATA(attribute))[SK_MEMINFO_DROPS];
    }
    return -1;
}

} // namespace

qint64 udpSocketDrops(quint16 localPort)
{
    SNetlinkSocket netlink;
    if (netlink.fd < 0 || localPort == 0)
        return -1;
    struct
    {
        nlmsghdr header;
        inet_diag_req_v2 request;
    } query{};
    query.header.nlmsg_len = sizeof query;
    query.header.nlmsg_type = SOCK_DIAG_BY_FAMILY;
    query.header.nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
    query.request.sdiag_family = AF_INET;
    query.request.sdiag_protocol = IPPROTO_UDP;
    query.request.idiag_states = ~0u;
    query.request.idiag_ext = 1u << (INET_DIAG_SKMEMINFO - 1);
    // The UDP dump passes only sockets of this source port.
    query.request.id.idiag_sport = htons(localPort);
    sockaddr_nl kernel{};
    kernel.nl_family = AF_NETLINK;
    if (::sendto(netlink.fd, &query, sizeof query, 0, reinterpret_cast<sockaddr*>(&kernel), sizeof kernel) < 0)
        return -1;
    alignas(nlmsghdr) char buffer[16384];
    qint64 drops = -1;
    for (;;) {
        const ssize_t received = ::recv(netlink.fd, buffer, sizeof buffer, 0);
        if (received <= 0)
            return drops;
        int left = int(received);
        for (auto* header = reinterpret_cast<const nlmsghdr*>(buffer); NLMSG_OK(header, left);
             header = NLMSG_NEXT(header, left)) {
            if (header->nlmsg_type == NLMSG_DONE || header->nlmsg_type == NLMSG_ERROR)
                return drops;
            const auto* message = static_cast<const inet_diag_msg*>(NLMSG_DATA(header));
            if (ntohs(message->id.idiag_sport) == localPort && drops < 0)
                drops = dropsOf(message, int(header->nlmsg_len - NLMSG_LENGTH(0)));
        }
    }
}

} // namespace CameraPool
