#pragma once

#include "baselibs/linux/SKernelLink.h"

#include <cstdint>
#include <vector>

struct nl_sock;

namespace Baselibs {

// The one wrapper of libnl-route-3. Every call returns 0 or a negative errno.
class CNetlinkRoute
{
public:
    CNetlinkRoute();
    ~CNetlinkRoute();
    CNetlinkRoute(const CNetlinkRoute&) = delete;
    CNetlinkRoute& operator=(const CNetlinkRoute&) = delete;

    int DumpLinks(std::vector<SKernelLink>& links);
    int DumpIpv4Addresses(std::vector<SKernelAddress>& addresses);
    int GetMtuRange(int linkIndex, uint32_t& minMtu, uint32_t& maxMtu);
    // One request for one link by name, in this process's network namespace.
    int GetReceiveStatistics(const char* name, SKernelReceiveStatistics& statistics);
    int SetMtu(int linkIndex, uint32_t mtu);
    int SetUp(int linkIndex, bool up);
    int DeleteIpv4Address(const SKernelAddress& address);
    // Adds or replaces; broadcast 0 leaves it to the kernel.
    int AddIpv4Address(const SKernelAddress& address, uint32_t broadcast);

    static int ToErrno(int nlError);

private:
    int Connected() const;

    nl_sock* m_socket = nullptr;
    int m_status = 0;
};

} // namespace Baselibs
