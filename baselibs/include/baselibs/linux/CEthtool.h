#pragma once

#include <cstdint>
#include <string>

namespace Baselibs {

struct SRxRing
{
    uint32_t current = 0;
    uint32_t maximum = 0;
};

struct SRxCoalesce
{
    bool adaptive = false;
    uint32_t usecs = 0;
};

// The one wrapper of the SIOCETHTOOL ioctls. Every call returns 0 or a negative errno.
class CEthtool
{
public:
    CEthtool();
    ~CEthtool();
    CEthtool(const CEthtool&) = delete;
    CEthtool& operator=(const CEthtool&) = delete;

    int GetDriverInfo(const std::string& ifname, std::string& driver, std::string& version);
    // Mbit/s as the driver reports it; 0xFFFFFFFF when unknown.
    int GetSpeed(const std::string& ifname, uint32_t& mbits);
    int GetRxRing(const std::string& ifname, SRxRing& ring);
    int SetRxRing(const std::string& ifname, uint32_t rxPending);
    int GetRxCoalesce(const std::string& ifname, SRxCoalesce& coalesce);
    int SetRxCoalesce(const std::string& ifname, const SRxCoalesce& coalesce);

private:
    int Call(const std::string& ifname, void* data);

    int m_fd = -1;
};

} // namespace Baselibs
