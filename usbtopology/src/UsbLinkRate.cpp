#include "UsbLinkRate.h"

#include <cmath>
#include <cstdlib>

namespace usbtopology {

double ParseSpeedMbps(const std::string& strSpeed)
{
    char* pEnd = nullptr;
    const double speed = std::strtod(strSpeed.c_str(), &pEnd);
    if (strSpeed.empty() || *pEnd != '\0' || !std::isfinite(speed) || speed <= 0)
        return 0;
    return speed;
}

std::uint64_t LinkBytesPerSecond(double speedMbps)
{
    if (!(speedMbps > 0) || speedMbps > 1e6)
        return 0;
    const auto bits = static_cast<std::uint64_t>(std::llround(speedMbps * 1000)) * 1000;
    if (speedMbps >= 10000)
        return bits * 128 / (132 * 8);
    if (speedMbps >= 5000)
        return bits * 8 / (10 * 8);
    return bits / 8;
}

} // namespace usbtopology
