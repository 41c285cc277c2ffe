#pragma once

#include "cfgapi/CDriverEnumParameter.h"

namespace CfgApi {

// Stands for a driver without a known "ITR"; never initialised, so it has no values.
class CUnsupportedEnumParameter : public CDriverEnumParameter
{
public:
    explicit CUnsupportedEnumParameter(std::shared_ptr<IRegistryView> registry)
        : CDriverEnumParameter("Unsupported_", std::move(registry))
    {
    }
};

} // namespace CfgApi
