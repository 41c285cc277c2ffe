#include "SWineDriverKey.h"

#include "RegistryFixture.h"
#include "baselibs/TextEncoding.h"

#include <windows.h>
#include <sddl.h>

namespace {

std::wstring Wide(const std::string& utf8)
{
    std::u16string utf16;
    Baselibs::Utf16FromUtf8(utf8, utf16);
    return std::wstring(utf16.begin(), utf16.end());
}

void Copy(CfgApi::CInMemoryRegistryView& from, const std::string& path)
{
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, Wide(path).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        nullptr) != ERROR_SUCCESS)
        return;
    std::vector<std::pair<std::string, CfgApi::SRegValue>> values;
    from.Values(path, values);
    for (const auto& value : values) {
        const std::wstring text = Wide(value.second.data);
        RegSetValueExW(key, Wide(value.first).c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>((text.size() + 1) * 2));
    }
    RegCloseKey(key);
    std::vector<std::string> subKeys;
    from.SubKeys(path, subKeys);
    for (const std::string& sub : subKeys)
        Copy(from, path + "\\" + sub);
}

} // namespace

void SWineDriverKey::Create(const std::string& sub, const std::string& guid)
{
    CfgApi::CInMemoryRegistryView driver;
    SRegistryFixture::AddIntelAdapter(driver, sub, guid);
    driver.SetString(SRegistryFixture::AdapterPath(sub), "DriverDesc", "Intel(R) Ethernet Controller I210");
    Copy(driver, SRegistryFixture::AdapterPath(sub));
}

void SWineDriverKey::DenyWrites(const std::string& sub)
{
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    HKEY key = nullptr;
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;KR;;;WD)(A;;WDSD;;;WD)", SDDL_REVISION_1,
                                                              &descriptor, nullptr))
        return;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, Wide(SRegistryFixture::AdapterPath(sub)).c_str(), 0, WRITE_DAC, &key) ==
        ERROR_SUCCESS) {
        RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor);
        RegCloseKey(key);
    }
    LocalFree(descriptor);
}

void SWineDriverKey::Remove(const std::string& sub)
{
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, Wide(SRegistryFixture::AdapterPath(sub)).c_str());
    RegDeleteKeyW(HKEY_LOCAL_MACHINE, Wide(SRegistryFixture::AdapterPath(sub)).c_str());
}

void SWineDriverKey::SetDword(const std::string& sub, const std::string& name, uint32_t value)
{
    const DWORD data = value;
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, Wide(SRegistryFixture::AdapterPath(sub)).c_str(), Wide(name).c_str(),
                    REG_DWORD, &data, sizeof data);
}

std::string SWineDriverKey::StoredText(const std::string& sub, const std::string& name)
{
    wchar_t text[512] = {};
    DWORD size = sizeof text - sizeof(wchar_t);
    if (RegGetValueW(HKEY_LOCAL_MACHINE, Wide(SRegistryFixture::AdapterPath(sub)).c_str(), Wide(name).c_str(),
                     RRF_RT_ANY, nullptr, text, &size) != ERROR_SUCCESS)
        return "(none)";
    std::string utf8;
    Baselibs::Utf8FromUtf16(reinterpret_cast<const char16_t*>(text), utf8);
    return utf8;
}
