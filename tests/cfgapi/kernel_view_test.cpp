#include "cfgapi/CInMemoryElevation.h"
#include "cfgapi/CNetworkAdapter.h"
#include "cfgapi/linux/CKernelRegistryView.h"
#include "cfgapi/linux/DbusDhcpRequests.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cerrno>
#include <deque>

using namespace CfgApi;

namespace {

// Link 7 "eth0" at MTU 1500, range 68..9000, ring 256 of 4096, coalescing 50 µs.
class CFakeLinkOps : public ILinkOps
{
public:
    std::vector<SLinkOpsLink> m_links{{7, "eth0", "Intel I210", 1500}};
    int m_linksStatus = 0;
    int m_rangeStatus = 0;
    uint32_t m_minMtu = 68;
    uint32_t m_maxMtu = 9000;
    int m_ringStatus = 0;
    Baselibs::SRxRing m_ring{256, 4096};
    int m_coalesceStatus = 0;
    Baselibs::SRxCoalesce m_coalesce{false, 50};
    std::deque<int> m_setResults;   // one per write, then 0
    std::vector<std::string> m_writes;

    int Links(std::vector<SLinkOpsLink>& links) override
    {
        links = m_links;
        return m_linksStatus;
    }
    int MtuRange(int, uint32_t& minMtu, uint32_t& maxMtu) override
    {
        minMtu = m_minMtu;
        maxMtu = m_maxMtu;
        return m_rangeStatus;
    }
    int SetMtu(int index, uint32_t mtu) override { return Wrote("mtu " + std::to_string(index) + " " + std::to_string(mtu)); }
    int GetRxRing(const std::string&, Baselibs::SRxRing& ring) override
    {
        ring = m_ring;
        return m_ringStatus;
    }
    int SetRxRing(const std::string& ifname, uint32_t rxPending) override
    {
        return Wrote("ring " + ifname + " " + std::to_string(rxPending));
    }
    int GetRxCoalesce(const std::string&, Baselibs::SRxCoalesce& coalesce) override
    {
        coalesce = m_coalesce;
        return m_coalesceStatus;
    }
    int SetRxCoalesce(const std::string& ifname, const Baselibs::SRxCoalesce& c) override
    {
        return Wrote("coalesce " + ifname + (c.adaptive ? " adaptive " : " fixed ") + std::to_string(c.usecs));
    }

private:
    int Wrote(const std::string& call)
    {
        m_writes.push_back(call);
        if (m_setResults.empty())
            return 0;
        const int rc = m_setResults.front();
        m_setResults.pop_front();
        return rc;
    }
};

const std::string kClass = CNetworkAdapter::kClassKey;
const std::string kLink = kClass + "\\0007";
const std::string kParams = kLink + "\\Ndi\\Params\\";

class KernelRegistryView : public testing::Test
{
protected:
    // "name=value" of a key's values in order, or "status N".
    std::string ValuesOf(const std::string& path)
    {
        std::vector<std::pair<std::string, SRegValue>> values;
        if (uint32_t status = m_view.Values(path, values))
            return "status " + std::to_string(status);
        std::string text;
        for (const auto& v : values)
            text += (text.empty() ? "" : " ") + v.first + "=" + v.second.data;
        return text;
    }
    std::string SubKeysOf(const std::string& path)
    {
        std::vector<std::string> names;
        if (uint32_t status = m_view.SubKeys(path, names))
            return "status " + std::to_string(status);
        std::string text;
        for (const auto& n : names)
            text += (text.empty() ? "" : " ") + n;
        return text;
    }

    std::shared_ptr<CFakeLinkOps> m_ops = std::make_shared<CFakeLinkOps>();
    std::shared_ptr<CInMemoryElevation> m_elevation = std::make_shared<CInMemoryElevation>(true);
    CKernelRegistryView m_view{m_ops, m_elevation};
};

TEST_F(KernelRegistryView, LinkKeysAndTheirValues)
{
    m_ops->m_links.push_back({12, "eth1", "veth", 9000});
    m_ops->m_links.push_back({3, "lo", "", 65536});
    EXPECT_EQ(SubKeysOf(kClass), "0003 0007 0012");
    EXPECT_EQ(SubKeysOf(kLink), "Ndi");
    EXPECT_EQ(SubKeysOf(kLink + "\\Ndi"), "Params");
    EXPECT_EQ(SubKeysOf(kLink + "\\Ndi\\Params"), "*JumboPacket *ReceiveBuffers *InterruptModeration ITR");
    EXPECT_EQ(SubKeysOf(kParams + "ITR"), "Enum");

    struct
    {
        const char* scenario;
        int ringStatus;
        int coalesceStatus;
        Baselibs::SRxCoalesce coalesce;
        const char* values;
    } cases[] = {
        {"fixed delay", 0, 0, {false, 50},
         "NetCfgInstanceId=eth0 DriverDesc=Intel I210 *JumboPacket=1500 *ReceiveBuffers=256 *InterruptModeration=1 ITR=50"},
        {"adaptive shows the marker", 0, 0, {true, 20},
         "NetCfgInstanceId=eth0 DriverDesc=Intel I210 *JumboPacket=1500 *ReceiveBuffers=256 *InterruptModeration=1 ITR=65535"},
        {"no delay is moderation off", 0, 0, {false, 0},
         "NetCfgInstanceId=eth0 DriverDesc=Intel I210 *JumboPacket=1500 *ReceiveBuffers=256 *InterruptModeration=0 ITR=0"},
        {"neither ring nor coalescing", -EOPNOTSUPP, -EOPNOTSUPP, {false, 0},
         "NetCfgInstanceId=eth0 DriverDesc=Intel I210 *JumboPacket=1500"},
    };
    for (const auto& c : cases) {
        m_ops->m_ringStatus = c.ringStatus;
        m_ops->m_coalesceStatus = c.coalesceStatus;
        m_ops->m_coalesce = c.coalesce;
        EXPECT_EQ(ValuesOf(kLink), c.values) << c.scenario;
    }
    EXPECT_EQ(SubKeysOf(kLink + "\\Ndi\\Params"), "*JumboPacket");
    SRegValue value;
    EXPECT_EQ(m_view.GetValue(kLink, "*jumbopacket", value), 0u);
    EXPECT_EQ(value.data, "1500");
    EXPECT_EQ(m_view.GetValue(kLink, "ITR", value), 2u);
}

TEST_F(KernelRegistryView, MtuSetRingRangeAndItrEnum)
{
    struct
    {
        uint32_t mtu;
        int rangeStatus;
        uint32_t minMtu;
        uint32_t maxMtu;
        const char* mtus;
    } mtuCases[] = {
        {1500, 0, 68, 9000, "1500=1500 9000=9000"},
        {1500, 0, 68, 16000, "1500=1500 9000=9000"},
        {1500, 0, 68, 4000, "1500=1500 4000=4000"},
        {1400, 0, 68, 1500, "1400=1400 1500=1500"},
        {1500, 0, 1600, 9000, "1500=1500 9000=9000"},
        {1500, -EOPNOTSUPP, 68, 9000, "1500=1500"},
    };
    for (const auto& c : mtuCases) {
        m_ops->m_links[0].mtu = c.mtu;
        m_ops->m_rangeStatus = c.rangeStatus;
        m_ops->m_minMtu = c.minMtu;
        m_ops->m_maxMtu = c.maxMtu;
        EXPECT_EQ(ValuesOf(kParams + "*JumboPacket\\Enum"), c.mtus) << c.minMtu << ".." << c.maxMtu;
    }
    EXPECT_EQ(ValuesOf(kParams + "*JumboPacket"), "ParamDesc=*JumboPacket Type=enum");
    EXPECT_EQ(ValuesOf(kParams + "*ReceiveBuffers"), "ParamDesc=*ReceiveBuffers Type=int min=64 max=4096 step=8");
    m_ops->m_ring.maximum = 32;
    EXPECT_EQ(ValuesOf(kParams + "*ReceiveBuffers"), "ParamDesc=*ReceiveBuffers Type=int min=32 max=32 step=8");
    EXPECT_EQ(ValuesOf(kParams + "*InterruptModeration\\Enum"), "0=Disabled 1=Enabled");

    m_ops->m_coalesce = {false, 30};
    EXPECT_EQ(ValuesOf(kParams + "ITR\\Enum"), "0=0 25=25 30=30 50=50 100=100 200=200");
    m_ops->m_coalesce = {true, 30};
    EXPECT_EQ(ValuesOf(kParams + "ITR\\Enum"), "0=0 25=25 50=50 100=100 200=200 65535=Adaptive");
}

TEST_F(KernelRegistryView, PathsThatAreNotThere)
{
    std::string lower = kLink;
    for (char& c : lower)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    EXPECT_EQ(m_view.OpenKey(lower, false), 0u) << "names compare without case";
    EXPECT_EQ(m_view.OpenKey(kParams + "itr\\enum", false), 0u);
    for (const std::string& path :
         {std::string("SYSTEM\\CurrentControlSet"), kClass + "x", kClass + "\\0008", kClass + "\\7x", kClass + "\\",
          kClass + "\\0000000007", kClass + "\\-7", kLink + "\\Ndx", kLink + "\\Ndi\\Parameters",
          kParams + "Speed", kParams + "*ReceiveBuffers\\Enum", kParams + "ITR\\Values", kParams + "ITR\\Enum\\0"})
        EXPECT_EQ(m_view.OpenKey(path, false), 2u) << path;
    m_ops->m_linksStatus = -EPERM;
    EXPECT_EQ(m_view.OpenKey(kClass, false), 5u);
    EXPECT_EQ(m_view.OpenKey(kLink, false), 5u);
}

TEST_F(KernelRegistryView, WritesAndTheirRefusals)
{
    struct
    {
        const char* scenario;
        std::string path;
        const char* name;
        SRegValue value;
        bool elevated;
        std::deque<int> setResults;
        uint32_t status;
        std::vector<std::string> writes;
    } cases[] = {
        {"MTU", kLink, "*JumboPacket", {SRegValue::kString, "9000"}, true, {}, 0, {"mtu 7 9000"}},
        {"names without case", kLink, "*jumbopacket", {SRegValue::kString, "1500"}, true, {}, 0, {"mtu 7 1500"}},
        {"ring", kLink, "*ReceiveBuffers", {SRegValue::kString, "512"}, true, {}, 0, {"ring eth0 512"}},
        {"moderation off", kLink, "*InterruptModeration", {SRegValue::kString, "0"}, true, {}, 0,
         {"coalesce eth0 fixed 0"}},
        {"moderation on is adaptive", kLink, "*InterruptModeration", {SRegValue::kString, "1"}, true, {}, 0,
         {"coalesce eth0 adaptive 50"}},
        {"without adaptive a fixed delay", kLink, "*InterruptModeration", {SRegValue::kString, "1"}, true,
         {-EOPNOTSUPP}, 0, {"coalesce eth0 adaptive 50", "coalesce eth0 fixed 50"}},
        {"refused adaptive falls back too", kLink, "*InterruptModeration", {SRegValue::kString, "1"}, true, {-EINVAL},
         0, {"coalesce eth0 adaptive 50", "coalesce eth0 fixed 50"}},
        {"other failures do not", kLink, "*InterruptModeration", {SRegValue::kString, "1"}, true, {-EBUSY}, 170,
         {"coalesce eth0 adaptive 50"}},
        {"moderation 2", kLink, "*InterruptModeration", {SRegValue::kString, "2"}, true, {}, 13, {}},
        {"ITR marker", kLink, "ITR", {SRegValue::kString, "65535"}, true, {}, 0, {"coalesce eth0 adaptive 50"}},
        {"ITR value", kLink, "ITR", {SRegValue::kString, "100"}, true, {}, 0, {"coalesce eth0 fixed 100"}},
        {"kernel refuses the MTU", kLink, "*JumboPacket", {SRegValue::kString, "70000"}, true, {-EINVAL}, 13,
         {"mtu 7 70000"}},
        {"kernel denies", kLink, "*ReceiveBuffers", {SRegValue::kString, "64"}, true, {-EPERM}, 5, {"ring eth0 64"}},
        {"not elevated", kLink, "*JumboPacket", {SRegValue::kString, "9000"}, false, {}, 5, {}},
        {"read-only value", kLink, "DriverDesc", {SRegValue::kString, "x"}, true, {}, 5, {}},
        {"below the link key", kParams + "ITR", "ITR", {SRegValue::kString, "0"}, true, {}, 5, {}},
        {"unknown link", kClass + "\\0008", "ITR", {SRegValue::kString, "0"}, true, {}, 2, {}},
        {"trailing letters", kLink, "ITR", {SRegValue::kString, "12a"}, true, {}, 13, {}},
        {"empty", kLink, "ITR", {SRegValue::kString, ""}, true, {}, 13, {}},
        {"sign", kLink, "ITR", {SRegValue::kString, "-1"}, true, {}, 13, {}},
        {"leading space", kLink, "ITR", {SRegValue::kString, " 5"}, true, {}, 13, {}},
        {"beyond 32 bits", kLink, "*JumboPacket", {SRegValue::kString, "4294967296"}, true, {}, 13, {}},
        {"a DWORD is not text", kLink, "*JumboPacket", {SRegValue::kDword, "9000"}, true, {}, 13, {}},
    };
    for (const auto& c : cases) {
        m_ops->m_writes.clear();
        m_ops->m_setResults = c.setResults;
        m_elevation->m_elevated = c.elevated;
        EXPECT_EQ(m_view.SetValue(c.path, c.name, c.value), c.status) << c.scenario;
        EXPECT_EQ(m_ops->m_writes, c.writes) << c.scenario;
    }
    m_ops->m_coalesceStatus = -EOPNOTSUPP;
    EXPECT_EQ(m_view.SetValue(kLink, "*InterruptModeration", {SRegValue::kString, "0"}), 50u)
        << "the kernel's refusal to read coalescing";
    m_elevation->m_elevated = false;
    EXPECT_EQ(m_view.OpenKey(kLink, true), 5u);
    EXPECT_EQ(m_view.OpenKey(kLink, false), 0u);
}

TEST(DbusDhcpRequests, ErrorNamesAsCodes)
{
    struct
    {
        const char* name;
        int32_t code;
    } cases[] = {
        {"org.freedesktop.NetworkManager.PermissionDenied", 91},
        {"org.freedesktop.DBus.Error.AccessDenied", 91},
        {"org.freedesktop.NetworkManager.UnknownDevice", 84},
        {"org.freedesktop.NetworkManager.Device.NotManaged", 84},
        {"org.freedesktop.network1.LinkNotFound", 84},
        {"org.freedesktop.DBus.Error.NoReply", 13},
        {"org.freedesktop.DBus.Error.ServiceUnknown", 13},
        {"org.freedesktop.NetworkManager.Device.Failed", 65},
        {"", 65},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DhcpCodeForError(QString::fromLatin1(c.name)), c.code) << c.name;
}

TEST(DbusDhcpRequests, ConnectionsAndNetworkdFile)
{
    const SNmConnection fresh = NmDhcpConnection("eth1");
    EXPECT_EQ(fresh.value("connection").value("type").toString(), "802-3-ethernet");
    EXPECT_EQ(fresh.value("connection").value("interface-name").toString(), "eth1");
    EXPECT_EQ(fresh.value("ipv4"), (QVariantMap{{"method", "auto"}}));

    SNmConnection applied;
    applied["connection"] = QVariantMap{{"id", "Camera"}};
    applied["ipv4"] = QVariantMap{{"method", "manual"}, {"address-data", 1}, {"addresses", 2}, {"gateway", "10.0.0.1"},
                                  {"dns", 3}};
    const SNmConnection reapplied = NmDhcpReapplied(applied);
    EXPECT_EQ(reapplied.value("ipv4"), (QVariantMap{{"method", "auto"}, {"dns", 3}}));
    EXPECT_EQ(reapplied.value("connection"), applied.value("connection"));

    EXPECT_EQ(NetworkdDhcpFileName("eth1"), "00-bandwidthmanager-eth1.network");
    EXPECT_EQ(NetworkdDhcpFile("eth1"), "[Match]\nName=eth1\n\n[Network]\nDHCP=ipv4\n");
}

} // namespace
