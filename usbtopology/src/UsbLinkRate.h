#pragma once

#include <cstdint>
#include <string>

namespace usbtopology {

// sysfs "speed" in Mbit/s ("1.5", "480", "5000", ...); 0 when unreadable.
double ParseSpeedMbps(const std::string& strSpeed);

// Line rate after line coding: 8b/10b at 5 Gbit/s, 128b/132b from 10 Gbit/s,
// none below. Protocol overhead stays in, so this is an upper bound.
std::uint64_t LinkBytesPerSecond(double speedMbps);

} // namespace usbtopology
