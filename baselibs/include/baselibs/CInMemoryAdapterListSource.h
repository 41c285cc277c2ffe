#pragma once

#include "baselibs/IAdapterListSource.h"

namespace Baselibs {

// A scripted adapter list: the entries given, or the status given.
class CInMemoryAdapterListSource : public IAdapterListSource
{
public:
    std::vector<SPlatformAdapterEntry> m_entries;
    uint32_t m_status = 0;

    uint32_t List(std::vector<SPlatformAdapterEntry>& entries) const override
    {
        if (m_status != 0)
            return m_status;
        entries = m_entries;
        return 0;
    }
};

} // namespace Baselibs
