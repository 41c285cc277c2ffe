#include "cfgapi/SRangedValue.h"

namespace CfgApi {

SRangedValue& SRangedValue::operator=(uint32_t v)
{
    if (v < minimum)
        value = minimum;
    else if (v <= maximum)
        value = v - ((v - minimum) % step);
    else
        value = maximum;
    return *this;
}

} // namespace CfgApi
