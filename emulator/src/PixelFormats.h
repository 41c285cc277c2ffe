#pragma once

#include <cstdint>

namespace gigeemu {

struct SPixelFormat {
    const char* name;
    std::uint32_t code;
};

constexpr SPixelFormat kPixelFormats[] = {
    {"Mono8", 0x01080001},
    {"Mono12", 0x01100005},
    {"Mono16", 0x01100007},
    {"RGB8", 0x02180014},
    {"BayerRG8", 0x01080009},
};

inline std::uint32_t bitsPerPixel(std::uint32_t code)
{
    return (code >> 16) & 0xFF;
}

inline bool isKnownPixelFormat(std::uint32_t code)
{
    for (const auto& f : kPixelFormats)
        if (f.code == code)
            return true;
    return false;
}

} // namespace gigeemu
