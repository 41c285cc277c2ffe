#pragma once

#include <string>

namespace usbtopology {

// Malformed sequences decode to U+FFFD, one per offending byte.
std::u32string DecodeUtf8(const std::string& strUtf8);
std::wstring Utf8ToWide(const std::string& strUtf8);

} // namespace usbtopology
