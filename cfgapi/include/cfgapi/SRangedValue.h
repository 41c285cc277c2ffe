#pragma once

#include <cstdint>

namespace CfgApi {

struct SRangedValue
{
    uint32_t value = 0;
    uint32_t minimum = 0;
    uint32_t maximum = 0xFFFFFFFF;
    uint32_t step = 1;   // never 0

    // Clamps to the range and rounds down to a step.
    SRangedValue& operator=(uint32_t v);

    bool operator==(const SRangedValue& o) const
    {
        return value == o.value && minimum == o.minimum && maximum == o.maximum && step == o.step;
    }
    bool operator!=(const SRangedValue& o) const { return !(*this == o); }
};

} // namespace CfgApi
