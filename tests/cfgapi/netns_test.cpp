// Runs against real links: a veth pair in a network namespace of this process's own.
#include "baselibs/NetworkManager.h"
#include "baselibs/linux/CKernelAdapterListSource.h"
#include "cfgapi/CNetworkAdapter.h"
#include "cfgapi/CNetworkConfig.h"
#include "cfgapi/CreateNetworkConfig.h"
#include "cfgapi/RegistryKey.h"
#include "cfgapi/linux/CCapabilityElevation.h"
#include "cfgapi/linux/CDbusDhcpService.h"
#include "cfgapi/linux/CKernelLinkOps.h"
#include "cfgapi/linux/CKernelRegistryView.h"
#include "cfgapi/linux/CLinuxManagementCalls.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <net/if.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace CfgApi;

namespace {

// Unique per run; a child started by the test takes its parent's.
const int kRun = std::getenv("BWM_NETNS_CHILD") ? std::atoi(std::getenv("BWM_NETNS_CHILD")) : getpid();
const std::string kUp = "bwu" + std::to_string(kRun % 100000);
const std::string kPeer = "bwp" + std::to_string(kRun % 100000);
const std::string kDown = "bwd" + std::to_string(kRun % 100000);
const std::string kDownPeer = "bwe" + std::to_string(kRun % 100000);
const std::string kNet = "10.213." + std::to_string(kRun % 250) + ".";

int Sh(const std::string& command)
{
    return std::system((command + " >/dev/null 2>&1").c_str());
}

std::string Sys(const std::string& ifname, const std::string& file)
{
    std::ifstream in("/sys/class/net/" + ifname + "/" + file);
    std::string line;
    std::getline(in, line);
    return line;
}

std::string Shell(const std::string& command)
{
    std::string out;
    if (FILE* p = popen(command.c_str(), "r")) {
        char buffer[512];
        while (fgets(buffer, sizeof buffer, p))
            out += buffer;
        pclose(p);
    }
    return out;
}

std::string AdapterKey(const std::string& ifname)
{
    char sub[16];
    std::snprintf(sub, sizeof sub, "%04u", if_nametoindex(ifname.c_str()));
    return std::string(CNetworkAdapter::kClassKey) + "\\" + sub;
}

std::shared_ptr<INetworkAdapter> FindAdapter(INetworkConfig& config, const std::string& ifname)
{
    for (auto& a : config.GetNetworkAdapters())
        if (a->GetUniqueName() == ifname)
            return a;
    return nullptr;
}

StaticAddressPair Pair(const std::string& address, const std::string& mask)
{
    StaticAddressPair p{};
    std::strncpy(p.address, address.c_str(), sizeof p.address - 1);
    std::strncpy(p.mask, mask.c_str(), sizeof p.mask - 1);
    return p;
}

// Child without CAP_NET_ADMIN: tries every write once and reports each outcome on its own line.
const bool kChildRan = [] {
    if (!std::getenv("BWM_NETNS_CHILD"))
        return false;
    const unsigned index = if_nametoindex(kUp.c_str());
    auto config = CreateNetworkConfig();
    std::shared_ptr<INetworkAdapter> adapter = FindAdapter(*config, kUp);
    if (!adapter) {
        std::printf("no adapter %s\n", kUp.c_str());
        _exit(1);
    }
    auto attempt = [](const char* what, const std::function<void()>& f) {
        try {
            f();
            std::printf("%s: no exception\n", what);
        } catch (const std::exception& e) {
            std::printf("%s: %s\n", what, e.what());
        }
    };
    attempt("SetMtu", [&] { adapter->SetMtu(9000); });
    attempt("SetIpv4Configuration", [&] { adapter->SetIpv4Configuration(IPv4Configuration(kNet + "77", 24)); });
    auto registry = std::make_shared<CKernelRegistryView>(std::make_shared<CKernelLinkOps>(),
                                                          std::make_shared<CCapabilityElevation>());
    std::printf("open for write: %u\n",
                RegistryKey::Open(registry, RegistryKey::kLocalMachine, AdapterKey(kUp), RegistryKey::kWrite).GetStatus());
    CLinuxManagementCalls calls(nullptr);
    const StaticAddressPair pair = Pair(kNet + "78", "255.255.255.0");
    std::printf("EnableStatic: %d\n", calls.EnableStatic(&pair, 1, index) ? 1 : 0);
    std::printf("Disable: %d\n", calls.ExecuteAdapterMethod("Disable", index) ? 1 : 0);
    std::fflush(stdout);
    _exit(0);
}();

// Counts the restarts while the real calls do the work.
class CCountingCalls : public IManagementCalls
{
public:
    CLinuxManagementCalls m_real{std::make_shared<CDbusDhcpService>()};
    std::vector<std::string> m_calls;

    int32_t EnableDHCP(uint32_t i) override { return m_real.EnableDHCP(i); }
    bool EnableStatic(const StaticAddressPair* p, size_t n, uint32_t i) override
    {
        m_calls.push_back("EnableStatic");
        return m_real.EnableStatic(p, n, i);
    }
    bool ExecuteAdapterMethod(const std::string& m, uint32_t i) override
    {
        m_calls.push_back(m);
        return m_real.ExecuteAdapterMethod(m, i);
    }
};

class NetnsTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        // A mount namespace too, so that /sys shows this network namespace's links.
        if (unshare(CLONE_NEWNET | CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("sysfs", "/sys", "sysfs", 0, nullptr) != 0) {
            s_skip = "no network namespace could be made (needs CAP_SYS_ADMIN): " + std::string(std::strerror(errno));
            return;
        }
        s_ready = Sh("ip link set lo up") == 0 && Sh("ip link add " + kUp + " type veth peer name " + kPeer) == 0 &&
                  Sh("ip link add " + kDown + " type veth peer name " + kDownPeer) == 0 &&
                  Sh("ip addr add " + kNet + "1/24 dev " + kUp) == 0 &&
                  Sh("ip addr add " + kNet + "9/24 dev " + kDown) == 0 &&
                  Sh("ip link set " + kUp + " up") == 0 && Sh("ip link set " + kPeer + " up") == 0;
    }
    static void TearDownTestSuite()
    {
        if (s_skip.empty()) {
            Sh("ip link del " + kUp);
            Sh("ip link del " + kDown);
        }
    }
    void SetUp() override
    {
        if (!s_skip.empty())
            GTEST_SKIP() << s_skip;
        ASSERT_TRUE(s_ready) << "setting up the veth links failed";
        // Each test starts from the same links.
        Sh("ip link set " + kUp + " mtu 1500 up");
        Sh("ip addr flush dev " + kUp);
        Sh("ip addr add " + kNet + "1/24 dev " + kUp);
        for (int i = 0; i < 50 && Sys(kUp, "operstate") != "up"; ++i)
            usleep(20000);
    }

    SPlatform RealPlatform(std::shared_ptr<IManagementCalls> calls)
    {
        SPlatform p;
        p.adapters = std::make_shared<Baselibs::CKernelAdapterListSource>();
        p.elevation = std::make_shared<CCapabilityElevation>();
        p.registry = std::make_shared<CKernelRegistryView>(std::make_shared<CKernelLinkOps>(), p.elevation);
        p.management = std::move(calls);
        p.sleep = [](unsigned) {};
        return p;
    }

    static std::string s_skip;
    static bool s_ready;
};

std::string NetnsTest::s_skip;
bool NetnsTest::s_ready = false;

TEST_F(NetnsTest, ListingFindsTheUpVethOnly)
{
    const auto adapters = Baselibs::NetworkManager().GetAdapters();
    std::vector<std::string> names;
    for (const auto& a : adapters)
        names.push_back(a->GetInternalName());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{kPeer, kUp})) << "lo and the down pair are left out";
    const auto& up = adapters[0]->GetInternalName() == kUp ? adapters[0] : adapters[1];
    const auto& peer = adapters[0]->GetInternalName() == kUp ? adapters[1] : adapters[0];
    EXPECT_EQ(up->GetMacAddress().ToText(':'), [] {
        std::string mac = Sys(kUp, "address");
        for (char& c : mac)
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        return mac;
    }());
    EXPECT_EQ(IPv4Configuration(up->GetIpv4Address(), up->GetPrefixLength()).ToText(),
              "IP: " + kNet + "1, Mask: 255.255.255.0 [24]");
    EXPECT_FALSE(peer->HasIpv4Address());

    auto config = CreateNetworkConfig();
    auto adapter = FindAdapter(*config, kUp);
    ASSERT_TRUE(adapter);
    EXPECT_EQ(adapter->GetLinkSpeed(), 10000);
    EXPECT_FALSE(adapter->GetDhcpEnabled());
    EXPECT_EQ(adapter->GetDescription(), "veth 1.0");
}

TEST_F(NetnsTest, JumboValuesAndWrites)
{
    auto config = CreateNetworkConfig();
    auto adapter = FindAdapter(*config, kUp);
    ASSERT_TRUE(adapter);
    EXPECT_EQ(adapter->GetMtu(), 1500u);
    const auto mtus = adapter->GetAvailableMtus();
    EXPECT_NE(std::find(mtus.begin(), mtus.end(), 1500u), mtus.end());
    EXPECT_NE(std::find(mtus.begin(), mtus.end(), 9000u), mtus.end());

    auto registry = std::make_shared<CKernelRegistryView>(std::make_shared<CKernelLinkOps>(),
                                                          std::make_shared<CCapabilityElevation>());
    RegistryKey key = RegistryKey::Open(registry, RegistryKey::kLocalMachine, AdapterKey(kUp), RegistryKey::kWrite);
    ASSERT_EQ(key.GetStatus(), 0u);
    EXPECT_EQ(key.WriteString("*JumboPacket", "70000"), 13u);
    EXPECT_EQ(key.WriteString("*JumboPacket", "9000x"), 13u);
    EXPECT_EQ(key.WriteString("DriverDesc", "x"), 5u);
    EXPECT_EQ(key.WriteString("*ReceiveBuffers", "512"), 50u) << "veth has no rings";
    EXPECT_EQ(key.WriteString("*JumboPacket", "9000"), 0u);
    EXPECT_EQ(Sys(kUp, "mtu"), "9000");
}

TEST_F(NetnsTest, OptimizeThenApplyCarriesTheMtuAndRestartsOnce)
{
    auto calls = std::make_shared<CCountingCalls>();
    CNetworkConfig config(RealPlatform(calls));
    auto adapter = FindAdapter(config, kUp);
    ASSERT_TRUE(adapter);
    struct CSink : ILogSink
    {
        std::string text;
        void Write(uint32_t, const char* t) override { text += std::string(t) + "\n"; }
        int32_t GetLevel() const override { return 0; }
    } sink;
    adapter->Optimize(&sink);
    EXPECT_NE(sink.text.find("Setting packet size to 9000."), std::string::npos) << sink.text;
    EXPECT_NE(sink.text.find("Receive buffers aren't supported."), std::string::npos) << sink.text;
    EXPECT_NE(sink.text.find("Interrupt moderation isn't supported."), std::string::npos) << sink.text;
    EXPECT_EQ(Sys(kUp, "mtu"), "1500") << "Optimize alone changes memory only";

    adapter->ApplyChanges(&sink);
    EXPECT_EQ(Sys(kUp, "mtu"), "9000");
    EXPECT_EQ(calls->m_calls, (std::vector<std::string>{"Disable", "Enable"}));
    EXPECT_NE(std::stoul(Sys(kUp, "flags"), nullptr, 16) & IFF_UP, 0u);
}

TEST_F(NetnsTest, EnableStaticReplacesTheAddress)
{
    CLinuxManagementCalls calls(nullptr);
    const unsigned index = if_nametoindex(kUp.c_str());
    const StaticAddressPair pair = Pair(kNet + "50", "255.255.0.0");
    ASSERT_TRUE(calls.EnableStatic(&pair, 1, index));
    const std::string shown = Shell("ip -4 -o addr show dev " + kUp);
    EXPECT_EQ(shown.find(kNet + "1/"), std::string::npos) << shown;
    EXPECT_NE(shown.find(kNet + "50/16"), std::string::npos) << shown;
    EXPECT_NE(shown.find("valid_lft forever"), std::string::npos) << "a static address is permanent: " << shown;

    auto config = CreateNetworkConfig();
    auto adapter = FindAdapter(*config, kUp);
    ASSERT_TRUE(adapter);
    ASSERT_EQ(adapter->GetIpv4Configurations().size(), 1u);
    EXPECT_EQ(adapter->GetIpv4Configurations()[0].ToText(), "IP: " + kNet + "50, Mask: 255.255.0.0 [16]");

    const StaticAddressPair bad = Pair("not an address", "255.0.0.0");
    EXPECT_FALSE(calls.EnableStatic(&bad, 1, index));
    EXPECT_FALSE(calls.EnableStatic(&pair, 1, 999999)) << "a link that is gone";
}

TEST_F(NetnsTest, DisableAndEnableTakeTheLinkDownAndUp)
{
    CLinuxManagementCalls calls(nullptr);
    const unsigned index = if_nametoindex(kUp.c_str());
    ASSERT_TRUE(calls.ExecuteAdapterMethod("Disable", index));
    EXPECT_EQ(Sys(kUp, "operstate"), "down");
    for (const auto& a : Baselibs::NetworkManager().GetAdapters())
        EXPECT_NE(a->GetInternalName(), kUp);
    ASSERT_TRUE(calls.ExecuteAdapterMethod("Enable", index));
    for (int i = 0; i < 50 && Sys(kUp, "operstate") != "up"; ++i)
        usleep(20000);
    EXPECT_EQ(Sys(kUp, "operstate"), "up");

    struct stat st;
    if (::stat("/run/dbus/system_bus_socket", &st) != 0) {
        EXPECT_EQ(calls.EnableDHCP(index), 50) << "no manager runs without a system bus";
    }
    EXPECT_EQ(calls.EnableDHCP(999999), 84);
}

TEST_F(NetnsTest, WithoutNetAdminNothingChanges)
{
    const char* self = "/proc/self/exe";
    char exe[4096] = {};
    ASSERT_GT(readlink(self, exe, sizeof exe - 1), 0);
    const std::string child = "BWM_NETNS_CHILD=" + std::to_string(kRun) + " " + exe;
    struct
    {
        const char* tool;
        std::string command;
    } droppers[] = {
        {"capsh", "capsh --drop=cap_net_admin -- -c '" + child + "'"},
        {"setpriv", "setpriv --bounding-set=-net_admin --inh-caps=-net_admin env " + child},
    };
    for (const auto& d : droppers) {
        const std::string out = Shell(d.command + " 2>&1");
        EXPECT_NE(out.find("SetMtu: Access denied. Try running as an administrator."), std::string::npos) << d.tool << out;
        EXPECT_NE(out.find("SetIpv4Configuration: Access denied. Try running as an administrator."), std::string::npos)
            << d.tool << out;
        EXPECT_NE(out.find("open for write: 5"), std::string::npos) << d.tool << out;
        EXPECT_NE(out.find("EnableStatic: 0"), std::string::npos) << d.tool << out;
        EXPECT_NE(out.find("Disable: 0"), std::string::npos) << d.tool << out;
        EXPECT_EQ(Sys(kUp, "mtu"), "1500") << d.tool;
        EXPECT_EQ(Sys(kUp, "operstate"), "up") << d.tool;
        EXPECT_NE(Shell("ip -4 -o addr show dev " + kUp).find(kNet + "1/24"), std::string::npos) << d.tool;
    }
}

} // namespace
