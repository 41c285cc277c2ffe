#include "baselibs/linux/CNetlinkRoute.h"

#include <netlink/addr.h>
#include <netlink/errno.h>
#include <netlink/msg.h>
#include <netlink/netlink.h>
#include <netlink/route/addr.h>
#include <netlink/route/link.h>
#include <netlink/socket.h>

#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <linux/if_link.h>
#include <linux/rtnetlink.h>
#include <net/if.h>

namespace Baselibs {

namespace {

constexpr int kDumpAttempts = 3;

template <typename T, void (*Free)(T*)>
struct SOwned
{
    T* p = nullptr;
    ~SOwned() { if (p) Free(p); }
};

void FreeCache(nl_cache* c) { nl_cache_free(c); }
void FreeLink(rtnl_link* l) { rtnl_link_put(l); }
void FreeAddr(rtnl_addr* a) { rtnl_addr_put(a); }
void FreeNlAddr(nl_addr* a) { nl_addr_put(a); }

rtnl_link* LinkChange(int linkIndex)
{
    rtnl_link* change = rtnl_link_alloc();
    if (change)
        rtnl_link_set_ifindex(change, linkIndex);
    return change;
}

} // namespace

int CNetlinkRoute::ToErrno(int nlError)
{
    switch (nlError < 0 ? -nlError : nlError) {
    case 0: return 0;
    case NLE_NODEV:
    case NLE_OBJ_NOTFOUND: return -ENODEV;
    case NLE_PERM: return -EPERM;
    case NLE_NOACCESS: return -EACCES;
    case NLE_INVAL: return -EINVAL;
    case NLE_RANGE: return -ERANGE;
    case NLE_OPNOTSUPP: return -EOPNOTSUPP;
    case NLE_BUSY: return -EBUSY;
    case NLE_EXIST: return -EEXIST;
    case NLE_NOADDR: return -EADDRNOTAVAIL;
    case NLE_NOMEM: return -ENOMEM;
    default: return -EIO;
    }
}

CNetlinkRoute::CNetlinkRoute()
{
    m_socket = nl_socket_alloc();
    if (!m_socket) {
        m_status = -ENOMEM;
        return;
    }
    m_status = ToErrno(nl_connect(m_socket, NETLINK_ROUTE));
}

CNetlinkRoute::~CNetlinkRoute()
{
    if (m_socket)
        nl_socket_free(m_socket);
}

int CNetlinkRoute::Connected() const
{
    return m_status;
}

int CNetlinkRoute::GetReceiveStatistics(const char* name, SKernelReceiveStatistics& statistics)
{
    if (int rc = Connected())
        return rc;
    SOwned<rtnl_link, FreeLink> link;
    if (int rc = rtnl_link_get_kernel(m_socket, 0, name, &link.p); rc < 0)
        return ToErrno(rc);
    statistics.bytes = rtnl_link_get_stat(link.p, RTNL_LINK_RX_BYTES);
    statistics.packets = rtnl_link_get_stat(link.p, RTNL_LINK_RX_PACKETS);
    statistics.missed = rtnl_link_get_stat(link.p, RTNL_LINK_RX_MISSED_ERR);
    statistics.fifo = rtnl_link_get_stat(link.p, RTNL_LINK_RX_FIFO_ERR);
    statistics.dropped = rtnl_link_get_stat(link.p, RTNL_LINK_RX_DROPPED);
    return 0;
}

int CNetlinkRoute::DumpLinks(std::vector<SKernelLink>& links)
{
    if (int rc = Connected())
        return rc;
    SOwned<nl_cache, FreeCache> cache;
    int rc = 0;
    for (int attempt = 0; attempt < kDumpAttempts; ++attempt) {
        rc = rtnl_link_alloc_cache(m_socket, AF_UNSPEC, &cache.p);
        if (rc != -NLE_DUMP_INTR)
            break;
    }
    if (rc < 0)
        return ToErrno(rc);

    links.clear();
    for (nl_object* o = nl_cache_get_first(cache.p); o; o = nl_cache_get_next(o)) {
        auto* link = reinterpret_cast<rtnl_link*>(o);
        SKernelLink k;
        k.index = rtnl_link_get_ifindex(link);
        k.name = rtnl_link_get_name(link) ? rtnl_link_get_name(link) : "";
        k.alias = rtnl_link_get_ifalias(link) ? rtnl_link_get_ifalias(link) : "";
        k.type = rtnl_link_get_type(link) ? rtnl_link_get_type(link) : "";
        k.arpType = rtnl_link_get_arptype(link);
        k.flags = rtnl_link_get_flags(link);
        k.operState = rtnl_link_get_operstate(link);
        k.mtu = rtnl_link_get_mtu(link);
        if (nl_addr* a = rtnl_link_get_addr(link)) {
            const auto* bytes = static_cast<const uint8_t*>(nl_addr_get_binary_addr(a));
            k.address.assign(bytes, bytes + nl_addr_get_len(a));
        }
        links.push_back(std::move(k));
    }
    return 0;
}

int CNetlinkRoute::DumpIpv4Addresses(std::vector<SKernelAddress>& addresses)
{
    if (int rc = Connected())
        return rc;
    SOwned<nl_cache, FreeCache> cache;
    int rc = 0;
    for (int attempt = 0; attempt < kDumpAttempts; ++attempt) {
        rc = rtnl_addr_alloc_cache(m_socket, &cache.p);
        if (rc != -NLE_DUMP_INTR)
            break;
    }
    if (rc < 0)
        return ToErrno(rc);

    addresses.clear();
    for (nl_object* o = nl_cache_get_first(cache.p); o; o = nl_cache_get_next(o)) {
        auto* addr = reinterpret_cast<rtnl_addr*>(o);
        nl_addr* local = rtnl_addr_get_local(addr);
        if (rtnl_addr_get_family(addr) != AF_INET || !local || nl_addr_get_len(local) != 4)
            continue;
        SKernelAddress k;
        k.linkIndex = rtnl_addr_get_ifindex(addr);
        std::memcpy(k.local, nl_addr_get_binary_addr(local), 4);
        k.prefixLength = static_cast<uint8_t>(rtnl_addr_get_prefixlen(addr));
        k.flags = rtnl_addr_get_flags(addr);
        addresses.push_back(k);
    }
    return 0;
}

namespace {

struct SMtuRange
{
    uint32_t minMtu = 0;
    uint32_t maxMtu = 0;
    bool found = false;
};

int OnLinkReply(nl_msg* msg, void* arg)
{
    auto* range = static_cast<SMtuRange*>(arg);
    nlattr* tb[IFLA_MAX + 1] = {};
    if (nlmsg_parse(nlmsg_hdr(msg), sizeof(ifinfomsg), tb, IFLA_MAX, nullptr) == 0 && tb[IFLA_MIN_MTU] &&
        tb[IFLA_MAX_MTU]) {
        range->minMtu = nla_get_u32(tb[IFLA_MIN_MTU]);
        range->maxMtu = nla_get_u32(tb[IFLA_MAX_MTU]);
        range->found = true;
    }
    return NL_OK;
}

} // namespace

int CNetlinkRoute::GetMtuRange(int linkIndex, uint32_t& minMtu, uint32_t& maxMtu)
{
    // libnl 3.7 has no getter for the MTU range, so the reply is parsed here,
    // on a socket of its own to keep the callbacks of the shared one intact.
    SOwned<nl_sock, nl_socket_free> sock{nl_socket_alloc()};
    if (!sock.p)
        return -ENOMEM;
    int rc = nl_connect(sock.p, NETLINK_ROUTE);
    if (rc < 0)
        return ToErrno(rc);
    SMtuRange range;
    nl_socket_modify_cb(sock.p, NL_CB_VALID, NL_CB_CUSTOM, OnLinkReply, &range);
    ifinfomsg request{};
    request.ifi_family = AF_UNSPEC;
    request.ifi_index = linkIndex;
    rc = nl_send_simple(sock.p, RTM_GETLINK, 0, &request, sizeof request);
    if (rc < 0)
        return ToErrno(rc);
    rc = nl_recvmsgs_default(sock.p);
    if (rc < 0)
        return ToErrno(rc);
    if (!range.found)
        return -EOPNOTSUPP;
    minMtu = range.minMtu;
    maxMtu = range.maxMtu;
    return 0;
}

int CNetlinkRoute::SetMtu(int linkIndex, uint32_t mtu)
{
    if (int rc = Connected())
        return rc;
    SOwned<rtnl_link, FreeLink> change{LinkChange(linkIndex)};
    SOwned<rtnl_link, FreeLink> orig{LinkChange(linkIndex)};
    if (!change.p || !orig.p)
        return -ENOMEM;
    rtnl_link_set_mtu(change.p, mtu);
    return ToErrno(rtnl_link_change(m_socket, orig.p, change.p, 0));
}

int CNetlinkRoute::SetUp(int linkIndex, bool up)
{
    if (int rc = Connected())
        return rc;
    SOwned<rtnl_link, FreeLink> change{LinkChange(linkIndex)};
    SOwned<rtnl_link, FreeLink> orig{LinkChange(linkIndex)};
    if (!change.p || !orig.p)
        return -ENOMEM;
    if (up)
        rtnl_link_set_flags(change.p, IFF_UP);
    else
        rtnl_link_unset_flags(change.p, IFF_UP);
    return ToErrno(rtnl_link_change(m_socket, orig.p, change.p, 0));
}

namespace {

rtnl_addr* MakeAddress(const SKernelAddress& address)
{
    rtnl_addr* a = rtnl_addr_alloc();
    if (!a)
        return nullptr;
    SOwned<nl_addr, FreeNlAddr> local{nl_addr_build(AF_INET, address.local, 4)};
    if (!local.p) {
        rtnl_addr_put(a);
        return nullptr;
    }
    nl_addr_set_prefixlen(local.p, address.prefixLength);
    rtnl_addr_set_ifindex(a, address.linkIndex);
    rtnl_addr_set_family(a, AF_INET);
    rtnl_addr_set_local(a, local.p);
    rtnl_addr_set_prefixlen(a, address.prefixLength);
    return a;
}

} // namespace

int CNetlinkRoute::DeleteIpv4Address(const SKernelAddress& address)
{
    if (int rc = Connected())
        return rc;
    SOwned<rtnl_addr, FreeAddr> a{MakeAddress(address)};
    if (!a.p)
        return -ENOMEM;
    return ToErrno(rtnl_addr_delete(m_socket, a.p, 0));
}

int CNetlinkRoute::AddIpv4Address(const SKernelAddress& address, uint32_t broadcast)
{
    if (int rc = Connected())
        return rc;
    SOwned<rtnl_addr, FreeAddr> a{MakeAddress(address)};
    if (!a.p)
        return -ENOMEM;
    if (broadcast != 0) {
        SOwned<nl_addr, FreeNlAddr> b{nl_addr_build(AF_INET, &broadcast, 4)};
        if (!b.p)
            return -ENOMEM;
        rtnl_addr_set_broadcast(a.p, b.p);
    }
    return ToErrno(rtnl_addr_add(m_socket, a.p, NLM_F_CREATE | NLM_F_REPLACE));
}

} // namespace Baselibs
