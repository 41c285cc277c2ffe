#pragma once

#include <cstdarg>
#include <string>

// printf into a string; throws std::logic_error on a null or unusable format.
std::string StdStringVSPrintf(const char* format, va_list args);
std::string StdStringXSPrintf(const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 1, 2)))
#endif
    ;
