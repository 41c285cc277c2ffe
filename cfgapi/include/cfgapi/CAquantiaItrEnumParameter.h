#pragma once

#include "cfgapi/CIntelItrEnumParameter.h"

namespace CfgApi {

class CAquantiaItrEnumParameter : public CIntelItrEnumParameter
{
public:
    using CIntelItrEnumParameter::CIntelItrEnumParameter;
};

} // namespace CfgApi
