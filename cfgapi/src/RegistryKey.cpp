#include "cfgapi/RegistryKey.h"

#include <cstring>

namespace CfgApi {

RegistryKey RegistryKey::Open(std::shared_ptr<IRegistryView> view, uint32_t root, const std::string& path,
                              uint32_t mode)
{
    RegistryKey key;
    key.m_view = std::move(view);
    key.m_path = path;
    if (mode != kRead && mode != kWrite) {
        key.m_status = kInvalidParameter;
        return key;
    }
    if (root != kLocalMachine || !key.m_view) {
        key.m_status = kFileNotFound;
        return key;
    }
    key.m_status = key.m_view->OpenKey(path, mode == kWrite);
    key.m_open = key.m_status == kSuccess;
    return key;
}

uint32_t RegistryKey::Fetch(const char* name, SRegValue& value)
{
    if (!m_open)
        return kInvalidHandle;
    if (name == nullptr)
        return kInvalidParameter;
    return m_view->GetValue(m_path, name, value);
}

uint32_t RegistryKey::ReadStringInto(const char* name, std::string& value, size_t room, size_t& required)
{
    SRegValue raw;
    if (uint32_t status = Fetch(name, raw))
        return status;
    if (raw.type != SRegValue::kString)
        return kInvalidParameter;
    if (raw.data.size() > kMaxValueBytes)
        return kInvalidData;
    required = raw.data.size() + 1;
    if (required > room)
        return kMoreData;
    value = raw.data;
    return kSuccess;
}

uint32_t RegistryKey::ReadString(const char* name, std::string& value)
{
    size_t required = 0;
    uint32_t status = ReadStringInto(name, value, 128, required);
    if (status == kMoreData)
        status = ReadStringInto(name, value, required, required);
    return status;
}

uint32_t RegistryKey::ReadBinaryValue(const char* name, void* buffer, uint32_t& size, uint32_t& type)
{
    if (m_open && buffer == nullptr)
        return kInvalidParameter;
    SRegValue raw;
    const uint32_t status = Fetch(name, raw);
    if (status != kSuccess) {
        if (buffer)
            std::memset(buffer, 0, size);
        return status;
    }
    type = raw.type;
    if (raw.data.size() > size) {
        std::memset(buffer, 0, size);
        size = static_cast<uint32_t>(raw.data.size());
        return kMoreData;
    }
    std::memcpy(buffer, raw.data.data(), raw.data.size());
    size = static_cast<uint32_t>(raw.data.size());
    return kSuccess;
}

uint32_t RegistryKey::ReadDword(const char* name, uint32_t& value)
{
    SRegValue raw;
    if (uint32_t status = Fetch(name, raw))
        return status;
    if (raw.type != SRegValue::kDword || raw.data.size() != 4)
        return kInvalidParameter;
    const auto* b = reinterpret_cast<const uint8_t*>(raw.data.data());
    value = uint32_t(b[0]) | uint32_t(b[1]) << 8 | uint32_t(b[2]) << 16 | uint32_t(b[3]) << 24;
    return kSuccess;
}

uint32_t RegistryKey::WriteString(const char* name, const std::string& value)
{
    if (!m_open)
        return kInvalidHandle;
    if (name == nullptr)
        return kInvalidParameter;
    return m_view->SetValue(m_path, name, SRegValue{SRegValue::kString, value});
}

uint32_t RegistryKey::WriteBinary(const char* name, const void* data, uint32_t size, uint32_t type)
{
    if (!m_open)
        return kInvalidHandle;
    if (name == nullptr || data == nullptr)
        return kInvalidParameter;
    return m_view->SetValue(m_path, name, SRegValue{type, std::string(static_cast<const char*>(data), size)});
}

std::vector<std::string> RegistryKey::ListSubKeys()
{
    std::vector<std::string> names;
    if (m_open)
        m_view->SubKeys(m_path, names);
    return names;
}

std::vector<std::string> RegistryKey::ListValueNames()
{
    std::vector<std::string> names;
    std::vector<std::pair<std::string, SRegValue>> values;
    if (m_open && m_view->Values(m_path, values) == kSuccess)
        for (auto& entry : values)
            names.push_back(entry.first);
    return names;
}

std::map<std::string, std::string> RegistryKey::ListValues()
{
    std::map<std::string, std::string> result;
    std::vector<std::pair<std::string, SRegValue>> values;
    if (!m_open || m_view->Values(m_path, values) != kSuccess)
        return result;
    for (auto& entry : values)
        if (entry.second.data.size() <= kMaxValueBytes)
            result.emplace(entry.first, entry.second.data);
    return result;
}

} // namespace CfgApi
