#pragma once

#include "hostfix.h"

#include <string>

namespace HostFix {

// Checks a fix against the kernel and applies it live, the way an
// administrator would: MTU over rtnetlink and rings and coalescing over
// ethtool (no down/up of the link, so its routes stay), sysctls through
// /proc/sys. Needs CAP_NET_ADMIN; the privileged helpers run it as root.
class CHostFixApplier
{
public:
    // runDir and networkDir: where systemd-networkd says which .network file
    // manages a link, and where drop-ins for it go.
    explicit CHostFixApplier(std::string procSys = "/proc/sys", std::string sysctlDir = "/etc/sysctl.d",
                             std::string runDir = "/run", std::string networkDir = "/etc/systemd/network");

    // The kernel's own limits: an interface that exists, a value within the driver's range. False and why.
    bool validate(const SFix& fix, std::string& error) const;
    // Validates, then applies. False and why; nothing changed then.
    bool apply(const SFix& fix, std::string& error) const;
    // A sysctl fix is kept in sysctlDir for the next start; an MTU of a link
    // that systemd-networkd manages in a drop-in of its .network file. False,
    // and why, where the change lasts until the next restart (a link that
    // NetworkManager manages is kept through NetworkManager, by the caller).
    bool persist(const SFix& fix, std::string& error) const;
    // The .network file that systemd-networkd manages the link with; empty where it does not.
    std::string networkdFile(const std::string& interfaceName) const;

    static constexpr int64_t MinRmemMax = 212992;
    static constexpr int64_t MaxRmemMax = int64_t(1) << 30;
    static constexpr int64_t MaxCoalesceMicroseconds = 100000;

private:
    std::string sysctlPath(const SFix& fix) const;
    std::string m_procSys;
    std::string m_sysctlDir;
    std::string m_runDir;
    std::string m_networkDir;
};

} // namespace HostFix
