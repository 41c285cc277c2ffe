// The registry view and the elevation test on Wine's registry and token.
#include "RegistryFixture.h"
#include "SWineDriverKey.h"

#include "cfgapi/CNetworkConfig.h"
#include "cfgapi/RegistryKey.h"
#include "cfgapi/access_error.h"
#include "cfgapi/win/CRegistryViewWin.h"
#include "cfgapi/win/CTokenElevationWin.h"
#include "cfgapi/win/RegistryAccessWin.h"

#include <gtest/gtest.h>

using namespace CfgApi;

namespace {

// The real registry, with every write noted in order.
class CRecordingRegistryView : public CRegistryViewWin
{
public:
    uint32_t SetValue(const std::string& path, const std::string& name, const SRegValue& value) override
    {
        m_writes.push_back(name + "=" + value.data);
        return CRegistryViewWin::SetValue(path, name, value);
    }
    std::vector<std::string> m_writes;
};

class WineDriverKeyTest : public testing::Test
{
protected:
    static constexpr const char* kSub = "0042";
    static constexpr const char* kGuid = "{B1000000-0000-0000-0000-000000000042}";

    void SetUp() override
    {
        SWineDriverKey::Create(kSub, kGuid);
        Baselibs::SPlatformAdapterEntry& entry = m_fake.adapters->m_entries.front();
        entry.adapterName = kGuid;
    }
    void TearDown() override { SWineDriverKey::Remove(kSub); }

    SPlatform Platform(std::shared_ptr<IElevation> elevation = std::make_shared<CTokenElevationWin>())
    {
        SPlatform platform = m_fake.Platform();
        platform.registry = m_registry;
        platform.elevation = std::move(elevation);
        return platform;
    }
    std::shared_ptr<INetworkAdapter> Adapter(SPlatform platform)
    {
        auto adapters = CNetworkConfig(std::move(platform)).GetNetworkAdapters();
        return adapters.size() == 1 ? adapters.front() : nullptr;
    }
    std::string Stored(const char* name) const { return SWineDriverKey::StoredText(kSub, name); }

    SFakePlatform m_fake;
    std::shared_ptr<CRecordingRegistryView> m_registry = std::make_shared<CRecordingRegistryView>();
};

TEST(RegistryViewWinTest, StatusCodesAndTextsAtTheSeam)
{
    const std::string path = SRegistryFixture::AdapterPath("0043");
    SWineDriverKey::Create("0043", "{B1-43}");
    auto view = std::make_shared<CRegistryViewWin>();
    RegistryKey key = RegistryKey::Open(view, RegistryKey::kLocalMachine, path, RegistryKey::kWrite);
    ASSERT_EQ(key.GetStatus(), 0u);
    const std::string unicode = "Kamera-LAN \xC3\x84\xC3\x96 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x93\xB7";
    const uint32_t dword = 0x01020304;
    ASSERT_EQ(key.WriteString("Unicode", unicode), 0u);
    ASSERT_EQ(key.WriteString("Long", std::string(1500, 'x')), 0u);   // 3000 bytes in UTF-16
    ASSERT_EQ(key.WriteBinary("Written", &dword, 4, SRegValue::kDword), 0u);
    SWineDriverKey::SetDword("0043", "Number", dword);

    struct
    {
        const char* scenario;
        const char* name;
        uint32_t status;
        std::string text;
    } rows[] = {
        {"a driver's text", "DriverDesc", 0, "Intel(R) Ethernet Controller I210"},
        {"UTF-16 becomes UTF-8 and back", "Unicode", 0, unicode},
        {"a value that doesn't fit 2048 bytes", "Long", 13, ""},
        {"a number isn't a text", "Number", 87, ""},
        {"a missing value", "Missing", 2, ""},
    };
    RegistryKey reader = RegistryKey::Open(view, RegistryKey::kLocalMachine, path, RegistryKey::kRead);
    for (const auto& row : rows) {
        std::string text;
        EXPECT_EQ(reader.ReadString(row.name, text), row.status) << row.scenario;
        if (row.status == 0) {
            EXPECT_EQ(text, row.text) << row.scenario;
        }
    }
    uint32_t number = 0;
    EXPECT_EQ(reader.ReadDword("Number", number), 0u);
    EXPECT_EQ(number, dword);
    EXPECT_EQ(reader.ReadDword("Written", number), 87u) << "WriteBinary passes one byte more than it is given";
    EXPECT_EQ(SWineDriverKey::StoredText("0043", "Unicode"), unicode);
    const auto values = reader.ListValues();
    EXPECT_EQ(values.count("Long"), 0u) << "values of more than 2048 bytes aren't listed";
    EXPECT_EQ(values.at("NetCfgInstanceId"), "{B1-43}");
    EXPECT_EQ(RegistryKey::Open(view, RegistryKey::kLocalMachine, path + "\\Ndi\\Params", RegistryKey::kRead)
                  .ListSubKeys(),
              (std::vector<std::string>{"*InterruptModeration", "*JumboPacket", "*ReceiveBuffers", "ITR"}));
    EXPECT_EQ(RegistryKey::Open(view, RegistryKey::kLocalMachine, path + "\\Nope", RegistryKey::kRead).GetStatus(),
              2u);
    EXPECT_FALSE(IsWow64ProcessWin()) << "a 64-bit program";
    EXPECT_EQ(RegistryAccessMaskWin(false), 0x20219u);
    EXPECT_EQ(RegistryAccessMaskWin(true), 0x2021Fu);
    SWineDriverKey::Remove("0043");
}

TEST_F(WineDriverKeyTest, OptimizeAndApplyWriteTheTunedValuesInOrder)
{
    auto adapter = Adapter(Platform());
    ASSERT_TRUE(adapter);
    EXPECT_EQ(adapter->GetMtu(), 1514u);
    EXPECT_EQ(adapter->GetAvailableMtus(), (std::vector<uint32_t>{1514, 4088, 9014}));
    adapter->Optimize(nullptr);
    EXPECT_TRUE(m_registry->m_writes.empty()) << "Optimize changes memory only";
    adapter->ApplyChanges(nullptr);

    EXPECT_EQ(m_registry->m_writes,
              (std::vector<std::string>{"*JumboPacket=9014", "ITR=200", "*InterruptModeration=1", "*ReceiveBuffers=2048"}));
    EXPECT_EQ(m_fake.management->m_calls, (std::vector<std::string>{"Disable 42", "Enable 42"}));
    EXPECT_EQ(m_fake.sleeps, (std::vector<unsigned>{1000}));
    EXPECT_EQ(Stored("*JumboPacket") + " " + Stored("ITR") + " " + Stored("*InterruptModeration") + " " +
                  Stored("*ReceiveBuffers"),
              "9014 200 1 2048");

    auto again = Adapter(Platform());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->GetMtu(), 9014u);
    EXPECT_EQ(again->GetReceiveBuffers(), 2048u);
    m_registry->m_writes.clear();
    again->Optimize(nullptr);
    again->ApplyChanges(nullptr);
    EXPECT_EQ(m_registry->m_writes, std::vector<std::string>{}) << "nothing differs, nothing is written";
}

TEST_F(WineDriverKeyTest, KeyWithoutWriteAccessFailsAndChangesNothing)
{
    SWineDriverKey::DenyWrites(kSub);
    auto adapter = Adapter(Platform());
    ASSERT_TRUE(adapter) << "reading needs no write access";
    adapter->Optimize(nullptr);
    EXPECT_EQ(ThrownText([&] { adapter->ApplyChanges(nullptr); }),
              "Cannot open registry for write access. Try running as an administrator.");
    EXPECT_EQ(Stored("*JumboPacket") + " " + Stored("ITR") + " " + Stored("*InterruptModeration") + " " +
                  Stored("*ReceiveBuffers"),
              "1514 0 0 256");
    EXPECT_TRUE(m_fake.management->m_calls.empty());
}

TEST_F(WineDriverKeyTest, ElevationOfTheProcessToken)
{
    EXPECT_TRUE(CTokenElevationWin().IsElevated()) << "Wine runs programs elevated";
    // A process handle whose token can't be opened is the false path.
    auto adapter = Adapter(Platform(std::make_shared<CTokenElevationWin>(nullptr)));
    ASSERT_TRUE(adapter);
    try {
        adapter->SetMtu(9014);
        ADD_FAILURE() << "SetMtu passed without elevation";
    } catch (const access_error& e) {
        EXPECT_STREQ(e.what(), "Access denied. Try running as an administrator.");
    }
    EXPECT_EQ(ThrownText([&] { adapter->Optimize(nullptr); }), "Access denied. Try running as an administrator.");
    adapter->ApplyChanges(nullptr);
    EXPECT_EQ(adapter->GetMtu(), 1514u);
    EXPECT_TRUE(m_registry->m_writes.empty());
    EXPECT_EQ(Stored("*JumboPacket"), "1514");
}

} // namespace
