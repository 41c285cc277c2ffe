#include "baselibs/TextEncoding.h"

#include <cstdint>

namespace Baselibs {

namespace {

void AppendUtf8(uint32_t c, std::string& out)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

bool IsHighSurrogate(uint32_t u) { return u >= 0xD800 && u <= 0xDBFF; }
bool IsLowSurrogate(uint32_t u) { return u >= 0xDC00 && u <= 0xDFFF; }

} // namespace

std::string Utf8FromLatin1(const std::string& latin1)
{
    std::string out;
    out.reserve(latin1.size());
    for (unsigned char c : latin1)
        AppendUtf8(c, out);
    return out;
}

bool Utf8FromUtf16(const std::u16string& utf16, std::string& utf8)
{
    utf8.clear();
    bool clean = true;
    for (size_t i = 0; i < utf16.size(); ++i) {
        const uint32_t u = utf16[i];
        if (IsHighSurrogate(u) && i + 1 < utf16.size() && IsLowSurrogate(utf16[i + 1])) {
            AppendUtf8(0x10000 + ((u - 0xD800) << 10) + (uint32_t(utf16[++i]) - 0xDC00), utf8);
        } else if (IsHighSurrogate(u) || IsLowSurrogate(u)) {
            utf8 += '?';
            clean = false;
        } else {
            AppendUtf8(u, utf8);
        }
    }
    return clean;
}

bool Utf16FromUtf8(const std::string& utf8, std::u16string& utf16)
{
    utf16.clear();
    for (size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        const size_t length = lead < 0x80 ? 1 : (lead >> 5) == 0x6 ? 2 : (lead >> 4) == 0xE ? 3 : (lead >> 3) == 0x1E ? 4 : 0;
        if (length == 0 || i + length > utf8.size()) {
            utf16.clear();
            return false;
        }
        uint32_t c = length == 1 ? lead : lead & (0x7F >> length);
        for (size_t k = 1; k < length; ++k) {
            const auto next = static_cast<unsigned char>(utf8[i + k]);
            if ((next & 0xC0) != 0x80) {
                utf16.clear();
                return false;
            }
            c = (c << 6) | (next & 0x3F);
        }
        static const uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
        if (c < kSmallest[length] || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) {
            utf16.clear();
            return false;
        }
        if (c >= 0x10000) {
            utf16 += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            utf16 += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        } else {
            utf16 += static_cast<char16_t>(c);
        }
        i += length;
    }
    return true;
}

} // namespace Baselibs
