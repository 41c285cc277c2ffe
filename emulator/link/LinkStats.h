#pragma once

#include <cstdint>
#include <string>

namespace bwm::link {

struct SLinkStats
{
    std::uint64_t framesToHost = 0;
    std::uint64_t bytesToHost = 0;
    std::uint64_t framesDropped = 0;
    std::uint64_t bytesDropped = 0;
    // The pump fell behind so far that its store ran out: not the switch's doing.
    std::uint64_t framesOverrun = 0;
    std::uint64_t framesTooBig = 0;
    // Lost before the switch: the capture ring was full.
    std::uint64_t framesRingDropped = 0;
    std::uint64_t framesToCameras = 0;
    std::uint64_t hostWriteErrors = 0;
    std::uint64_t maxBacklogBytes = 0;
    // CLOCK_MONOTONIC when the counters were taken, so rates need no guessing.
    std::int64_t takenAtNs = 0;

    // One line of key=value pairs, stable for scripts.
    std::string format() const;
};

} // namespace bwm::link
