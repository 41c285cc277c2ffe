#include "RegistryFixture.h"

#include "cfgapi/CDriverEnumParameter.h"
#include "cfgapi/CIntelItrEnumParameter.h"
#include "cfgapi/CUnsupportedEnumParameter.h"
#include "cfgapi/RegistryKey.h"
#include "cfgapi/SRangedValue.h"

#include <gtest/gtest.h>

using namespace CfgApi;

namespace {

const std::string kKey = SRegistryFixture::AdapterPath("0007");
const std::string kParams = kKey + "\\Ndi\\Params\\";

TEST(RegistryKeyTest, StatusCodes)
{
    auto r = std::make_shared<CInMemoryRegistryView>();
    r->SetString(kKey, "short", "abc");
    r->SetString(kKey, "long", std::string(1000, 'x'));
    r->SetString(kKey, "huge", std::string(3000, 'x'));
    r->SetDword(kKey, "dword", 0x01020304);
    std::string text;
    uint32_t number = 0;

    RegistryKey key = RegistryKey::Open(r, RegistryKey::kLocalMachine, kKey, RegistryKey::kRead);
    EXPECT_EQ(key.ReadString("short", text), 0u);
    EXPECT_EQ(text, "abc");
    EXPECT_EQ(key.ReadString("long", text), 0u) << "234 is retried once with the size asked for";
    EXPECT_EQ(text.size(), 1000u);
    EXPECT_EQ(key.ReadString("huge", text), 13u);
    EXPECT_EQ(key.ReadString("dword", text), 87u);
    EXPECT_EQ(key.ReadString("missing", text), 2u);
    EXPECT_EQ(key.ReadString(nullptr, text), 87u);
    EXPECT_EQ(key.ReadDword("dword", number), 0u);
    EXPECT_EQ(number, 0x01020304u);
    EXPECT_EQ(key.ReadDword("short", number), 87u);

    EXPECT_EQ(RegistryKey::Open(r, RegistryKey::kLocalMachine, kKey, 2).GetStatus(), 87u);
    RegistryKey absent = RegistryKey::Open(r, RegistryKey::kLocalMachine, kKey + "\\nope", RegistryKey::kRead);
    EXPECT_EQ(absent.GetStatus(), 2u);
    EXPECT_EQ(absent.ReadString("short", text), 6u);
    EXPECT_EQ(absent.WriteString("short", "x"), 6u);

    r->SetReadOnly(true);
    EXPECT_EQ(RegistryKey::Open(r, RegistryKey::kLocalMachine, kKey, RegistryKey::kWrite).GetStatus(), 5u);
}

TEST(SRangedValueTest, Assignment)
{
    struct
    {
        const char* scenario;
        uint32_t v;
        uint32_t expected;
    } cases[] = {
        {"below minimum stores minimum", 10, 80},
        {"on a step stays", 88, 88},
        {"between steps rounds down", 95, 88},
        {"at maximum", 2048, 2048},
        {"above maximum stores maximum", 5000, 2048},
    };
    for (const auto& c : cases) {
        SRangedValue r{0, 80, 2048, 8};
        r = c.v;
        EXPECT_EQ(r.value, c.expected) << c.scenario;
    }
}

std::vector<uint32_t> ValuesAfterInitialize(const std::function<void(CInMemoryRegistryView&)>& fill,
                                            const std::string& name = "P")
{
    auto r = std::make_shared<CInMemoryRegistryView>();
    r->AddKey(kKey);
    fill(*r);
    CDriverEnumParameter p(name, r);
    p.Initialize(kKey);
    return p.GetValues();
}

TEST(DriverEnumParameterTest, InitializeReadsTheDriverSet)
{
    using V = std::vector<uint32_t>;
    struct
    {
        const char* scenario;
        std::function<void(CInMemoryRegistryView&)> fill;
        V expected;
    } cases[] = {
        {"enum names listed out of order come sorted",
         [](auto& r) {
             r.SetString(kParams + "P", "Type", "ENUM");
             for (const char* v : {"3", "0", "1"})
                 r.SetString(kParams + "P\\Enum", v, "x");
         },
         V{0, 1, 3}},
        {"enum names that aren't numbers give 0 and duplicates stay",
         [](auto& r) {
             r.SetString(kParams + "P", "Type", "enum");
             for (const char* v : {"abc", "7", "07"})
                 r.SetString(kParams + "P\\Enum", v, "x");
         },
         V{0, 7, 7}},
        {"dword range keeps default min and max once each",
         [](auto& r) {
             r.SetString(kParams + "P", "Type", "Dword");
             r.SetString(kParams + "P", "default", "10");
             r.SetString(kParams + "P", "min", "10");
             r.SetString(kParams + "P", "max", "100");
         },
         V{10, 100}},
        {"dword range in base 16",
         [](auto& r) {
             r.SetString(kParams + "P", "Type", "long");
             r.SetString(kParams + "P", "base", "16");
             r.SetString(kParams + "P", "min", "10");
             r.SetString(kParams + "P", "max", "ff");
         },
         V{16, 255}},
        {"dword2 is no known type",
         [](auto& r) {
             r.SetString(kParams + "P", "Type", "dword2");
             r.SetString(kParams + "P", "min", "1");
         },
         V{}},
        {"enum without its Enum key falls back to the adapter's value",
         [](auto& r) {
             r.SetString(kParams + "P", "Type", "enum");
             r.SetString(kKey, "P", "42");
         },
         V{42}},
        {"no parameter key and only the adapter value",
         [](auto& r) { r.SetString(kKey, "P", "200"); }, V{200}},
        {"unreadable type and no value", [](auto& r) { r.FailValue(kParams + "P", "Type", 13); }, V{}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ValuesAfterInitialize(c.fill), c.expected) << c.scenario;

    auto r = std::make_shared<CInMemoryRegistryView>();
    CDriverEnumParameter p("P", r);
    EXPECT_EQ(ThrownText([&] { p.Initialize(""); }), "Invalid registry path.");
    EXPECT_EQ(ThrownText([&] { CDriverEnumParameter("", r); }), "Invalid parameter name.");
    p.Initialize(kKey);
    EXPECT_TRUE(p.GetRegistryPath().empty()) << "an unsupported parameter keeps no path";
}

TEST(DriverEnumParameterTest, ReadAndWriteValue)
{
    auto r = std::make_shared<CInMemoryRegistryView>();
    SRegistryFixture::AddIntelAdapter(*r, "0007", "{A1}");
    CDriverEnumParameter jumbo("*JumboPacket", r);
    jumbo.Initialize(kKey);
    EXPECT_EQ(jumbo.GetValues(), (std::vector<uint32_t>{1514, 4088, 9014}));
    EXPECT_EQ(jumbo.ReadValue(), 1514u);

    EXPECT_FALSE(jumbo.WriteValue(1514)) << "the value held already";
    EXPECT_EQ(r->WriteOpens(), 0);
    EXPECT_EQ(ThrownText([&] { jumbo.WriteValue(1500); }), "Invalid enumeration value.");
    EXPECT_TRUE(jumbo.WriteValue(9014));
    EXPECT_EQ(r->StringAt(kKey, "*JumboPacket"), "9014");

    struct
    {
        const char* scenario;
        const char* stored;
        const char* text;
    } bad[] = {
        {"value no longer in the set", "1500", "Invalid enumeration value."},
        {"no digits", "jumbo", "invalid stoul argument"},
        {"out of range", "99999999999999999999999", "stoul argument out of range"},
    };
    for (const auto& c : bad) {
        r->SetString(kKey, "*JumboPacket", c.stored);
        EXPECT_EQ(ThrownText([&] { jumbo.ReadValue(); }), c.text) << c.scenario;
        EXPECT_EQ(jumbo.ReadValueOr(77), 77u) << c.scenario;
        EXPECT_EQ(ThrownText([&] { jumbo.WriteValue(4088); }), c.text) << "a bad stored value blocks the write";
    }

    r->SetString(kKey, "*JumboPacket", "1514");
    r->FailValue(kKey, "*JumboPacket", 13);
    EXPECT_EQ(ThrownText([&] { jumbo.ReadValue(); }), "Error reading from registry.");
    r->FailValue(kKey, "*JumboPacket", 0xFFFF);
    r->FailOpen(kKey, 2);
    EXPECT_EQ(ThrownText([&] { jumbo.ReadValue(); }), "Couldn't open registry for read access.");

    auto readOnly = std::make_shared<CInMemoryRegistryView>();
    SRegistryFixture::AddIntelAdapter(*readOnly, "0007", "{A1}");
    CDriverEnumParameter locked("*JumboPacket", readOnly);
    locked.Initialize(kKey);
    readOnly->SetReadOnly(true);
    EXPECT_EQ(ThrownText([&] { locked.WriteValue(9014); }),
              "Cannot open registry for write access. Try running as an administrator.");
    EXPECT_FALSE(locked.WriteValueNoThrow(9014));
    EXPECT_FALSE(locked.WriteValueNoThrow(1514));
}

TEST(DriverEnumParameterTest, ItrMaximumSkipsTheModeValue)
{
    using V = std::vector<const char*>;
    struct
    {
        V values;
        uint32_t expected;
    } cases[] = {{V{"0", "200", "65535"}, 200}, {V{"65535"}, 65535}, {V{"0", "200"}, 200}, {V{"0", "100", "70000"}, 100}};
    for (const auto& c : cases) {
        auto r = std::make_shared<CInMemoryRegistryView>();
        r->SetString(kParams + "ITR", "Type", "enum");
        for (const char* v : c.values)
            r->SetString(kParams + "ITR\\Enum", v, v);
        CIntelItrEnumParameter itr(r);
        itr.Initialize(kKey);
        EXPECT_EQ(itr.GetMaximum(), c.expected) << c.values.size() << " values";
        CDriverEnumParameter& base = itr;
        EXPECT_EQ(base.GetMaximum(), c.expected) << "through the base";
    }
    CUnsupportedEnumParameter unsupported(std::make_shared<CInMemoryRegistryView>());
    EXPECT_EQ(unsupported.GetName(), "Unsupported_");
    EXPECT_FALSE(unsupported.HasValues());
    EXPECT_EQ(ThrownText([&] { unsupported.GetMaximum(); }), "No enumeration values.");
    EXPECT_EQ(ThrownText([&] { unsupported.ReadValue(); }), "Invalid parameter object.");
}

} // namespace
