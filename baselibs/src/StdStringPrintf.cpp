#include "baselibs/StdStringPrintf.h"

#include <cstdio>
#include <stdexcept>
#include <vector>

#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#endif

std::string StdStringVSPrintf(const char* format, va_list args)
{
    if (format == nullptr)
        throw std::logic_error("StdStringVSPrintf, format string cannot be null!");

    // Short texts stay on the stack; only 32 characters and more go to the heap.
    char small[32];
    va_list first;
    va_copy(first, args);
    const int length = std::vsnprintf(small, sizeof small, format, first);
    va_end(first);
    if (length < 0)
        throw std::logic_error("StdStringXSPrintf, invalid format!");
    if (static_cast<size_t>(length) < sizeof small)
        return std::string(small, static_cast<size_t>(length));

    std::vector<char> large(static_cast<size_t>(length) + 1);
    va_list second;
    va_copy(second, args);
    const int again = std::vsnprintf(large.data(), large.size(), format, second);
    va_end(second);
    if (again != length)
        throw std::logic_error("StdStringXSPrintf, failed!");
    return std::string(large.data(), static_cast<size_t>(length));
}

std::string StdStringXSPrintf(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    try {
        std::string text = StdStringVSPrintf(format, args);
        va_end(args);
        return text;
    } catch (...) {
        va_end(args);
        throw;
    }
}
