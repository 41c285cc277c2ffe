#include "cfgapi/CDriverEnumParameter.h"

#include "cfgapi/RegistryKey.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <stdexcept>

namespace CfgApi {

namespace {

bool SameTextIgnoringCase(const std::string& a, const char* b)
{
    const std::string other(b);
    if (a.size() != other.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (std::toupper(static_cast<unsigned char>(a[i])) != std::toupper(static_cast<unsigned char>(other[i])))
            return false;
    return true;
}

// The checks of std::stoul, with their texts spelt out.
unsigned long StoulChecked(const std::string& text)
{
    const char* begin = text.c_str();
    char* end = nullptr;
    errno = 0;
    const unsigned long value = std::strtoul(begin, &end, 10);
    if (end == begin)
        throw std::invalid_argument("invalid stoul argument");
    if (errno == ERANGE)
        throw std::out_of_range("stoul argument out of range");
    return value;
}

uint32_t ToNumber(const std::string& text, int base)
{
    return static_cast<uint32_t>(std::strtoul(text.c_str(), nullptr, base));
}

} // namespace

CDriverEnumParameter::CDriverEnumParameter(const std::string& name, std::shared_ptr<IRegistryView> registry)
    : m_name(name), m_registry(std::move(registry))
{
    if (name.empty())
        throw std::runtime_error("Invalid parameter name.");
}

uint32_t CDriverEnumParameter::GetMaximum() const
{
    if (m_values.empty())
        throw std::runtime_error("No enumeration values.");
    return m_values.back();
}

void CDriverEnumParameter::Initialize(const std::string& registryPath)
{
    if (registryPath.empty())
        throw std::runtime_error("Invalid registry path.");

    const std::string paramPath = registryPath + "\\Ndi\\Params\\" + m_name;
    RegistryKey key = RegistryKey::Open(m_registry, RegistryKey::kLocalMachine, paramPath, RegistryKey::kRead);
    std::string type;
    key.ReadString("Type", type);

    if (SameTextIgnoringCase(type, "enum")) {
        RegistryKey enumKey =
            RegistryKey::Open(m_registry, RegistryKey::kLocalMachine, paramPath + "\\Enum", RegistryKey::kRead);
        for (const std::string& name : enumKey.ListValueNames())
            m_values.push_back(ToNumber(name, 10));
    } else if (SameTextIgnoringCase(type, "dword") || SameTextIgnoringCase(type, "word") ||
               SameTextIgnoringCase(type, "int") || SameTextIgnoringCase(type, "long")) {
        // A range contributes only the points the driver names, not the steps between.
        int base = 10;
        std::string text;
        if (key.ReadString("base", text) == RegistryKey::kSuccess)
            base = static_cast<int>(ToNumber(text, 10));
        if (base == 1 || base > 36)
            base = 10;
        if (key.ReadString("default", text) == RegistryKey::kSuccess)
            m_values.push_back(ToNumber(text, base));
        for (const char* bound : {"min", "max"}) {
            if (key.ReadString(bound, text) != RegistryKey::kSuccess)
                continue;
            const uint32_t value = ToNumber(text, base);
            if (std::find(m_values.begin(), m_values.end(), value) == m_values.end())
                m_values.push_back(value);
        }
    }
    std::sort(m_values.begin(), m_values.end());

    if (m_values.empty()) {
        // A driver that keeps a value without publishing its range: that value is the only one allowed.
        RegistryKey adapterKey =
            RegistryKey::Open(m_registry, RegistryKey::kLocalMachine, registryPath, RegistryKey::kRead);
        std::string text;
        if (adapterKey.ReadString(m_name.c_str(), text) != RegistryKey::kSuccess)
            return;
        m_values.push_back(ToNumber(text, 10));
    }
    m_registryPath = registryPath;
}

bool CDriverEnumParameter::Contains(uint32_t value) const
{
    return std::binary_search(m_values.begin(), m_values.end(), value);
}

uint32_t CDriverEnumParameter::ReadValue() const
{
    if (m_values.empty())
        throw std::runtime_error("Invalid parameter object.");
    RegistryKey key = RegistryKey::Open(m_registry, RegistryKey::kLocalMachine, m_registryPath, RegistryKey::kRead);
    if (!key.IsOpen())
        throw std::runtime_error("Couldn't open registry for read access.");
    std::string text;
    if (key.ReadString(m_name.c_str(), text) != RegistryKey::kSuccess)
        throw std::runtime_error("Error reading from registry.");
    const unsigned long value = StoulChecked(text);
    if (value > UINT32_MAX || !Contains(static_cast<uint32_t>(value)))
        throw std::runtime_error("Invalid enumeration value.");
    return static_cast<uint32_t>(value);
}

uint32_t CDriverEnumParameter::ReadValueOr(uint32_t fallback) const
{
    try {
        return ReadValue();
    } catch (const std::exception&) {
        return fallback;
    }
}

bool CDriverEnumParameter::WriteValue(uint32_t value)
{
    if (!Contains(value))
        throw std::runtime_error("Invalid enumeration value.");
    if (ReadValue() == value)
        return false;
    RegistryKey key = RegistryKey::Open(m_registry, RegistryKey::kLocalMachine, m_registryPath, RegistryKey::kWrite);
    if (!key.IsOpen())
        throw std::runtime_error("Cannot open registry for write access. Try running as an administrator.");
    if (key.WriteString(m_name.c_str(), std::to_string(value)) != RegistryKey::kSuccess)
        throw std::runtime_error("Error writing to registry.");
    return true;
}

bool CDriverEnumParameter::WriteValueNoThrow(uint32_t value)
{
    try {
        return WriteValue(value);
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace CfgApi
