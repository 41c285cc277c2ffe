#include <usbtopology/CPropertySet.h>

#include <iterator>
#include <utility>

namespace topapi {

std::uint32_t CPropertySet::GetIdentifier(std::size_t index) const
{
    if (index >= m_values.size())
        return 0;
    return std::next(m_values.begin(), static_cast<std::ptrdiff_t>(index))->first;
}

const CTaggedValue* CPropertySet::GetProperty(std::uint32_t identifier) const
{
    const auto it = m_values.find(identifier);
    return it == m_values.end() ? nullptr : &it->second;
}

void CPropertySet::Set(std::uint32_t identifier, CTaggedValue value)
{
    m_values.insert_or_assign(identifier, std::move(value));
}

} // namespace topapi
