#include "cfgapi/CInMemoryRegistryView.h"

#include "cfgapi/RegistryKey.h"

#include <algorithm>
#include <cctype>

namespace CfgApi {

namespace {

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// Registry names compare without regard to case; no copies, as every lookup walks all keys.
bool SameName(const std::string& a, const std::string& b)
{
    return a.size() == b.size()
        && std::equal(a.begin(), a.end(), b.begin(), [](unsigned char x, unsigned char y) {
               return std::tolower(x) == std::tolower(y);
           });
}

} // namespace

CInMemoryRegistryView::SKey* CInMemoryRegistryView::Find(const std::string& path)
{
    for (SKey& key : m_keys)
        if (SameName(key.path, path))
            return &key;
    return nullptr;
}

const CInMemoryRegistryView::SKey* CInMemoryRegistryView::Find(const std::string& path) const
{
    return const_cast<CInMemoryRegistryView*>(this)->Find(path);
}

CInMemoryRegistryView::SKey& CInMemoryRegistryView::Ensure(const std::string& path)
{
    if (SKey* key = Find(path))
        return *key;
    const auto slash = path.find_last_of('\\');
    if (slash != std::string::npos)
        Ensure(path.substr(0, slash));
    m_keys.push_back(SKey{path, {}});
    return m_keys.back();
}

void CInMemoryRegistryView::AddKey(const std::string& path)
{
    Ensure(path);
}

void CInMemoryRegistryView::SetRaw(const std::string& path, const std::string& name, const SRegValue& value)
{
    SKey& key = Ensure(path);
    for (auto& entry : key.values) {
        if (SameName(entry.first, name)) {
            entry.second = value;
            return;
        }
    }
    key.values.emplace_back(name, value);
}

void CInMemoryRegistryView::SetString(const std::string& path, const std::string& name, const std::string& value)
{
    SetRaw(path, name, SRegValue{SRegValue::kString, value});
}

void CInMemoryRegistryView::SetDword(const std::string& path, const std::string& name, uint32_t value)
{
    std::string data(4, '\0');
    for (int i = 0; i < 4; ++i)
        data[i] = static_cast<char>((value >> (8 * i)) & 0xFF);
    SetRaw(path, name, SRegValue{SRegValue::kDword, data});
}

void CInMemoryRegistryView::FailOpen(const std::string& path, uint32_t status)
{
    m_openFailures[Lower(path)] = status;
}

void CInMemoryRegistryView::FailValue(const std::string& path, const std::string& name, uint32_t status)
{
    m_valueFailures[Lower(path) + "|" + Lower(name)] = status;
}

std::string CInMemoryRegistryView::StringAt(const std::string& path, const std::string& name) const
{
    if (const SKey* key = Find(path))
        for (const auto& entry : key->values)
            if (SameName(entry.first, name))
                return entry.second.data;
    return std::string();
}

uint32_t CInMemoryRegistryView::OpenKey(const std::string& path, bool forWrite)
{
    if (!m_openFailures.empty()) {
        auto failure = m_openFailures.find(Lower(path));
        if (failure != m_openFailures.end())
            return failure->second;
    }
    if (!Find(path))
        return RegistryKey::kFileNotFound;
    if (forWrite) {
        if (m_readOnly)
            return RegistryKey::kAccessDenied;
        ++m_writeOpens;
    }
    return RegistryKey::kSuccess;
}

uint32_t CInMemoryRegistryView::SubKeys(const std::string& path, std::vector<std::string>& names)
{
    if (!Find(path))
        return RegistryKey::kFileNotFound;
    const std::string prefix = Lower(path) + "\\";
    names.clear();
    for (const SKey& key : m_keys) {
        const std::string lower = Lower(key.path);
        if (lower.compare(0, prefix.size(), prefix) == 0 && lower.find('\\', prefix.size()) == std::string::npos)
            names.push_back(key.path.substr(prefix.size()));
    }
    return RegistryKey::kSuccess;
}

uint32_t CInMemoryRegistryView::Values(const std::string& path, std::vector<std::pair<std::string, SRegValue>>& values)
{
    const SKey* key = Find(path);
    if (!key)
        return RegistryKey::kFileNotFound;
    values = key->values;
    return RegistryKey::kSuccess;
}

uint32_t CInMemoryRegistryView::GetValue(const std::string& path, const std::string& name, SRegValue& value)
{
    if (!m_valueFailures.empty()) {
        auto failure = m_valueFailures.find(Lower(path) + "|" + Lower(name));
        if (failure != m_valueFailures.end())
            return failure->second;
    }
    const SKey* key = Find(path);
    if (!key)
        return RegistryKey::kFileNotFound;
    for (const auto& entry : key->values) {
        if (SameName(entry.first, name)) {
            value = entry.second;
            return RegistryKey::kSuccess;
        }
    }
    return RegistryKey::kFileNotFound;
}

uint32_t CInMemoryRegistryView::SetValue(const std::string& path, const std::string& name, const SRegValue& value)
{
    if (m_readOnly)
        return RegistryKey::kAccessDenied;
    if (!Find(path))
        return RegistryKey::kFileNotFound;
    ++m_writes;
    SetRaw(path, name, value);
    return RegistryKey::kSuccess;
}

} // namespace CfgApi
