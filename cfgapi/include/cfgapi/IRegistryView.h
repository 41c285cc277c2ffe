#pragma once

#include "cfgapi/SRegValue.h"

#include <string>
#include <utility>
#include <vector>

namespace CfgApi {

// What stands behind RegistryKey. Paths are below HKEY_LOCAL_MACHINE, split on
// '\', and compare without regard to case, as names do. Results are the
// registry's status codes: 0, 2 (not found), 5 (access denied), 13 (bad data).
class IRegistryView
{
public:
    virtual ~IRegistryView() = default;
    virtual uint32_t OpenKey(const std::string& path, bool forWrite) = 0;
    virtual uint32_t SubKeys(const std::string& path, std::vector<std::string>& names) = 0;
    virtual uint32_t Values(const std::string& path, std::vector<std::pair<std::string, SRegValue>>& values) = 0;
    virtual uint32_t GetValue(const std::string& path, const std::string& name, SRegValue& value) = 0;
    virtual uint32_t SetValue(const std::string& path, const std::string& name, const SRegValue& value) = 0;
};

} // namespace CfgApi
