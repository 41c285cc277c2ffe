#pragma once

#include "cfgapi/IRegistryView.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace CfgApi {

// One key, opened for reading or writing. Callers branch on its status codes.
class RegistryKey
{
public:
    static constexpr uint32_t kLocalMachine = 0x80000002;
    static constexpr uint32_t kRead = 0;
    static constexpr uint32_t kWrite = 1;

    static constexpr uint32_t kSuccess = 0;
    static constexpr uint32_t kFileNotFound = 2;
    static constexpr uint32_t kAccessDenied = 5;
    static constexpr uint32_t kInvalidHandle = 6;
    static constexpr uint32_t kInvalidData = 13;
    static constexpr uint32_t kInvalidParameter = 87;
    static constexpr uint32_t kMoreData = 234;

    static constexpr size_t kMaxValueBytes = 2048;

    static RegistryKey Open(std::shared_ptr<IRegistryView> view, uint32_t root, const std::string& path,
                            uint32_t mode);

    uint32_t GetStatus() const { return m_status; }
    bool IsOpen() const { return m_open; }

    uint32_t ReadString(const char* name, std::string& value);
    uint32_t ReadBinaryValue(const char* name, void* buffer, uint32_t& size, uint32_t& type);
    uint32_t ReadDword(const char* name, uint32_t& value);
    uint32_t WriteString(const char* name, const std::string& value);
    uint32_t WriteBinary(const char* name, const void* data, uint32_t size, uint32_t type);
    std::vector<std::string> ListSubKeys();
    std::vector<std::string> ListValueNames();
    std::map<std::string, std::string> ListValues();

private:
    RegistryKey() = default;
    uint32_t ReadStringInto(const char* name, std::string& value, size_t room, size_t& required);
    uint32_t Fetch(const char* name, SRegValue& value);

    std::shared_ptr<IRegistryView> m_view;
    std::string m_path;
    bool m_open = false;
    uint32_t m_status = kInvalidHandle;
};

} // namespace CfgApi
