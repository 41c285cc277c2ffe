#include "baselibs/linux/CKernelAdapterListSource.h"

#include "baselibs/linux/CEthtool.h"
#include "baselibs/linux/CNetlinkRoute.h"
#include "baselibs/linux/PciVendorNames.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <linux/if.h>
#include <linux/if_addr.h>
#include <linux/if_arp.h>
#include <netinet/in.h>
#include <sys/stat.h>

namespace Baselibs {

namespace {

std::string ReadLine(const std::string& path)
{
    std::ifstream in(path);
    std::string line;
    std::getline(in, line);
    return line;
}

bool Exists(const std::string& path)
{
    struct stat st;
    return ::stat(path.c_str(), &st) == 0;
}

std::string Parent(const std::string& path)
{
    const auto slash = path.find_last_of('/');
    return slash == std::string::npos || slash == 0 ? std::string() : path.substr(0, slash);
}

std::string Basename(const std::string& path)
{
    const auto slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string RealPath(const std::string& path)
{
    char resolved[PATH_MAX];
    return ::realpath(path.c_str(), resolved) ? std::string(resolved) : std::string();
}

bool IsUp(const SKernelLink& link)
{
    return link.operState == IF_OPER_UP ||
           (link.operState == IF_OPER_UNKNOWN && (link.flags & IFF_UP) && (link.flags & IFF_RUNNING));
}

std::vector<uint8_t> PhysicalAddress(const SKernelLink& link)
{
    // lo and other non-Ethernet links report no physical address, as the
    // listing's MAC check would otherwise fail the whole list.
    if (link.arpType != ARPHRD_ETHER || link.address.size() != 6)
        return {};
    for (uint8_t b : link.address)
        if (b != 0)
            return link.address;
    return {};
}

} // namespace

CKernelAdapterListSource::CKernelAdapterListSource(std::string sysfsRoot, std::string runRoot)
    : m_sysfsRoot(std::move(sysfsRoot)), m_runRoot(std::move(runRoot))
{
}

int CKernelAdapterListSource::Dump(std::vector<SKernelLink>& links, std::vector<SKernelAddress>& addresses) const
{
    CNetlinkRoute netlink;
    if (int rc = netlink.DumpLinks(links))
        return rc;
    return netlink.DumpIpv4Addresses(addresses);
}

int CKernelAdapterListSource::DriverInfo(const std::string& ifname, std::string& driver, std::string& version) const
{
    return CEthtool().GetDriverInfo(ifname, driver, version);
}

int CKernelAdapterListSource::Speed(const std::string& ifname, uint32_t& mbits) const
{
    return CEthtool().GetSpeed(ifname, mbits);
}

uint32_t CKernelAdapterListSource::List(std::vector<SPlatformAdapterEntry>& entries) const
{
    std::vector<SKernelLink> links;
    std::vector<SKernelAddress> addresses;
    if (int rc = Dump(links, addresses))
        return static_cast<uint32_t>(-rc);

    entries.clear();
    for (const SKernelLink& link : links) {
        SPlatformAdapterEntry entry;
        entry.adapterName = link.name;
        entry.friendlyName = link.name;
        entry.description = Description(link.name, link.alias, link.type);
        entry.physicalAddress = PhysicalAddress(link);
        entry.operUp = IsUp(link);
        entry.mtu = link.mtu;
        entry.interfaceIndex = static_cast<uint32_t>(link.index);
        bool dynamic = false;
        // Primaries first, in dump order (the order they were added); secondaries after.
        for (int secondary = 0; secondary < 2; ++secondary) {
            for (const SKernelAddress& a : addresses) {
                if (a.linkIndex != link.index || bool(a.flags & IFA_F_SECONDARY) != bool(secondary))
                    continue;
                SUnicastAddress u;
                u.family = AF_INET;
                std::copy(a.local, a.local + 4, u.address);
                u.onLinkPrefixLength = a.prefixLength;
                entry.unicastAddresses.push_back(u);
                if (!(a.flags & IFA_F_PERMANENT))
                    dynamic = true;
            }
        }
        entry.dhcpEnabled = Exists(m_runRoot + "/systemd/netif/leases/" + std::to_string(link.index)) || dynamic;
        entry.receiveLinkSpeed = entry.operUp ? ReceiveLinkSpeed(link.name) : UINT64_MAX;
        entries.push_back(std::move(entry));
    }
    return 0;
}

uint64_t CKernelAdapterListSource::ReceiveLinkSpeed(const std::string& ifname) const
{
    uint32_t mbits = 0;
    int rc = Speed(ifname, mbits);
    if (rc == -EOPNOTSUPP) {
        const std::string text = ReadLine(m_sysfsRoot + "/class/net/" + ifname + "/speed");
        char* end = nullptr;
        const long value = std::strtol(text.c_str(), &end, 10);
        if (text.empty() || end == text.c_str() || value <= 0)
            return UINT64_MAX;
        mbits = static_cast<uint32_t>(value);
        rc = 0;
    }
    if (rc != 0 || mbits == 0 || mbits > INT32_MAX)
        return UINT64_MAX;
    return uint64_t(mbits) * 1000000u;
}

std::string CKernelAdapterListSource::Hardware(const std::string& ifname) const
{
    const std::string device = RealPath(m_sysfsRoot + "/class/net/" + ifname + "/device");
    if (device.empty())
        return std::string();
    for (std::string dir = device; !dir.empty(); dir = Parent(dir)) {
        if (Exists(dir + "/vendor") && Exists(dir + "/device") &&
            Basename(RealPath(dir + "/subsystem")) == "pci") {
            const unsigned vendor = std::strtoul(ReadLine(dir + "/vendor").c_str(), nullptr, 16);
            const unsigned id = std::strtoul(ReadLine(dir + "/device").c_str(), nullptr, 16);
            std::string name = PciVendorName(vendor);
            const std::string product = PciDeviceName(vendor, id);
            if (!product.empty())
                name += (name.empty() ? "" : " ") + product;
            return name;
        }
        if (Exists(dir + "/manufacturer") || Exists(dir + "/product")) {
            std::string name = ReadLine(dir + "/manufacturer");
            const std::string product = ReadLine(dir + "/product");
            if (!product.empty())
                name += (name.empty() ? "" : " ") + product;
            return name;
        }
    }
    return std::string();
}

std::string CKernelAdapterListSource::Description(const std::string& ifname, const std::string& alias,
                                                  const std::string& type) const
{
    std::string driver;
    std::string version;
    if (DriverInfo(ifname, driver, version) != 0) {
        driver = Basename(RealPath(m_sysfsRoot + "/class/net/" + ifname + "/device/driver"));
        if (driver.empty())
            driver = type;
    }
    std::string hardware = alias.empty() ? Hardware(ifname) : alias;
    std::string driverText = driver + (version.empty() ? "" : " " + version);
    if (hardware.empty())
        return driverText;
    if (driverText.empty())
        return hardware;
    return hardware + " (" + driverText + ")";
}

} // namespace Baselibs
