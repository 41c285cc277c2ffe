#pragma once

#include "baselibs/SPlatformAdapterEntry.h"

#include <cstdint>
#include <vector>

namespace Baselibs {

// The system's adapter list. List returns 0 on success, else a platform status.
class IAdapterListSource
{
public:
    virtual ~IAdapterListSource() = default;
    virtual uint32_t List(std::vector<SPlatformAdapterEntry>& entries) const = 0;
};

} // namespace Baselibs
