#include "cfgapi/win/CRegistryViewWin.h"

#include "baselibs/TextEncoding.h"
#include "cfgapi/RegistryKey.h"
#include "cfgapi/win/RegistryAccessWin.h"

#include <windows.h>

namespace CfgApi {

namespace {

constexpr DWORD kAnyTypeNoExpandZeroOnFailure = 0x3000FFFF;
constexpr DWORD kMaxNameCharacters = 256;

bool Wide(const std::string& utf8, std::wstring& wide)
{
    std::u16string utf16;
    if (!Baselibs::Utf16FromUtf8(utf8, utf16))
        return false;
    wide.assign(utf16.begin(), utf16.end());
    return true;
}

std::string Narrow(const wchar_t* text, size_t length)
{
    std::string utf8;
    Baselibs::Utf8FromUtf16(std::u16string(reinterpret_cast<const char16_t*>(text), length), utf8);
    return utf8;
}

bool IsText(DWORD type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ;
}

// Texts lose their terminating zeros and become UTF-8; other data stay bytes.
bool ValueFromRegistry(DWORD type, const BYTE* data, DWORD size, SRegValue& value)
{
    value.type = type;
    if (!IsText(type)) {
        value.data.assign(reinterpret_cast<const char*>(data), size);
        return true;
    }
    std::u16string utf16(reinterpret_cast<const char16_t*>(data), size / 2);
    while (!utf16.empty() && utf16.back() == u'\0')
        utf16.pop_back();
    return Baselibs::Utf8FromUtf16(utf16, value.data);
}

// One open key, closed on every path.
class COpenKey
{
public:
    COpenKey(const std::string& path, bool forWrite)
    {
        std::wstring wide;
        m_status = Wide(path, wide)
            ? static_cast<uint32_t>(RegOpenKeyExW(HKEY_LOCAL_MACHINE, wide.c_str(), 0,
                                                  RegistryAccessMaskWin(forWrite), &m_key))
            : RegistryKey::kInvalidData;
    }
    ~COpenKey() { RegCloseKey(m_key); }
    COpenKey(const COpenKey&) = delete;
    COpenKey& operator=(const COpenKey&) = delete;

    uint32_t Status() const { return m_status; }
    HKEY Handle() const { return m_key; }

    uint32_t Counts(DWORD& subKeys, DWORD& values) const
    {
        if (m_status != 0)
            return m_status;
        return static_cast<uint32_t>(RegQueryInfoKeyW(m_key, nullptr, nullptr, nullptr, &subKeys, nullptr, nullptr,
                                                      &values, nullptr, nullptr, nullptr, nullptr));
    }

private:
    HKEY m_key = nullptr;
    uint32_t m_status;
};

} // namespace

uint32_t CRegistryViewWin::OpenKey(const std::string& path, bool forWrite)
{
    return COpenKey(path, forWrite).Status();
}

uint32_t CRegistryViewWin::SubKeys(const std::string& path, std::vector<std::string>& names)
{
    COpenKey key(path, false);
    DWORD subKeys = 0;
    DWORD values = 0;
    if (uint32_t status = key.Counts(subKeys, values))
        return status;
    names.clear();
    for (DWORD i = 0; i < subKeys; ++i) {
        wchar_t name[kMaxNameCharacters];
        DWORD length = kMaxNameCharacters;
        if (RegEnumKeyExW(key.Handle(), i, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS)
            names.push_back(Narrow(name, length));
    }
    return 0;
}

uint32_t CRegistryViewWin::Values(const std::string& path, std::vector<std::pair<std::string, SRegValue>>& values)
{
    COpenKey key(path, false);
    DWORD subKeys = 0;
    DWORD count = 0;
    if (uint32_t status = key.Counts(subKeys, count))
        return status;
    values.clear();
    for (DWORD i = 0; i < count; ++i) {
        wchar_t name[kMaxNameCharacters];
        DWORD length = kMaxNameCharacters;
        BYTE data[RegistryKey::kMaxValueBytes];
        DWORD size = sizeof data;
        DWORD type = 0;
        if (RegEnumValueW(key.Handle(), i, name, &length, nullptr, &type, data, &size) != ERROR_SUCCESS)
            continue;
        SRegValue value;
        if (ValueFromRegistry(type, data, size, value))
            values.emplace_back(Narrow(name, length), value);
    }
    return 0;
}

uint32_t CRegistryViewWin::GetValue(const std::string& path, const std::string& name, SRegValue& value)
{
    COpenKey key(path, false);
    if (key.Status() != 0)
        return key.Status();
    std::wstring wideName;
    if (!Wide(name, wideName))
        return RegistryKey::kInvalidData;
    BYTE data[RegistryKey::kMaxValueBytes];
    DWORD size = sizeof data;
    DWORD type = 0;
    const LONG status = RegGetValueW(key.Handle(), nullptr, wideName.c_str(), kAnyTypeNoExpandZeroOnFailure, &type,
                                     data, &size);
    if (status == ERROR_MORE_DATA)
        return RegistryKey::kInvalidData;
    if (status != ERROR_SUCCESS)
        return static_cast<uint32_t>(status);
    return ValueFromRegistry(type, data, size, value) ? 0 : RegistryKey::kInvalidData;
}

uint32_t CRegistryViewWin::SetValue(const std::string& path, const std::string& name, const SRegValue& value)
{
    COpenKey key(path, true);
    if (key.Status() != 0)
        return key.Status();
    std::wstring wideName;
    if (!Wide(name, wideName))
        return RegistryKey::kInvalidData;
    if (!IsText(value.type)) {
        // One byte more than the data, as the key's writers always passed; the string's own zero is that byte.
        return static_cast<uint32_t>(RegSetValueExW(key.Handle(), wideName.c_str(), 0, value.type,
                                                    reinterpret_cast<const BYTE*>(value.data.c_str()),
                                                    static_cast<DWORD>(value.data.size() + 1)));
    }
    std::wstring text;
    if (!Wide(value.data, text))
        return RegistryKey::kInvalidData;
    // The count ends after the low byte of the terminating zero; kept as it always was.
    const DWORD bytes = static_cast<DWORD>(text.size() * 2 + 1);
    return static_cast<uint32_t>(RegSetValueExW(key.Handle(), wideName.c_str(), 0, value.type,
                                                reinterpret_cast<const BYTE*>(text.c_str()), bytes));
}

} // namespace CfgApi
