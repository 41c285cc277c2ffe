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
    EXPECT_EQ(a->GetName(), "Camera LAN");
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
    EXPECT_EQ(Make("Intel and AQtion")->GetItrParameter().GetName(), "ITR");
    auto plain = Make("Realtek PCIe GbE");
    EXPECT_EQ(plain->GetItrParameter().GetName(), "Unsupported_");
    EXPECT_FALSE(plain->GetItrParameter().HasValues());
    EXPECT_TRUE(Make("Aquantia AQC107")->GetItrParameter().HasValues());

    EXPECT_EQ(ThrownText([&] { CNetworkAdapter("", Mac(0), "", "", m_fake.Platform()); }),
              "UniqueName must not be empty.");
    EXPECT_EQ(ThrownText([&] { CNetworkAdapter("{nope}", Mac(0), "", "", m_fake.Platform()); }),
              "Couldn't get network adapter registry path. No matching entry found.");

    m_fake.registry->SetString(SRegistryFixture::AdapterPath("Properties"), "NetCfgInstanceId", "{B2}");
    EXPECT_EQ(CNetworkAdapter("{B2}", Mac(0), "", "", m_fake.Platform()).GetAdapterIndex(), 0u);

    m_fake.registry->FailValue(kKey, "*ReceiveBuffers", 13);
    EXPECT_EQ(ThrownText([&] { Make(); }), "Couldn't read registry value.");
    m_fake.registry->FailValue(kKey, "*ReceiveBuffers", 2);
    EXPECT_EQ(Make()->GetReceiveBuffers(), 0u) << "a driver without the setting";

    m_fake.adapters->m_entries.clear();
    auto unlisted = Make();
    EXPECT_EQ(unlisted->GetLinkSpeed(), -1);
    EXPECT_TRUE(unlisted->GetIpv4Configurations().empty());
    EXPECT_TRUE(unlisted->QualifiesByMacOrSpeed());
}

TEST_F(AdapterTest, SettersNeedElevationOnlyForChanges)
{
    auto a = Make();
    m_fake.elevation->m_elevated = false;
    EXPECT_NO_THROW(a->SetMtu(1514));
    EXPECT_EQ(ThrownText([&] { a->SetMtu(1500); }), "MTU input value 1500 isn't in the list of available MTU values.");
    EXPECT_EQ(ThrownText([&] { a->SetMtu(9014); }), "Access denied. Try running as an administrator.");
    EXPECT_THROW(a->SetReceiveBuffers(512), access_error);
    EXPECT_NO_THROW(a->SetReceiveBuffers(256));
    EXPECT_NO_THROW(a->SetDhcpEnabled(true)) << "a differing value is ignored without a rights test";
    EXPECT_FALSE(a->GetDhcpEnabled());
    EXPECT_THROW(a->SetDhcpEnabled(false), access_error);
    const IPv4Configuration same = a->GetIpv4Configurations()[0];
    EXPECT_THROW(a->SetIpv4Configuration(same), access_error) << "with DHCP off the early return doesn't apply";

    m_fake.elevation->m_elevated = true;
    a->SetMtu(9014);
    EXPECT_EQ(a->GetMtu(), 9014u);
    a->SetReceiveBuffers(5000);
    EXPECT_EQ(a->GetReceiveBuffers(), 2048u);
    a->SetReceiveBuffers(101);
    EXPECT_EQ(a->GetReceiveBuffers(), 96u);
    a->SetIpv4Configuration(IPv4Configuration("10.0.0.5", 8));
    EXPECT_EQ(a->GetIpv4Configurations().size(), 1u);

    m_fake.adapters->m_entries[0].dhcpEnabled = true;
    auto dhcp = Make();
    m_fake.elevation->m_elevated = false;
    EXPECT_NO_THROW(dhcp->SetIpv4Configuration(dhcp->GetIpv4Configurations()[0]));
    EXPECT_TRUE(dhcp->GetDhcpEnabled());
    EXPECT_NO_THROW(dhcp->SetDhcpEnabled(false));
    EXPECT_TRUE(dhcp->GetDhcpEnabled()) << "this setter never changes anything";
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
