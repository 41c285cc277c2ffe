#include "RegistryFixture.h"

#include "cfgapi/CNetworkAdapter.h"
#include "cfgapi/CNetworkConfig.h"
#include "cfgapi/CTextException.h"
#include "cfgapi/access_error.h"

#include <gtest/gtest.h>

using namespace CfgApi;

namespace {

const std::string kKey = SRegistryFixture::AdapterPath("0007");

class CCapturingSink : public ILogSink
{
public:
    explicit CCapturingSink(int32_t level) : m_level(level) {}
    void Write(uint32_t level, const char* text) override { m_lines.push_back(std::to_string(level) + " " + text); }
    int32_t GetLevel() const override { return m_level; }

    int32_t m_level;
    std::vector<std::string> m_lines;
};

class AdapterTest : public testing::Test
{
protected:
    std::unique_ptr<CNetworkAdapter> Make(const std::string& description = "Intel(R) Ethernet Controller I210",
                                          const std::string& name = "Camera LAN")
    {
        return std::make_unique<CNetworkAdapter>("{A1}", Mac(0x00), name, description, m_fake.Platform());
    }
    static MacAddress Mac(uint8_t first)
    {
        MacAddress m;
        m.bytes = {first, 0x5A, 0x7E, 1, 2, 3};
        return m;
    }

    SFakePlatform m_fake;
};

TEST_F(AdapterTest, ConstructionReadsTheSnapshot)
{
    auto a = Make();
    EXPECT_EQ(a->GetAdapterIndex(), 7u);
    EXPECT_EQ(a->GetMtu(), 1514u);
    EXPECT_EQ(a->GetAvailableMtus(), (std::vector<uint32_t>{1514, 4088, 9014}));
    EXPECT_EQ(a->GetLinkSpeed(), 1000);
    ASSERT_EQ(a->GetIpv4Configurations().size(), 1u);
    EXPECT_EQ(a->GetIpv4Configurations()[0].ToText(), "IP: 192.168.10.1, Mask: 255.255.255.0 [24]");
    EXPECT_FALSE(a->GetDhcpEnabled());
    EXPECT_EQ(a->GetReceiveBuffers(), 256u);
    EXPECT_EQ(a->GetItrParameter().GetValues().size(), 3u);
    EXPECT_EQ(Make("")->GetName(), "Camera LAN");
    EXPECT_EQ(CNetworkAdapter("{A1}", Mac(0), "", "", m_fake.Platform()).GetName(), "{A1}");
}

TEST_F(AdapterTest, ConstructionVariants)
{
    struct
    {
        const char* scenario;
        std::function<void()> script;
        const char* uniqueName;
        const char* description;
        const char* outcome;   // thrown text, or "itr=<name>/<values> buffers=<n> speed=<n> addresses=<n>"
    } cases[] = {
        {"Intel wins over AQtion", [] {}, "{A1}", "Intel and AQtion", "itr=ITR/3 buffers=256 speed=1000 addresses=1"},
        {"Aquantia", [] {}, "{A1}", "Aquantia AQC107", "itr=ITR/3 buffers=256 speed=1000 addresses=1"},
        {"other drivers have no ITR", [] {}, "{A1}", "Realtek PCIe GbE", "itr=Unsupported_/0 buffers=256 speed=1000 addresses=1"},
        {"no unique name", [] {}, "", "", "UniqueName must not be empty."},
        {"no registry key", [] {}, "{nope}", "", "Couldn't get network adapter registry path. No matching entry found."},
        {"unreadable buffers", [this] { m_fake.registry->FailValue(kKey, "*ReceiveBuffers", 13); }, "{A1}", "",
         "Couldn't read registry value."},
        {"a driver without buffers", [this] { m_fake.registry->FailValue(kKey, "*ReceiveBuffers", 2); }, "{A1}", "",
         "itr=Unsupported_/0 buffers=0 speed=1000 addresses=1"},
        {"not in the adapter list", [this] { m_fake.adapters->m_entries.clear(); }, "{A1}", "",
         "itr=Unsupported_/0 buffers=256 speed=-1 addresses=0"},
    };
    for (const auto& c : cases) {
        m_fake = SFakePlatform();
        c.script();
        std::string outcome;
        try {
            CNetworkAdapter a(c.uniqueName, Mac(0), "", c.description, m_fake.Platform());
            outcome = "itr=" + a.GetItrParameter().GetName() + "/" + std::to_string(a.GetItrParameter().GetValues().size()) +
                      " buffers=" + std::to_string(a.GetReceiveBuffers()) + " speed=" + std::to_string(a.GetLinkSpeed()) +
                      " addresses=" + std::to_string(a.GetIpv4Configurations().size());
        } catch (const std::exception& e) {
            outcome = e.what();
        }
        EXPECT_EQ(outcome, c.outcome) << c.scenario;
    }
    m_fake.registry->SetString(SRegistryFixture::AdapterPath("Properties"), "NetCfgInstanceId", "{B2}");
    EXPECT_EQ(CNetworkAdapter("{B2}", Mac(0), "", "", m_fake.Platform()).GetAdapterIndex(), 0u);
}

TEST_F(AdapterTest, SettersNeedElevationOnlyForChanges)
{
    using Adapter = CNetworkAdapter;
    const auto mtu = [](Adapter& a) { return std::to_string(a.GetMtu()); };
    const auto buffers = [](Adapter& a) { return std::to_string(a.GetReceiveBuffers()); };
    const auto dhcp = [](Adapter& a) { return std::string(a.GetDhcpEnabled() ? "dhcp" : "static"); };
    const auto address = [](Adapter& a) { return a.GetIpv4Configurations().at(0).ToText(); };
    const auto same = [](Adapter& a) { a.SetIpv4Configuration(a.GetIpv4Configurations().at(0)); };
    const std::string denied = "Access denied. Try running as an administrator.";
    const std::string none = "(nothing thrown)";
    struct
    {
        const char* scenario;
        bool elevated;
        bool dhcpOn;
        std::function<void(Adapter&)> set;
        std::string thrown;
        std::function<std::string(Adapter&)> read;
        std::string readBack;
    } cases[] = {
        {"MTU unchanged", false, false, [](Adapter& a) { a.SetMtu(1514); }, none, mtu, "1514"},
        {"MTU outside the set", true, false, [](Adapter& a) { a.SetMtu(1500); },
         "MTU input value 1500 isn't in the list of available MTU values.", mtu, "1514"},
        {"MTU changed", false, false, [](Adapter& a) { a.SetMtu(9014); }, denied, mtu, "1514"},
        {"MTU changed", true, false, [](Adapter& a) { a.SetMtu(9014); }, none, mtu, "9014"},
        {"buffers unchanged", false, false, [](Adapter& a) { a.SetReceiveBuffers(256); }, none, buffers, "256"},
        {"buffers changed", false, false, [](Adapter& a) { a.SetReceiveBuffers(512); }, denied, buffers, "256"},
        {"buffers above the maximum", true, false, [](Adapter& a) { a.SetReceiveBuffers(5000); }, none, buffers, "2048"},
        {"buffers off the step", true, false, [](Adapter& a) { a.SetReceiveBuffers(101); }, none, buffers, "96"},
        {"DHCP differing value is ignored unchecked", false, false, [](Adapter& a) { a.SetDhcpEnabled(true); }, none,
         dhcp, "static"},
        {"DHCP same value asks for rights", false, false, [](Adapter& a) { a.SetDhcpEnabled(false); }, denied, dhcp,
         "static"},
        {"DHCP setter never changes anything", false, true, [](Adapter& a) { a.SetDhcpEnabled(false); }, none, dhcp,
         "dhcp"},
        {"same address with DHCP off", false, false, same, denied, dhcp, "static"},
        {"same address with DHCP on returns early", false, true, same, none, dhcp, "dhcp"},
        {"new address", true, true, [](Adapter& a) { a.SetIpv4Configuration(IPv4Configuration("10.0.0.5", 8)); },
         none, address, "IP: 10.0.0.5, Mask: 255.0.0.0 [8]"},
    };
    for (const auto& c : cases) {
        m_fake.adapters->m_entries[0].dhcpEnabled = c.dhcpOn;
        auto a = Make();
        m_fake.elevation->m_elevated = c.elevated;
        EXPECT_EQ(ThrownText([&] { c.set(*a); }), c.thrown) << c.scenario << " elevated " << c.elevated;
        EXPECT_EQ(c.read(*a), c.readBack) << c.scenario << " elevated " << c.elevated;
    }
}

TEST_F(AdapterTest, QualifiesByMacOrSpeed)
{
    struct
    {
        uint8_t first;
        uint64_t speed;
        bool qualifies;
    } cases[] = {{0x00, 1000000000ull, true}, {0x00, 1001000000ull, false}, {0x02, 10000000000ull, true},
                 {0x00, UINT64_MAX, true}};
    for (const auto& c : cases) {
        m_fake.adapters->m_entries[0].receiveLinkSpeed = c.speed;
        CNetworkAdapter a("{A1}", Mac(c.first), "", "", m_fake.Platform());
        EXPECT_EQ(a.QualifiesByMacOrSpeed(), c.qualifies) << int(c.first) << " " << c.speed;
    }
}

TEST_F(AdapterTest, OptimizeLogsAtEachLevel)
{
    const std::string p = "Optimizing adapter Camera LAN: ";
    struct
    {
        int32_t threshold;
        std::vector<std::string> lines;
    } cases[] = {
        {0,
         {"1 " + p + "Setting packet size to 9014.", "1 " + p + "Setting receive buffers to 2048.",
          "1 " + p + "Enabling interrupt moderation.", "1 " + p + "Setting interrupt moderation to maximum."}},
        {2, {}},
    };
    for (const auto& c : cases) {
        auto a = Make();
        CCapturingSink sink(c.threshold);
        a->Optimize(&sink);
        EXPECT_EQ(sink.m_lines, c.lines) << "threshold " << c.threshold;
        EXPECT_EQ(a->GetMtu(), 9014u);
    }

    auto unsupported = Make("Realtek");
    unsupported->Optimize(nullptr);
    CCapturingSink detail(0);
    unsupported->Optimize(&detail);
    EXPECT_EQ(detail.m_lines[0], "1 " + p + "Packet size already set to 9014. No changes required.");
    EXPECT_EQ(detail.m_lines[1], "1 " + p + "Setting receive buffers to 2048.") << "applied still holds 256";
}

TEST_F(AdapterTest, OptimizeWithoutDriverValues)
{
    m_fake.registry->FailValue(kKey, "*ReceiveBuffers", 2);
    m_fake.registry->SetString(kKey + "\\Ndi\\Params\\*JumboPacket", "Type", "none");
    m_fake.registry->SetString(kKey, "*JumboPacket", "");
    m_fake.registry->FailValue(kKey, "*JumboPacket", 2);
    auto a = Make("Realtek");
    m_fake.elevation->m_elevated = false;
    CCapturingSink sink(0);
    a->Optimize(&sink);
    const std::string p = "Optimizing adapter Camera LAN: ";
    EXPECT_EQ(sink.m_lines, (std::vector<std::string>{
                                "1 " + p + "Packet size already set to 0. No changes required.",
                                "0 " + p + "Setting receive buffers to 0.", "1 " + p + "Receive buffers aren't supported.",
                                "0 " + p + "Setting interrupt moderation to maximum.",
                                "1 " + p + "Interrupt moderation isn't supported."}));
    EXPECT_TRUE(a->GetAvailableMtus().empty());

    m_fake = SFakePlatform();
    auto denied = Make();
    m_fake.elevation->m_elevated = false;
    CCapturingSink deniedSink(0);
    EXPECT_THROW(denied->Optimize(&deniedSink), access_error);
    ASSERT_EQ(deniedSink.m_lines.size(), 1u) << "the line comes before the refusal";
}

TEST_F(AdapterTest, ApplyChangesWithoutDifferencesDoesNothing)
{
    auto a = Make();
    a->ApplyChanges(nullptr);
    EXPECT_EQ(m_fake.registry->WriteOpens(), 0);
    EXPECT_TRUE(m_fake.management->m_calls.empty());
    EXPECT_TRUE(m_fake.sleeps.empty());
}

TEST_F(AdapterTest, ApplyChangesRestartsOnceForAllDriverValues)
{
    auto a = Make();
    a->Optimize(nullptr);
    a->ApplyChanges(nullptr);
    EXPECT_EQ(m_fake.registry->StringAt(kKey, "*JumboPacket"), "9014");
    EXPECT_EQ(m_fake.registry->StringAt(kKey, "*ReceiveBuffers"), "2048");
    EXPECT_EQ(m_fake.registry->StringAt(kKey, "*InterruptModeration"), "1");
    EXPECT_EQ(m_fake.registry->StringAt(kKey, "ITR"), "200");
    EXPECT_EQ(m_fake.management->m_calls, (std::vector<std::string>{"Disable 7", "Enable 7"}));
    EXPECT_EQ(m_fake.sleeps, std::vector<unsigned>{1000});

    m_fake.management->m_calls.clear();
    a->ApplyChanges(nullptr);
    EXPECT_TRUE(m_fake.management->m_calls.empty()) << "applied now equals current";
    EXPECT_EQ(Make()->GetMtu(), 9014u);
}

TEST_F(AdapterTest, ApplyChangesAddressAndDhcp)
{
    auto a = Make();
    a->SetIpv4Configuration(IPv4Configuration("10.0.0.5", 8));
    a->ApplyChanges(nullptr);
    EXPECT_EQ(m_fake.management->m_calls, std::vector<std::string>{"EnableStatic 7 10.0.0.5/255.0.0.0"});

    m_fake.management->m_calls.clear();
    auto zero = Make();
    zero->SetIpv4Configuration(IPv4Configuration("0.1.2.3", 8));
    zero->ApplyChanges(nullptr);
    EXPECT_TRUE(m_fake.management->m_calls.empty()) << "a first octet of 0 is never sent";

    auto refused = Make();
    refused->SetIpv4Configuration(IPv4Configuration("10.0.0.6", 8));
    m_fake.management->m_staticResult = false;
    EXPECT_EQ(ThrownText([&] { refused->ApplyChanges(nullptr); }), "Setting a new IP address for adapter {A1} failed.");
}

TEST_F(AdapterTest, ApplyChangesFailures)
{
    struct
    {
        const char* scenario;
        std::function<void()> script;
        const char* text;
        std::vector<std::string> calls;
    } cases[] = {
        {"failed Disable leaves Enable untried", [this] { m_fake.management->m_disableResult = false; },
         "Disabling the adapter failed.", {"Disable 7"}},
        {"failed Enable", [this] { m_fake.management->m_enableResult = false; }, "Enabling the adapter failed.",
         {"Disable 7", "Enable 7"}},
        {"registry refuses writes", [this] { m_fake.registry->SetReadOnly(true); },
         "Cannot open registry for write access. Try running as an administrator.", {}},
    };
    for (const auto& c : cases) {
        m_fake = SFakePlatform();
        auto a = Make();
        a->Optimize(nullptr);
        c.script();
        EXPECT_EQ(ThrownText([&] { a->ApplyChanges(nullptr); }), c.text) << c.scenario;
        EXPECT_EQ(m_fake.management->m_calls, c.calls) << c.scenario;
    }
}

TEST_F(AdapterTest, DjAnvilIsUntouched)
{
    auto a = Make("Intel", "DJ Anvil");
    a->Optimize(nullptr);
    CCapturingSink sink(2);
    a->ApplyChanges(&sink);
    EXPECT_EQ(sink.m_lines, std::vector<std::string>{"2 U Can't Touch This."});
    EXPECT_EQ(m_fake.registry->Writes(), 0);
    EXPECT_TRUE(m_fake.management->m_calls.empty());
    CCapturingSink quiet(3);
    Make("Intel", "dj anvil")->ApplyChanges(&quiet);
    EXPECT_TRUE(quiet.m_lines.empty());
}

class CDhcpTurnedOn : public CNetworkAdapter
{
public:
    using CNetworkAdapter::CNetworkAdapter;
    void TurnDhcpOn() { WorkingCopy().dhcpEnabled = 1; }
};

TEST_F(AdapterTest, ApplyChangesDhcpCodes)
{
    struct
    {
        int32_t code;
        const char* text;
    } cases[] = {{0, "(nothing thrown)"}, {1, "(nothing thrown)"}, {2, "Setting DHCP failed with result %u."},
                 {84, "Setting DHCP failed with result %u."}};
    for (const auto& c : cases) {
        m_fake.management->m_calls.clear();
        m_fake.management->m_dhcpResult = c.code;
        CDhcpTurnedOn a("{A1}", Mac(0), "", "", m_fake.Platform());
        a.SetIpv4Configuration(IPv4Configuration("10.0.0.5", 8));
        a.TurnDhcpOn();
        EXPECT_EQ(ThrownText([&] { a.ApplyChanges(nullptr); }), c.text) << c.code;
        EXPECT_EQ(m_fake.management->m_calls, std::vector<std::string>{"EnableDHCP 7"})
            << "DHCP leaves the static address out";
    }
}

TEST_F(AdapterTest, ConfigSortsAndFailsAsAWhole)
{
    auto second = m_fake.adapters->m_entries[0];
    second.adapterName = "{B2}";
    second.friendlyName = "Alpha";
    second.physicalAddress[5] = 9;
    m_fake.adapters->m_entries.push_back(second);
    SRegistryFixture::AddIntelAdapter(*m_fake.registry, "0011", "{B2}");
    CNetworkConfig config(m_fake.Platform());
    auto adapters = config.GetNetworkAdapters();
    ASSERT_EQ(adapters.size(), 2u);
    EXPECT_EQ(adapters[0]->GetName(), "Alpha");
    EXPECT_EQ(adapters[1]->GetName(), "Camera LAN");
    EXPECT_EQ(config.GetIpv4Configurations().size(), 2u);

    m_fake.adapters->m_entries[1].adapterName = "{unknown}";
    EXPECT_EQ(ThrownText([&] { config.GetNetworkAdapters(); }),
              "Couldn't get network adapter registry path. No matching entry found.");
}

} // namespace
