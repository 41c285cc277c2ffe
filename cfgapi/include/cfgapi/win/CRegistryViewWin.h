#pragma once

#include "cfgapi/IRegistryView.h"

namespace CfgApi {

// The registry below HKEY_LOCAL_MACHINE; texts are UTF-16 there and UTF-8 here.
// Every call opens the key anew and closes it before it returns.
class CRegistryViewWin : public IRegistryView
{
public:
    uint32_t OpenKey(const std::string& path, bool forWrite) override;
    uint32_t SubKeys(const std::string& path, std::vector<std::string>& names) override;
    uint32_t Values(const std::string& path, std::vector<std::pair<std::string, SRegValue>>& values) override;
    uint32_t GetValue(const std::string& path, const std::string& name, SRegValue& value) override;
    uint32_t SetValue(const std::string& path, const std::string& name, const SRegValue& value) override;
};

} // namespace CfgApi
