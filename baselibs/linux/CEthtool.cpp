#include "baselibs/linux/CEthtool.h"

#include <cerrno>
#include <cstring>
#include <linux/ethtool.h>
#include <linux/sockios.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace Baselibs {

CEthtool::CEthtool() : m_fd(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {}

CEthtool::~CEthtool()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

int CEthtool::Call(const std::string& ifname, void* data)
{
    if (m_fd < 0)
        return -EBADF;
    if (ifname.empty() || ifname.size() >= IFNAMSIZ)
        return -ENODEV;
    ifreq request{};
    std::memcpy(request.ifr_name, ifname.c_str(), ifname.size());
    request.ifr_data = static_cast<char*>(data);
    return ::ioctl(m_fd, SIOCETHTOOL, &request) < 0 ? -errno : 0;
}

int CEthtool::GetDriverInfo(const std::string& ifname, std::string& driver, std::string& version)
{
    ethtool_drvinfo info{};
    info.cmd = ETHTOOL_GDRVINFO;
    if (int rc = Call(ifname, &info))
        return rc;
    driver.assign(info.driver, strnlen(info.driver, sizeof info.driver));
    version.assign(info.version, strnlen(info.version, sizeof info.version));
    return 0;
}

int CEthtool::GetSpeed(const std::string& ifname, uint32_t& mbits)
{
    // The first call, with no mask words, answers with minus the count the kernel wants.
    constexpr size_t kMaxWords = 127;
    alignas(ethtool_link_settings) uint8_t buffer[sizeof(ethtool_link_settings) + 3 * kMaxWords * sizeof(uint32_t)] = {};
    auto* settings = reinterpret_cast<ethtool_link_settings*>(buffer);
    settings->cmd = ETHTOOL_GLINKSETTINGS;
    if (int rc = Call(ifname, buffer))
        return rc;
    const int words = settings->link_mode_masks_nwords;
    if (words >= 0 || size_t(-words) > kMaxWords)
        return -EPROTO;
    std::memset(buffer, 0, sizeof buffer);
    settings->cmd = ETHTOOL_GLINKSETTINGS;
    settings->link_mode_masks_nwords = static_cast<int8_t>(-words);
    if (int rc = Call(ifname, buffer))
        return rc;
    mbits = settings->speed;
    return 0;
}

int CEthtool::GetRxRing(const std::string& ifname, SRxRing& ring)
{
    ethtool_ringparam param{};
    param.cmd = ETHTOOL_GRINGPARAM;
    if (int rc = Call(ifname, &param))
        return rc;
    ring.current = param.rx_pending;
    ring.maximum = param.rx_max_pending;
    return 0;
}

int CEthtool::SetRxRing(const std::string& ifname, uint32_t rxPending)
{
    // Read-modify-write, so fields the driver doesn't support go back as it reported them.
    ethtool_ringparam param{};
    param.cmd = ETHTOOL_GRINGPARAM;
    if (int rc = Call(ifname, &param))
        return rc;
    param.cmd = ETHTOOL_SRINGPARAM;
    param.rx_pending = rxPending;
    return Call(ifname, &param);
}

int CEthtool::GetRxCoalesce(const std::string& ifname, SRxCoalesce& coalesce)
{
    ethtool_coalesce param{};
    param.cmd = ETHTOOL_GCOALESCE;
    if (int rc = Call(ifname, &param))
        return rc;
    coalesce.adaptive = param.use_adaptive_rx_coalesce != 0;
    coalesce.usecs = param.rx_coalesce_usecs;
    return 0;
}

int CEthtool::SetRxCoalesce(const std::string& ifname, const SRxCoalesce& coalesce)
{
    ethtool_coalesce param{};
    param.cmd = ETHTOOL_GCOALESCE;
    if (int rc = Call(ifname, &param))
        return rc;
    param.cmd = ETHTOOL_SCOALESCE;
    param.use_adaptive_rx_coalesce = coalesce.adaptive ? 1 : 0;
    param.rx_coalesce_usecs = coalesce.usecs;
    return Call(ifname, &param);
}

} // namespace Baselibs
