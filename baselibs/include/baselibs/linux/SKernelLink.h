#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Baselibs {

struct SKernelLink
{
    int index = 0;
    std::string name;
    std::string alias;
    std::string type;          // rtnl link type ("veth"), may be empty
    unsigned arpType = 0;
    std::vector<uint8_t> address;
    unsigned flags = 0;        // IFF_*
    uint8_t operState = 0;     // IF_OPER_*
    uint32_t mtu = 0;
};

// A link's receive counters as the kernel keeps them (IFLA_STATS64).
struct SKernelReceiveStatistics
{
    uint64_t bytes = 0;
    uint64_t packets = 0;
    uint64_t missed = 0;   // the adapter's ring was full
    uint64_t fifo = 0;     // its receive FIFO overflowed
    uint64_t dropped = 0;  // dropped by the kernel for want of memory, or for an unknown protocol
};

struct SKernelAddress
{
    int linkIndex = 0;
    uint8_t local[4] = {};
    uint8_t prefixLength = 0;
    unsigned flags = 0;        // IFA_F_*
};

} // namespace Baselibs
