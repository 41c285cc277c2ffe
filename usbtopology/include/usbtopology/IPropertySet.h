#pragma once

#include <cstddef>
#include <cstdint>

namespace topapi {

class CTaggedValue;

class IPropertySet {
public:
    virtual ~IPropertySet() = default;
    virtual std::size_t GetCount() const = 0;
    // Identifiers in ascending order; 0 past the end.
    virtual std::uint32_t GetIdentifier(std::size_t index) const = 0;
    virtual bool Contains(std::uint32_t identifier) const { return GetProperty(identifier) != nullptr; }
    // Null when the node has no such property.
    virtual const CTaggedValue* GetProperty(std::uint32_t identifier) const = 0;
};

} // namespace topapi
