#pragma once

#include "cfgapi/CIntelItrEnumParameter.h"

namespace CfgApi {

class CAQtionItrEnumParameter : public CIntelItrEnumParameter
{
public:
    using CIntelItrEnumParameter::CIntelItrEnumParameter;
};

} // namespace CfgApi
