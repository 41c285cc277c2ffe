#include <usbtopology/UsbInstancePath.h>

#include "TextConversion.h"

namespace usbtopology {

std::string ToDescriptorAscii(const std::string& strUtf8)
{
    std::string result;
    for (const char32_t codePoint : DecodeUtf8(strUtf8)) {
        if (codePoint < 0x80)
            result.push_back(static_cast<char>(codePoint));
        else
            result.append(codePoint > 0xFFFF ? "??" : "?");
    }
    return result;
}

std::wstring BuildUsbInstancePath(const std::string& strManufacturer, const std::string& strProduct,
                                  const std::string& strSerial)
{
    std::wstring path = L"U3V";
    for (const std::string* pField : {&strManufacturer, &strProduct, &strSerial}) {
        path.push_back(L'\\');
        for (const char c : ToDescriptorAscii(*pField))
            path.push_back(c == '\\' ? L'?' : static_cast<wchar_t>(c));
    }
    return path;
}

bool IsSameUsbInstancePath(const std::wstring& strLeft, const std::wstring& strRight)
{
    if (strLeft.size() != strRight.size())
        return false;
    auto lower = [](wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c; };
    for (std::size_t i = 0; i < strLeft.size(); ++i) {
        if (lower(strLeft[i]) != lower(strRight[i]))
            return false;
    }
    return true;
}

} // namespace usbtopology
