#include "baselibs/linux/CKernelAdapterListSource.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <linux/if.h>
#include <linux/if_addr.h>
#include <linux/if_arp.h>
#include <map>

using namespace Baselibs;
namespace fs = std::filesystem;

namespace {

// The kernel's answers scripted; sysfs and /run are folders of a temporary tree.
class CScriptedKernel : public CKernelAdapterListSource
{
public:
    using CKernelAdapterListSource::CKernelAdapterListSource;

    std::vector<SKernelLink> m_links;
    std::vector<SKernelAddress> m_addresses;
    int m_dumpStatus = 0;
    std::map<std::string, std::pair<std::string, std::string>> m_drivers;   // none: -EOPNOTSUPP
    std::map<std::string, std::pair<int, uint32_t>> m_speeds;               // none: -ENODEV

protected:
    int Dump(std::vector<SKernelLink>& links, std::vector<SKernelAddress>& addresses) const override
    {
        links = m_links;
        addresses = m_addresses;
        return m_dumpStatus;
    }
    int DriverInfo(const std::string& ifname, std::string& driver, std::string& version) const override
    {
        const auto found = m_drivers.find(ifname);
        if (found == m_drivers.end())
            return -EOPNOTSUPP;
        driver = found->second.first;
        version = found->second.second;
        return 0;
    }
    int Speed(const std::string& ifname, uint32_t& mbits) const override
    {
        const auto found = m_speeds.find(ifname);
        if (found == m_speeds.end())
            return -ENODEV;
        mbits = found->second.second;
        return found->second.first;
    }
};

SKernelLink KernelLink(int index, const std::string& name, uint8_t operState = IF_OPER_UP, unsigned flags = 0)
{
    SKernelLink l;
    l.index = index;
    l.name = name;
    l.arpType = ARPHRD_ETHER;
    l.address = {0x00, 0x30, 0x53, 0x01, 0x02, static_cast<uint8_t>(index)};
    l.operState = operState;
    l.flags = flags;
    return l;
}

SKernelAddress Address(int link, uint8_t last, unsigned flags = IFA_F_PERMANENT, uint8_t prefix = 24)
{
    SKernelAddress a;
    a.linkIndex = link;
    a.local[0] = 10;
    a.local[3] = last;
    a.prefixLength = prefix;
    a.flags = flags;
    return a;
}

class KernelAdapterList : public testing::Test
{
protected:
    static std::string MakeRoot()
    {
        char name[] = "/tmp/bwm-sysfs-XXXXXX";
        const std::string root = ::mkdtemp(name);
        fs::create_directories(root + "/sys/class/net");
        fs::create_directories(root + "/run");
        return root;
    }
    ~KernelAdapterList() override { fs::remove_all(m_root); }

    void Write(const std::string& path, const std::string& text)
    {
        fs::create_directories(fs::path(m_root + path).parent_path());
        std::ofstream(m_root + path) << text << "\n";
    }
    void Symlink(const std::string& path, const std::string& target)
    {
        fs::create_directories(fs::path(m_root + path).parent_path());
        fs::create_symlink(m_root + target, m_root + path);
    }
    std::vector<SPlatformAdapterEntry> List(uint32_t expectedStatus = 0)
    {
        std::vector<SPlatformAdapterEntry> entries;
        EXPECT_EQ(m_kernel.List(entries), expectedStatus);
        return entries;
    }

    const std::string m_root = MakeRoot();
    CScriptedKernel m_kernel{m_root + "/sys", m_root + "/run"};
};

TEST_F(KernelAdapterList, UpRuleAndAddressFilters)
{
    struct
    {
        const char* scenario;
        uint8_t operState;
        unsigned flags;
        unsigned arpType;
        std::vector<uint8_t> address;
        bool up;
        bool hasMac;
    } cases[] = {
        {"oper up", IF_OPER_UP, 0, ARPHRD_ETHER, {0, 0x30, 0x53, 1, 2, 3}, true, true},
        {"unknown but up and running", IF_OPER_UNKNOWN, IFF_UP | IFF_RUNNING, ARPHRD_ETHER, {2, 0, 0, 0, 0, 1}, true, true},
        {"unknown and up, not running", IF_OPER_UNKNOWN, IFF_UP, ARPHRD_ETHER, {2, 0, 0, 0, 0, 1}, false, true},
        {"down although the flags say running", IF_OPER_DOWN, IFF_UP | IFF_RUNNING, ARPHRD_ETHER, {2, 0, 0, 0, 0, 1}, false, true},
        {"loopback has no MAC", IF_OPER_UNKNOWN, IFF_UP | IFF_RUNNING, ARPHRD_LOOPBACK, {0, 0, 0, 0, 0, 1}, true, false},
        {"all-zero MAC", IF_OPER_UP, 0, ARPHRD_ETHER, {0, 0, 0, 0, 0, 0}, true, false},
        {"short MAC", IF_OPER_UP, 0, ARPHRD_ETHER, {2, 0, 0, 0, 1}, true, false},
    };
    for (const auto& c : cases) {
        SKernelLink l = KernelLink(3, "eth0", c.operState, c.flags);
        l.arpType = c.arpType;
        l.address = c.address;
        m_kernel.m_links = {l};
        const auto entries = List();
        ASSERT_EQ(entries.size(), 1u) << c.scenario;
        EXPECT_EQ(entries[0].operUp, c.up) << c.scenario;
        EXPECT_EQ(entries[0].physicalAddress, c.hasMac ? c.address : std::vector<uint8_t>{}) << c.scenario;
        EXPECT_EQ(entries[0].adapterName, "eth0");
        EXPECT_EQ(entries[0].friendlyName, "eth0");
    }
    m_kernel.m_dumpStatus = -EPERM;
    EXPECT_TRUE(List(EPERM).empty());
}

TEST_F(KernelAdapterList, PrimariesFirstInDumpOrderAndDhcpFromLeaseOrDynamicAddress)
{
    m_kernel.m_links = {KernelLink(2, "eth0"), KernelLink(3, "eth1"), KernelLink(4, "eth2")};
    m_kernel.m_addresses = {Address(2, 1, IFA_F_PERMANENT | IFA_F_SECONDARY), Address(3, 9), Address(2, 2),
                            Address(2, 3, IFA_F_PERMANENT, 16), Address(4, 7, 0)};
    Write("/run/systemd/netif/leases/3", "ADDRESS=10.0.0.9");
    const auto entries = List();
    ASSERT_EQ(entries.size(), 3u);
    std::vector<int> order;
    for (const SUnicastAddress& u : entries[0].unicastAddresses)
        order.push_back(u.address[3]);
    EXPECT_EQ(order, (std::vector<int>{2, 3, 1}));
    EXPECT_EQ(entries[0].unicastAddresses[1].onLinkPrefixLength, 16);
    EXPECT_EQ(entries[0].unicastAddresses[0].family, AF_INET);
    EXPECT_EQ(entries[0].unicastAddresses[0].address[0], 10);
    EXPECT_FALSE(entries[0].dhcpEnabled) << "permanent addresses, no lease";
    EXPECT_TRUE(entries[1].dhcpEnabled) << "networkd's lease file";
    EXPECT_TRUE(entries[2].dhcpEnabled) << "an address with a lifetime";
}

TEST_F(KernelAdapterList, SpeedFromEthtoolElseSysfs)
{
    struct
    {
        const char* scenario;
        bool up;
        int status;
        uint32_t mbits;
        const char* sysfs;   // null: no file
        uint64_t bitsPerSecond;
    } cases[] = {
        {"ethtool", true, 0, 1000, "10", 1000000000ull},
        {"sysfs when ethtool has no answer", true, -EOPNOTSUPP, 0, "2500", 2500000000ull},
        {"sysfs unknown", true, -EOPNOTSUPP, 0, "-1", UINT64_MAX},
        {"no sysfs file", true, -EOPNOTSUPP, 0, nullptr, UINT64_MAX},
        {"ethtool unknown speed", true, 0, 0xFFFFFFFFu, "10", UINT64_MAX},
        {"ethtool zero", true, 0, 0, "10", UINT64_MAX},
        {"other ethtool failure", true, -EIO, 1000, "10", UINT64_MAX},
        {"down links have no speed", false, 0, 1000, "10", UINT64_MAX},
    };
    for (const auto& c : cases) {
        fs::remove_all(m_root + "/sys/class/net/eth0");
        if (c.sysfs)
            Write("/sys/class/net/eth0/speed", c.sysfs);
        m_kernel.m_links = {KernelLink(2, "eth0", c.up ? IF_OPER_UP : IF_OPER_DOWN)};
        m_kernel.m_speeds["eth0"] = {c.status, c.mbits};
        const auto entries = List();
        ASSERT_EQ(entries.size(), 1u);
        EXPECT_EQ(entries[0].receiveLinkSpeed, c.bitsPerSecond) << c.scenario;
    }
}

TEST_F(KernelAdapterList, DescriptionSources)
{
    // A PCI function and a USB device, each with the net device below it.
    Write("/sys/devices/pci0000:00/0000:00:1f.6/vendor", "0x8086");
    Write("/sys/devices/pci0000:00/0000:00:1f.6/device", "0xfffe");
    fs::create_directories(m_root + "/sys/bus/pci");
    Symlink("/sys/devices/pci0000:00/0000:00:1f.6/subsystem", "/sys/bus/pci");
    fs::create_directories(m_root + "/sys/devices/pci0000:00/0000:00:1f.6/net");
    Symlink("/sys/class/net/pci0/device", "/sys/devices/pci0000:00/0000:00:1f.6");
    Write("/sys/devices/usb1/1-1/manufacturer", "Kam");
    Write("/sys/devices/usb1/1-1/product", "GigE Dongle");
    fs::create_directories(m_root + "/sys/devices/usb1/1-1/1-1:1.0");
    Symlink("/sys/class/net/usb0/device", "/sys/devices/usb1/1-1/1-1:1.0");
    fs::create_directories(m_root + "/sys/bus/usb/drivers/r8152");
    Symlink("/sys/devices/usb1/1-1/1-1:1.0/driver", "/sys/bus/usb/drivers/r8152");

    struct
    {
        const char* ifname;
        const char* alias;
        const char* type;
        bool ethtool;
        const char* description;
    } cases[] = {
        {"pci0", "", "", true, "Intel Corporation (e1000e 3.2)"},
        {"pci0", "Camera port", "", true, "Camera port (e1000e 3.2)"},
        {"usb0", "", "", false, "Kam GigE Dongle (r8152)"},
        {"veth1", "", "veth", false, "veth"},
        {"dummy0", "", "", false, ""},
        {"dummy0", "My link", "", false, "My link"},
    };
    for (const auto& c : cases) {
        m_kernel.m_drivers.clear();
        if (c.ethtool)
            m_kernel.m_drivers[c.ifname] = {"e1000e", "3.2"};
        SKernelLink l = KernelLink(5, c.ifname);
        l.alias = c.alias;
        l.type = c.type;
        m_kernel.m_links = {l};
        const auto entries = List();
        ASSERT_EQ(entries.size(), 1u);
        EXPECT_EQ(entries[0].description, c.description) << c.ifname << " " << c.alias;
    }
}

} // namespace
