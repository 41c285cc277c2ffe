// WMI under Wine: the instance paths find an adapter by its index, and the
// methods that Wine refuses become the adapter's failure texts.
#include "RegistryFixture.h"
#include "SWineDriverKey.h"

#include "baselibs/NetworkManager.h"
#include "baselibs/TextEncoding.h"
#include "cfgapi/CreateNetworkConfig.h"
#include "cfgapi/win/CWmiContextWin.h"
#include "cfgapi/win/CWmiManagementCallsWin.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdio>

using namespace CfgApi;

namespace {

std::string Sub(uint32_t index)
{
    char sub[8];
    std::snprintf(sub, sizeof sub, "%04u", index);
    return sub;
}

std::string Property(IWbemClassObject* object, const wchar_t* name)
{
    VARIANT value;
    VariantInit(&value);
    std::string text = "(none)";
    if (SUCCEEDED(object->Get(name, 0, &value, nullptr, nullptr)) && value.vt == VT_BSTR)
        Baselibs::Utf8FromUtf16(reinterpret_cast<const char16_t*>(value.bstrVal), text);
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    VariantClear(&value);
    return text;
}

// The up adapters as IP Helper lists them, each with a driver key numbered by its
// interface index, as WMI under Wine numbers its instances.
class WmiWinTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Baselibs::NetworkManager::PlatformSource()->List(m_entries);
        for (const auto& entry : m_entries) {
            if (entry.operUp && entry.physicalAddress.size() == 6) {
                SWineDriverKey::Create(Sub(entry.interfaceIndex), entry.adapterName);
                m_keys.push_back(Sub(entry.interfaceIndex));
                if (!m_adapter)
                    m_adapter = &entry;
            }
        }
        if (!m_adapter)
            GTEST_SKIP() << "no adapter is up with a MAC address";
    }
    void TearDown() override
    {
        for (const auto& sub : m_keys)
            SWineDriverKey::Remove(sub);
    }
    std::string Mac() const
    {
        MacAddress mac;
        std::copy(m_adapter->physicalAddress.begin(), m_adapter->physicalAddress.end(), mac.bytes.begin());
        return mac.ToText(':');
    }
    std::shared_ptr<INetworkAdapter> ConfiguredAdapter() const
    {
        for (auto& adapter : CreateNetworkConfig()->GetNetworkAdapters())
            if (adapter->GetUniqueName() == m_adapter->adapterName)
                return adapter;
        return nullptr;
    }

    std::vector<Baselibs::SPlatformAdapterEntry> m_entries;
    std::vector<std::string> m_keys;
    const Baselibs::SPlatformAdapterEntry* m_adapter = nullptr;
};

TEST_F(WmiWinTest, InstancePathsFindTheAdapterByIndex)
{
    struct
    {
        const wchar_t* className;
        const char* pathPrefix;
    } rows[] = {
        {L"Win32_NetworkAdapterConfiguration", "Win32_NetworkAdapterConfiguration.Index='"},
        {L"Win32_NetworkAdapter", "Win32_NetworkAdapter.DeviceID='"},
    };
    for (const auto& row : rows) {
        CWmiContextWin context;
        ASSERT_EQ(context.Open(row.className), CWmiContextWin::eOpened);
        CBstrWin path;
        ASSERT_TRUE(CWmiContextWin::InstancePath(row.pathPrefix, m_adapter->interfaceIndex, path));
        TComPtrWin<IWbemClassObject> instance;
        ASSERT_EQ(context.Services()->GetObject(path.Get(), 0, nullptr, instance.Out(), nullptr), WBEM_S_NO_ERROR)
            << row.pathPrefix;
        EXPECT_EQ(Property(instance.Get(), L"MACAddress"), Mac()) << row.pathPrefix;
    }
    CBstrWin zero;
    ASSERT_TRUE(CWmiContextWin::InstancePath("Win32_NetworkAdapter.DeviceID='", 0, zero));
    EXPECT_STREQ(zero.Get(), L"Win32_NetworkAdapter.DeviceID='0'");
}

TEST_F(WmiWinTest, RefusedMethodsBecomeTheFailureTexts)
{
    const uint32_t index = m_adapter->interfaceIndex;
    CWmiManagementCallsWin calls;
    StaticAddressPair pair{"10.215.9.9", "255.255.255.0"};
    // Wine's classes have no methods: a missing EnableDHCP counts as success, the others fail.
    EXPECT_EQ(calls.EnableDHCP(index), 0);
    EXPECT_FALSE(calls.EnableStatic(&pair, 1, index));
    EXPECT_FALSE(calls.ExecuteAdapterMethod("Disable", index));
    EXPECT_FALSE(calls.ExecuteAdapterMethod("Enable", index));

    auto adapter = ConfiguredAdapter();
    ASSERT_TRUE(adapter) << "CreateNetworkConfig finds the adapter through its driver key";
    const auto addresses = adapter->GetIpv4Configurations();
    adapter->SetIpv4Configuration(IPv4Configuration("10.215.9.9", 24));
    EXPECT_EQ(ThrownText([&] { adapter->ApplyChanges(nullptr); }),
              "Setting a new IP address for adapter " + m_adapter->adapterName + " failed.");

    adapter = ConfiguredAdapter();
    adapter->Optimize(nullptr);
    EXPECT_EQ(ThrownText([&] { adapter->ApplyChanges(nullptr); }), "Disabling the adapter failed.");
    EXPECT_EQ(SWineDriverKey::StoredText(Sub(index), "*JumboPacket"), "9014") << "written before the restart";

    auto after = ConfiguredAdapter();
    ASSERT_TRUE(after) << "the adapter is still up";
    EXPECT_EQ(after->GetIpv4Configurations(), addresses);
    EXPECT_EQ(after->GetMacAddress().ToText(':'), Mac());
}

} // namespace
