#include "baselibs/CInMemoryAdapterListSource.h"
#include "baselibs/IPv4Configuration.h"
#include "baselibs/NetworkAdapter.h"
#include "baselibs/StdStringPrintf.h"

#include <gtest/gtest.h>
#include <netinet/in.h>

#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>

using Baselibs::NetworkManager;

namespace {

std::string ThrownText(const std::function<void()>& f)
{
    try {
        f();
    } catch (const std::exception& e) {
        return e.what();
    }
    return "(nothing thrown)";
}

struct SParseCase
{
    const char* scenario;
    const char* text;
    const char* expectedAddressText;   // null: refused
};

class AddressParser : public testing::TestWithParam<SParseCase> {};

TEST_P(AddressParser, ParsesOrRefuses)
{
    const SParseCase& c = GetParam();
    if (c.expectedAddressText) {
        EXPECT_EQ(IPv4Configuration(c.text, 8).AddressText(), c.expectedAddressText);
    } else {
        EXPECT_EQ(ThrownText([&] { IPv4Configuration(c.text, 8); }), "Invalid IP address.");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Texts, AddressParser,
    testing::Values(SParseCase{"three numbers are too short", "1.2.3", nullptr},
                    SParseCase{"a letter in place of the fourth number", "1.2.3.x", nullptr},
                    SParseCase{"an octet above 255", "1.2.3.256", nullptr},
                    SParseCase{"an empty text", "", nullptr},
                    SParseCase{"trailing text is ignored", "10.0.0.1xyz", "10.0.0.1"},
                    SParseCase{"the highest address", "255.255.255.255", "255.255.255.255"},
                    SParseCase{"leading zeros are decimal", "010.001.0.09", "10.1.0.9"}),
    [](const auto& info) {
        std::string name = info.param.scenario;
        for (char& ch : name)
            if (!isalnum(static_cast<unsigned char>(ch)))
                ch = '_';
        return name;
    });

TEST(IPv4ConfigurationTest, AddressIsHeldInNetworkOrder)
{
    const IPv4Configuration c("192.168.1.10", 24);
    EXPECT_EQ(c.GetAddress(), htonl(0xC0A8010A));
    EXPECT_EQ(IPv4Configuration(htonl(0x0A000001), 8).AddressText(), "10.0.0.1");
}

TEST(IPv4ConfigurationTest, PrefixRules)
{
    EXPECT_EQ(ThrownText([] { IPv4Configuration(0u, 33); }), "Invalid prefix.");
    EXPECT_EQ(ThrownText([] { IPv4Configuration("10.0.0.1", 33); }), "Invalid prefix.");
    IPv4Configuration c("10.0.0.1", 32);
    EXPECT_EQ(c.MaskText(), "255.255.255.255");
    EXPECT_EQ(ThrownText([&] { c.SetPrefix(33); }), "Invalid prefix.");
    EXPECT_EQ(c.GetPrefix(), 32);
    c.SetPrefix(0);
    EXPECT_EQ(c.MaskText(), "0.0.0.0");
    c.SetPrefix(1);
    EXPECT_EQ(c.MaskText(), "128.0.0.0");
    c.SetMask(htonl(0xFF00FF00));   // not contiguous, counted anyway
    EXPECT_EQ(c.GetPrefix(), 16);
    c.SetMask(htonl(0xFFFFFFFC));
    EXPECT_EQ(c.GetPrefix(), 30);
}

TEST(IPv4ConfigurationTest, ToTextAndEquality)
{
    EXPECT_EQ(IPv4Configuration("192.168.1.10", 24).ToText(), "IP: 192.168.1.10, Mask: 255.255.255.0 [24]");
    EXPECT_EQ(IPv4Configuration(), IPv4Configuration(0u, 0));
    EXPECT_NE(IPv4Configuration("10.0.0.1", 24), IPv4Configuration("10.0.0.1", 25));
    EXPECT_EQ(sizeof(IPv4Configuration[3]), 15u);
}

TEST(IPv4ConfigurationTest, SameSubnetUsesTheShorterPrefix)
{
    struct
    {
        const char* a;
        int pa;
        const char* b;
        int pb;
        bool same;
    } cases[] = {
        {"10.1.2.3", 16, "10.1.9.9", 24, true},
        {"10.1.9.9", 24, "10.1.2.3", 16, true},
        {"10.1.2.3", 24, "10.1.9.9", 24, false},
        {"10.1.2.3", 24, "10.1.2.200", 24, true},
        {"10.1.2.3", 0, "192.168.0.1", 24, true},
        {"10.2.0.1", 16, "10.1.0.1", 8, true},
        {"11.2.0.1", 16, "10.1.0.1", 8, false},
    };
    for (const auto& c : cases) {
        const IPv4Configuration a(c.a, static_cast<uint8_t>(c.pa));
        const IPv4Configuration b(c.b, static_cast<uint8_t>(c.pb));
        EXPECT_EQ(a.IsSameSubnet(b), c.same) << c.a << "/" << c.pa << " vs " << c.b << "/" << c.pb;
    }
}

TEST(StdStringPrintfTest, FormatsShortAndLongTexts)
{
    EXPECT_EQ(StdStringXSPrintf("%s-%u", "ab", 7u), "ab-7");
    const std::string exactly31(31, 'x');
    const std::string exactly32(32, 'y');
    const std::string long300(300, 'z');
    EXPECT_EQ(StdStringXSPrintf("%s", exactly31.c_str()), exactly31);
    EXPECT_EQ(StdStringXSPrintf("%s", exactly32.c_str()), exactly32);
    EXPECT_EQ(StdStringXSPrintf("<%s>", long300.c_str()), "<" + long300 + ">");
    EXPECT_EQ(StdStringXSPrintf("%s", ""), "");
    EXPECT_EQ(ThrownText([] { StdStringXSPrintf(nullptr); }), "StdStringVSPrintf, format string cannot be null!");
    MacAddress mac;
    mac.bytes = {0x02, 0x5A, 0x7E, 0x00, 0xAB, 0x0F};
    EXPECT_EQ(mac.ToText('-'), "02-5A-7E-00-AB-0F");
}

MacAddress Mac(uint8_t last)
{
    MacAddress m;
    m.bytes = {0x00, 0x30, 0x53, 0x01, 0x02, last};
    return m;
}

TEST(NetworkAdapterTest, ConstructorChecksInOrder)
{
    const uint32_t ip = htonl(0x0A000001);
    EXPECT_EQ(ThrownText([&] { NetworkManager::NetworkAdapter("", MacAddress(), ip, 0); }),
              "macAddress must not be empty.");
    EXPECT_EQ(ThrownText([&] { NetworkManager::NetworkAdapter("", Mac(1), ip, 8); }),
              "internalName must not be empty.");
    EXPECT_EQ(ThrownText([&] { NetworkManager::NetworkAdapter("eth0", Mac(1), 0, 8); }),
              "Ipv4 address must not be empty if prefix is given.");
    EXPECT_EQ(ThrownText([&] { NetworkManager::NetworkAdapter("eth0", Mac(1), ip, 0); }),
              "Prefix must not be empty if ipv4 address is given.");
}

TEST(NetworkAdapterTest, RecordGettersAndTheirTexts)
{
    const NetworkManager::NetworkAdapter a("{GUID-1}", Mac(1), 0, 0);
    EXPECT_TRUE(a.HasFriendlyName());
    EXPECT_EQ(a.GetFriendlyName(), "{GUID-1}");
    EXPECT_FALSE(a.HasIpv4Address());
    EXPECT_FALSE(a.HasPrefixLength());
    EXPECT_EQ(ThrownText([&] { a.GetIpv4Address(); }), "No IPv4 address available for this adapter");
    EXPECT_EQ(ThrownText([&] { a.GetPrefixLength(); }), "No prefix length available for this adapter");
    EXPECT_EQ(ThrownText([&] { a.GetDescription(); }), "No description name available for this adapter");
    const NetworkManager::NetworkAdapter b("{GUID-2}", Mac(2), "Camera LAN", "Intel(R) I210", htonl(0x0A000001), 8);
    EXPECT_EQ(b.GetFriendlyName(), "Camera LAN");
    EXPECT_EQ(b.GetDescription(), "Intel(R) I210");
    EXPECT_EQ(b.GetMacAddress(), Mac(2));
    EXPECT_EQ(b.GetPrefixLength(), 8);
}

Baselibs::SPlatformAdapterEntry Entry(const std::string& name, uint8_t last, bool up = true)
{
    Baselibs::SPlatformAdapterEntry e;
    e.adapterName = name;
    e.friendlyName = name + " friendly";
    e.physicalAddress = {0x00, 0x30, 0x53, 0x01, 0x02, last};
    e.operUp = up;
    return e;
}

Baselibs::SUnicastAddress Unicast(int family, uint32_t hostOrder, uint8_t prefix)
{
    Baselibs::SUnicastAddress u;
    u.family = family;
    const uint32_t n = htonl(hostOrder);
    std::memcpy(u.address, &n, 4);
    u.onLinkPrefixLength = prefix;
    return u;
}

TEST(GetAdaptersTest, FiltersDownAndNonEthernetEntries)
{
    auto source = std::make_shared<Baselibs::CInMemoryAdapterListSource>();
    auto up = Entry("eth0", 1);
    up.unicastAddresses = {Unicast(AF_INET, 0x0A000001, 24), Unicast(AF_INET, 0x0B000001, 8)};
    auto down = Entry("eth1", 2, false);
    auto loopback = Entry("lo", 0);
    loopback.physicalAddress.clear();
    auto nameless = Entry("x", 3);
    nameless.hasAdapterName = false;
    auto bare = Entry("eth2", 4);
    source->m_entries = {up, down, loopback, nameless, bare};

    const auto adapters = NetworkManager(source).GetAdapters();
    ASSERT_EQ(adapters.size(), 2u);
    EXPECT_EQ(adapters[0]->GetInternalName(), "eth0");
    EXPECT_EQ(adapters[0]->GetFriendlyName(), "eth0 friendly");
    EXPECT_EQ(adapters[0]->GetIpv4Address(), htonl(0x0A000001));
    EXPECT_EQ(adapters[0]->GetPrefixLength(), 24);
    EXPECT_EQ(adapters[1]->GetInternalName(), "eth2");
    EXPECT_FALSE(adapters[1]->HasIpv4Address());
}

TEST(GetAdaptersTest, OneBadEntryOrAFailedCallFailsTheListing)
{
    auto source = std::make_shared<Baselibs::CInMemoryAdapterListSource>();
    auto v6First = Entry("eth1", 2);
    v6First.unicastAddresses = {Unicast(AF_INET6, 0, 64)};
    source->m_entries = {Entry("eth0", 1), v6First};
    EXPECT_EQ(ThrownText([&] { NetworkManager(source).GetAdapters(); }), "Could not enumerate adapters");

    auto zeroMac = Entry("eth3", 0);
    zeroMac.physicalAddress = {0, 0, 0, 0, 0, 0};
    source->m_entries = {Entry("eth0", 1), zeroMac};
    EXPECT_EQ(ThrownText([&] { NetworkManager(source).GetAdapters(); }), "Could not enumerate adapters");

    source->m_entries = {Entry("eth0", 1)};
    source->m_status = 232;   // no data is a failure like any other
    EXPECT_EQ(ThrownText([&] { NetworkManager(source).GetAdapters(); }), "Could not enumerate adapters");

    source->m_status = 0;
    source->m_entries = {Entry("eth0", 1, false)};
    EXPECT_TRUE(NetworkManager(source).GetAdapters().empty());
}

} // namespace
