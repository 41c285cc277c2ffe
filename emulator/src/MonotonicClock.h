#pragma once

#include "Clock.h"

#include <ctime>

namespace gigeemu {

class CMonotonicClock : public IClock {
public:
    std::int64_t nowNs() const override
    {
        timespec ts{};
        clock_gettime(CLOCK_MONOTONIC, &ts);
        return std::int64_t(ts.tv_sec) * 1000000000 + ts.tv_nsec;
    }
};

} // namespace gigeemu
