#include "TextConversion.h"

namespace usbtopology {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Length of the sequence that starts with lead, 0 for a byte that cannot lead.
int SequenceLength(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    if (lead >= 0xF0 && lead <= 0xF4)
        return 4;
    return 0;
}

} // namespace

std::u32string DecodeUtf8(const std::string& strUtf8)
{
    std::u32string result;
    const std::size_t size = strUtf8.size();
    std::size_t i = 0;
    while (i < size) {
        const auto lead = static_cast<unsigned char>(strUtf8[i]);
        const int length = SequenceLength(lead);
        if (length == 0 || i + static_cast<std::size_t>(length) > size) {
            result.push_back(kReplacement);
            ++i;
            continue;
        }
        char32_t codePoint = length == 1 ? lead : lead & (0x7F >> length);
        bool valid = true;
        for (int k = 1; k < length; ++k) {
            const auto next = static_cast<unsigned char>(strUtf8[i + k]);
            if ((next & 0xC0) != 0x80) {
                valid = false;
                break;
            }
            codePoint = (codePoint << 6) | (next & 0x3F);
        }
        const char32_t minimum[] = {0, 0, 0x80, 0x800, 0x10000};
        if (!valid || codePoint < minimum[length] || codePoint > 0x10FFFF
            || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) {
            result.push_back(kReplacement);
            ++i;
            continue;
        }
        result.push_back(codePoint);
        i += static_cast<std::size_t>(length);
    }
    return result;
}

std::wstring Utf8ToWide(const std::string& strUtf8)
{
    std::wstring result;
    for (const char32_t codePoint : DecodeUtf8(strUtf8)) {
        if (sizeof(wchar_t) == 2 && codePoint > 0xFFFF) {
            const char32_t offset = codePoint - 0x10000;
            result.push_back(static_cast<wchar_t>(0xD800 + (offset >> 10)));
            result.push_back(static_cast<wchar_t>(0xDC00 + (offset & 0x3FF)));
        } else {
            result.push_back(static_cast<wchar_t>(codePoint));
        }
    }
    return result;
}

} // namespace usbtopology
