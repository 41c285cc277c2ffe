#pragma once

#include <cstdint>

namespace gigeemu {

// Everything on the wire is big-endian.
inline std::uint16_t getBe16(const std::uint8_t* p)
{
    return static_cast<std::uint16_t>((p[0] << 8) | p[1]);
}

inline std::uint32_t getBe32(const std::uint8_t* p)
{
    return (std::uint32_t(p[0]) << 24) | (std::uint32_t(p[1]) << 16) | (std::uint32_t(p[2]) << 8) | p[3];
}

inline void putBe16(std::uint8_t* p, std::uint16_t v)
{
    p[0] = std::uint8_t(v >> 8);
    p[1] = std::uint8_t(v);
}

inline void putBe32(std::uint8_t* p, std::uint32_t v)
{
    p[0] = std::uint8_t(v >> 24);
    p[1] = std::uint8_t(v >> 16);
    p[2] = std::uint8_t(v >> 8);
    p[3] = std::uint8_t(v);
}

} // namespace gigeemu
