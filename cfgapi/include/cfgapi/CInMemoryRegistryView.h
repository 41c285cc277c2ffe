#pragma once

#include "cfgapi/IRegistryView.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace CfgApi {

// A case-insensitive key tree with typed values. It fails when told to:
// read-only (opening for write gives 5) and statuses injected per key or value.
class CInMemoryRegistryView : public IRegistryView
{
public:
    void AddKey(const std::string& path);
    void SetString(const std::string& path, const std::string& name, const std::string& value);
    void SetDword(const std::string& path, const std::string& name, uint32_t value);
    void SetRaw(const std::string& path, const std::string& name, const SRegValue& value);
    void FailOpen(const std::string& path, uint32_t status);
    void FailValue(const std::string& path, const std::string& name, uint32_t status);
    void SetReadOnly(bool readOnly) { m_readOnly = readOnly; }

    // Stored text of a value, empty when absent.
    std::string StringAt(const std::string& path, const std::string& name) const;
    int WriteOpens() const { return m_writeOpens; }
    int Writes() const { return m_writes; }

    uint32_t OpenKey(const std::string& path, bool forWrite) override;
    uint32_t SubKeys(const std::string& path, std::vector<std::string>& names) override;
    uint32_t Values(const std::string& path, std::vector<std::pair<std::string, SRegValue>>& values) override;
    uint32_t GetValue(const std::string& path, const std::string& name, SRegValue& value) override;
    uint32_t SetValue(const std::string& path, const std::string& name, const SRegValue& value) override;

private:
    struct SKey
    {
        std::string path;
        std::vector<std::pair<std::string, SRegValue>> values;
    };

    SKey* Find(const std::string& path);
    const SKey* Find(const std::string& path) const;
    SKey& Ensure(const std::string& path);

    std::vector<SKey> m_keys;   // in order of creation, which is the listed order
    std::map<std::string, uint32_t> m_openFailures;
    std::map<std::string, uint32_t> m_valueFailures;
    bool m_readOnly = false;
    int m_writeOpens = 0;
    int m_writes = 0;
};

} // namespace CfgApi
