#pragma once

#include <usbtopology/CTaggedValue.h>
#include <usbtopology/IPropertySet.h>

#include <cstdint>
#include <map>

namespace topapi {

class CPropertySet : public IPropertySet {
public:
    std::size_t GetCount() const override { return m_values.size(); }
    std::uint32_t GetIdentifier(std::size_t index) const override;
    const CTaggedValue* GetProperty(std::uint32_t identifier) const override;

    void Set(std::uint32_t identifier, CTaggedValue value);
    void Remove(std::uint32_t identifier) { m_values.erase(identifier); }

private:
    std::map<std::uint32_t, CTaggedValue> m_values;
};

} // namespace topapi
