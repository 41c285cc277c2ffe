#pragma once

#include "cfgapi/CDriverEnumParameter.h"

namespace CfgApi {

// "ITR" where a top value of 65535 or more names a mode, not a rate.
class CIntelItrEnumParameter : public CDriverEnumParameter
{
public:
    explicit CIntelItrEnumParameter(std::shared_ptr<IRegistryView> registry)
        : CDriverEnumParameter("ITR", std::move(registry))
    {
    }

    uint32_t GetMaximum() const override;
};

} // namespace CfgApi
