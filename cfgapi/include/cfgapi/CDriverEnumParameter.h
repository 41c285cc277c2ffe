#pragma once

#include "cfgapi/IRegistryView.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace CfgApi {

// One driver setting: its allowed values, read once, and its current value.
class CDriverEnumParameter
{
public:
    CDriverEnumParameter(const std::string& name, std::shared_ptr<IRegistryView> registry);
    virtual ~CDriverEnumParameter() = default;

    virtual uint32_t GetMaximum() const;

    void Initialize(const std::string& registryPath);
    bool HasValues() const { return !m_values.empty(); }
    bool Contains(uint32_t value) const;
    const std::vector<uint32_t>& GetValues() const { return m_values; }
    const std::string& GetName() const { return m_name; }
    const std::string& GetRegistryPath() const { return m_registryPath; }

    uint32_t ReadValue() const;
    uint32_t ReadValueOr(uint32_t fallback) const;
    bool WriteValue(uint32_t value);
    bool WriteValueNoThrow(uint32_t value);

private:
    std::string m_name;
    std::string m_registryPath;
    std::vector<uint32_t> m_values;
    std::shared_ptr<IRegistryView> m_registry;
};

} // namespace CfgApi
