#include "hostfixapplier.h"

#include "baselibs/linux/CEthtool.h"
#include "baselibs/linux/CNetlinkRoute.h"

#include <net/if.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <vector>

namespace HostFix {

namespace {

std::string errnoText(int rc)
{
    return std::strerror(rc < 0 ? -rc : rc);
}

bool writeFile(const std::string& path, const std::string& text, std::string& error)
{
    std::ofstream out(path, std::ios::trunc);
    out << text;
    out.close();
    if (!out) {
        error = path + ": " + std::strerror(errno);
        return false;
    }
    return true;
}

} // namespace

CHostFixApplier::CHostFixApplier(std::string procSys, std::string sysctlDir, std::string runDir, std::string networkDir)
    : m_procSys(std::move(procSys))
    , m_sysctlDir(std::move(sysctlDir))
    , m_runDir(std::move(runDir))
    , m_networkDir(std::move(networkDir))
{
}

std::string CHostFixApplier::networkdFile(const std::string& interfaceName) const
{
    const unsigned index = isInterfaceName(interfaceName) ? if_nametoindex(interfaceName.c_str()) : 0;
    std::ifstream state(m_runDir + "/systemd/netif/links/" + std::to_string(index));
    for (std::string line; index != 0 && std::getline(state, line);) {
        if (line.compare(0, 13, "NETWORK_FILE=") == 0)
            return line.substr(13);
    }
    return {};
}

std::string CHostFixApplier::sysctlPath(const SFix& fix) const
{
    if (fix.kind == EKind::RmemMax)
        return m_procSys + "/net/core/rmem_max";
    return m_procSys + "/net/ipv4/conf/" + fix.interfaceName + "/rp_filter";
}

bool CHostFixApplier::validate(const SFix& fix, std::string& error) const
{
    if (fix.kind == EKind::RmemMax) {
        if (fix.value < MinRmemMax || fix.value > MaxRmemMax) {
            error = "net.core.rmem_max must lie between " + std::to_string(MinRmemMax) + " and " +
                    std::to_string(MaxRmemMax);
            return false;
        }
        return true;
    }
    const unsigned index = isInterfaceName(fix.interfaceName) ? if_nametoindex(fix.interfaceName.c_str()) : 0;
    if (index == 0) {
        error = "no interface " + fix.interfaceName;
        return false;
    }
    switch (fix.kind) {
    case EKind::Mtu: {
        uint32_t minimum = 0;
        uint32_t maximum = 0;
        if (int rc = Baselibs::CNetlinkRoute().GetMtuRange(int(index), minimum, maximum)) {
            error = fix.interfaceName + ": " + errnoText(rc);
            return false;
        }
        if (fix.value < minimum || fix.value > maximum) {
            error = fix.interfaceName + " takes an MTU from " + std::to_string(minimum) + " to " + std::to_string(maximum);
            return false;
        }
        return true;
    }
    case EKind::RxRing: {
        Baselibs::SRxRing ring;
        if (int rc = Baselibs::CEthtool().GetRxRing(fix.interfaceName, ring)) {
            error = fix.interfaceName + " has no receive ring to set: " + errnoText(rc);
            return false;
        }
        if (fix.value < 1 || fix.value > ring.maximum) {
            error = fix.interfaceName + " takes a receive ring from 1 to " + std::to_string(ring.maximum);
            return false;
        }
        return true;
    }
    case EKind::RpFilter:
        if (fix.value < 0 || fix.value > 2) {
            error = "rp_filter is 0, 1 or 2";
            return false;
        }
        return true;
    case EKind::Coalescing:
        if (fix.value != Adaptive && (fix.value < 0 || fix.value > MaxCoalesceMicroseconds)) {
            error = "receive coalescing is adaptive or 0 to " + std::to_string(MaxCoalesceMicroseconds) + " us";
            return false;
        }
        return true;
    case EKind::RmemMax:
        break;
    }
    return true;
}

bool CHostFixApplier::apply(const SFix& fix, std::string& error) const
{
    if (!validate(fix, error))
        return false;
    int rc = 0;
    switch (fix.kind) {
    case EKind::RmemMax:
    case EKind::RpFilter:
        return writeFile(sysctlPath(fix), std::to_string(fix.value) + "\n", error);
    case EKind::Mtu:
        rc = Baselibs::CNetlinkRoute().SetMtu(int(if_nametoindex(fix.interfaceName.c_str())), uint32_t(fix.value));
        break;
    case EKind::RxRing:
        rc = Baselibs::CEthtool().SetRxRing(fix.interfaceName, uint32_t(fix.value));
        break;
    case EKind::Coalescing: {
        Baselibs::SRxCoalesce coalesce;
        coalesce.adaptive = fix.value == Adaptive;
        coalesce.usecs = fix.value == Adaptive ? 0 : uint32_t(fix.value);
        rc = Baselibs::CEthtool().SetRxCoalesce(fix.interfaceName, coalesce);
        break;
    }
    }
    if (rc != 0) {
        error = fix.interfaceName + " refused " + commandOf(fix.kind) + " " + std::to_string(fix.value) + ": " + errnoText(rc);
        return false;
    }
    return true;
}

bool CHostFixApplier::persist(const SFix& fix, std::string& error) const
{
    if (fix.kind != EKind::RmemMax && fix.kind != EKind::RpFilter) {
        const std::string network = networkdFile(fix.interfaceName);
        if (network.empty()) {
            error = "until the next restart";
            return false;
        }
        // Rings and coalescing are .link settings of udev, shared by every link the file matches.
        if (fix.kind != EKind::Mtu) {
            error = "until the next restart: systemd-networkd keeps them in .link files, which are not written here";
            return false;
        }
        const std::string base = network.substr(network.find_last_of('/') + 1);
        const std::string dir = m_networkDir + "/" + base + ".d";
        if (::mkdir(dir.c_str(), 0755) != 0 && errno != EEXIST) {
            error = dir + ": " + std::strerror(errno);
            return false;
        }
        return writeFile(dir + "/90-zenta-bandwidthmanager.conf",
                         "# Written by the Bandwidth Manager's host checks.\n[Link]\nMTUBytes=" + std::to_string(fix.value) + "\n",
                         error);
    }
    const std::string key =
        fix.kind == EKind::RmemMax ? "net.core.rmem_max" : "net.ipv4.conf." + fix.interfaceName + ".rp_filter";
    const std::string path = m_sysctlDir + "/90-zenta-bandwidthmanager.conf";
    // The file is ours: one line per key, the others kept.
    std::vector<std::string> lines;
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);) {
        if (line.compare(0, key.size() + 1, key + " ") != 0 && line.compare(0, key.size() + 1, key + "=") != 0)
            lines.push_back(line);
    }
    if (lines.empty())
        lines.push_back("# Written by the Bandwidth Manager's host checks.");
    lines.push_back(key + " = " + std::to_string(fix.value));
    std::ostringstream text;
    for (const std::string& line : lines)
        text << line << '\n';
    return writeFile(path, text.str(), error);
}

} // namespace HostFix
