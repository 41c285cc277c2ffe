#include "cfgapi/CIntelItrEnumParameter.h"

namespace CfgApi {

uint32_t CIntelItrEnumParameter::GetMaximum() const
{
    const uint32_t top = CDriverEnumParameter::GetMaximum();
    if (top < 65535 || GetValues().size() < 2)
        return top;
    return GetValues()[GetValues().size() - 2];
}

} // namespace CfgApi
