#include "cfgapi/linux/CLinuxManagementCalls.h"

#include "baselibs/linux/CNetlinkRoute.h"

#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <net/if.h>

namespace CfgApi {

namespace {

// The link is looked up again on every call, as it may be gone by now.
bool LinkName(uint32_t adapterIndex, std::string& name)
{
    char buffer[IF_NAMESIZE];
    if (adapterIndex == 0 || !if_indextoname(adapterIndex, buffer))
        return false;
    name = buffer;
    return true;
}

bool ParsePair(const StaticAddressPair& pair, uint32_t& address, uint8_t& prefix)
{
    char text[41];
    in_addr mask{};
    std::memcpy(text, pair.address, 40);
    text[40] = '\0';
    if (inet_pton(AF_INET, text, &address) != 1)
        return false;
    std::memcpy(text, pair.mask, 40);
    if (inet_pton(AF_INET, text, &mask) != 1)
        return false;
    prefix = static_cast<uint8_t>(__builtin_popcount(mask.s_addr));
    return true;
}

} // namespace

CLinuxManagementCalls::CLinuxManagementCalls(std::shared_ptr<IDhcpService> dhcp) : m_dhcp(std::move(dhcp)) {}

int32_t CLinuxManagementCalls::EnableDHCP(uint32_t adapterIndex)
{
    std::string name;
    if (!LinkName(adapterIndex, name))
        return 84;
    return m_dhcp ? m_dhcp->EnableDhcp(adapterIndex, name) : 50;
}

bool CLinuxManagementCalls::EnableStatic(const StaticAddressPair* pairs, size_t count, uint32_t adapterIndex)
{
    std::string name;
    if (pairs == nullptr || !LinkName(adapterIndex, name))
        return false;
    if (count == 0)
        return true;
    uint32_t address = 0;
    uint8_t prefix = 0;
    if (!ParsePair(pairs[0], address, prefix))
        return false;

    Baselibs::CNetlinkRoute netlink;
    std::vector<Baselibs::SKernelAddress> existing;
    if (netlink.DumpIpv4Addresses(existing) != 0)
        return false;
    Baselibs::SKernelAddress wanted;
    wanted.linkIndex = static_cast<int>(adapterIndex);
    std::memcpy(wanted.local, &address, 4);
    wanted.prefixLength = prefix;
    // Old addresses go first: a new one in the old subnet would otherwise be a
    // secondary, and removing the old primary would take it along.
    for (const auto& a : existing) {
        if (a.linkIndex != wanted.linkIndex)
            continue;
        if (std::memcmp(a.local, wanted.local, 4) == 0 && a.prefixLength == wanted.prefixLength)
            continue;
        const int rc = netlink.DeleteIpv4Address(a);
        if (rc != 0 && rc != -EADDRNOTAVAIL)
            return false;
    }
    uint32_t broadcast = 0;
    if (prefix <= 30) {
        const uint32_t mask = prefix == 0 ? 0 : htonl(~0u << (32 - prefix));
        broadcast = address | ~mask;   // camera discovery broadcasts here
    }
    if (netlink.AddIpv4Address(wanted, broadcast) != 0)
        return false;
    std::vector<Baselibs::SKernelAddress> after;
    if (netlink.DumpIpv4Addresses(after) != 0)
        return false;
    for (const auto& a : after)
        if (a.linkIndex == wanted.linkIndex && std::memcmp(a.local, wanted.local, 4) == 0)
            return true;
    return false;
}

bool CLinuxManagementCalls::ExecuteAdapterMethod(const std::string& methodName, uint32_t adapterIndex)
{
    std::string name;
    if (!LinkName(adapterIndex, name))
        return false;
    return Baselibs::CNetlinkRoute().SetUp(static_cast<int>(adapterIndex), methodName != "Disable") == 0;
}

} // namespace CfgApi
