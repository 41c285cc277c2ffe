#pragma once

#include "baselibs/linux/CEthtool.h"

#include <cstdint>
#include <string>
#include <vector>

namespace CfgApi {

struct SLinkOpsLink
{
    int index = 0;
    std::string name;
    std::string description;
    uint32_t mtu = 0;
};

// The kernel calls the driver-settings view needs. Each returns 0 or a negative errno.
class ILinkOps
{
public:
    virtual ~ILinkOps() = default;
    virtual int Links(std::vector<SLinkOpsLink>& links) = 0;
    virtual int MtuRange(int index, uint32_t& minMtu, uint32_t& maxMtu) = 0;
    virtual int SetMtu(int index, uint32_t mtu) = 0;
    virtual int GetRxRing(const std::string& ifname, Baselibs::SRxRing& ring) = 0;
    virtual int SetRxRing(const std::string& ifname, uint32_t rxPending) = 0;
    virtual int GetRxCoalesce(const std::string& ifname, Baselibs::SRxCoalesce& coalesce) = 0;
    virtual int SetRxCoalesce(const std::string& ifname, const Baselibs::SRxCoalesce& coalesce) = 0;
};

} // namespace CfgApi
