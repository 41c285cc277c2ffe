#pragma once

#include <string>

namespace Baselibs {

// Each byte is a Latin-1 character.
std::string Utf8FromLatin1(const std::string& latin1);

// A lone surrogate becomes '?'; the result is false when one was met.
bool Utf8FromUtf16(const std::u16string& utf16, std::string& utf8);

// False, with utf16 left empty, for a text that isn't well-formed UTF-8.
bool Utf16FromUtf8(const std::string& utf8, std::u16string& utf16);

} // namespace Baselibs
