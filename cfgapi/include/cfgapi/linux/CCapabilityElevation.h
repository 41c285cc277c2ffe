#pragma once

#include "cfgapi/IElevation.h"

namespace CfgApi {

// CAP_NET_ADMIN in the effective set, worked out once per process.
class CCapabilityElevation : public IElevation
{
public:
    bool IsElevated() const override;
};

} // namespace CfgApi
