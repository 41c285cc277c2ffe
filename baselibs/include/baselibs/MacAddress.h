#pragma once

#include <array>
#include <cstdint>
#include <string>

// Six bytes in wire order; all zero means "no MAC address".
struct MacAddress
{
    std::array<uint8_t, 6> bytes{};

    bool IsEmpty() const;
    std::string ToText(char separator) const;

    bool operator==(const MacAddress& other) const { return bytes == other.bytes; }
    bool operator!=(const MacAddress& other) const { return !(*this == other); }
};
