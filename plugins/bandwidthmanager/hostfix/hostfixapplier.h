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
    explicit CHostFixApplier(std::string procSys = "/proc/sys", std::string sysctlDir = "/etc/sysctl.d");

    // The kernel's own limits: an interface that exists, a value within the driver's range. False and why.
    bool validate(const SFix& fix, std::string& error) const;
    // Validates, then applies. False and why; nothing changed then.
    bool apply(const SFix& fix, std::string& error) const;
    // A sysctl fix is kept in sysctlDir for the next start; a link's settings
    // belong to its manager, and false says they last until the next restart.
    bool persist(const SFix& fix, std::string& error) const;

    static constexpr int64_t MinRmemMax = 212992;
    static constexpr int64_t MaxRmemMax = int64_t(1) << 30;
    static constexpr int64_t MaxCoalesceMicroseconds = 100000;

private:
    std::string sysctlPath(const SFix& fix) const;
    std::string m_procSys;
    std::string m_sysctlDir;
};

} // namespace HostFix
