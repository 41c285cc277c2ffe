#pragma once

#include <cstdint>
#include <string>

namespace topapi {

enum ETag : std::uint32_t {
    Tag_Int32 = 2,
    Tag_UInt64 = 4,
    Tag_WideString = 6,
};

// One property value; only the accessor that matches the tag is meaningful.
class CTaggedValue {
public:
    static CTaggedValue Int32(std::int32_t iValue);
    static CTaggedValue UInt64(std::uint64_t uValue);
    static CTaggedValue WideString(std::wstring strValue);

    ETag GetTag() const { return m_tag; }
    std::int32_t GetInt32() const { return m_iValue; }
    std::uint64_t GetUInt64() const { return m_uValue; }
    // Valid as long as the node that holds the value.
    const wchar_t* GetWideString() const { return m_strValue.c_str(); }

private:
    explicit CTaggedValue(ETag tag) : m_tag(tag) {}

    ETag m_tag;
    std::int32_t m_iValue = 0;
    std::uint64_t m_uValue = 0;
    std::wstring m_strValue;
};

} // namespace topapi
