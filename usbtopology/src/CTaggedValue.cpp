#include <usbtopology/CTaggedValue.h>

#include <utility>

namespace topapi {

CTaggedValue CTaggedValue::Int32(std::int32_t iValue)
{
    CTaggedValue value(Tag_Int32);
    value.m_iValue = iValue;
    return value;
}

CTaggedValue CTaggedValue::UInt64(std::uint64_t uValue)
{
    CTaggedValue value(Tag_UInt64);
    value.m_uValue = uValue;
    return value;
}

CTaggedValue CTaggedValue::WideString(std::wstring strValue)
{
    CTaggedValue value(Tag_WideString);
    value.m_strValue = std::move(strValue);
    return value;
}

} // namespace topapi
