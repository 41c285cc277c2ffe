#pragma once

#include "cfgapi/IElevation.h"

namespace CfgApi {

class CInMemoryElevation : public IElevation
{
public:
    explicit CInMemoryElevation(bool elevated = true) : m_elevated(elevated) {}
    bool IsElevated() const override { return m_elevated; }

    bool m_elevated;
};

} // namespace CfgApi
