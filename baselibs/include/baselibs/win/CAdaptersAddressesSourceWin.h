#pragma once

#include "baselibs/IAdapterListSource.h"

namespace Baselibs {

// The IPv4 adapters that IP Helper's GetAdaptersAddresses reports.
class CAdaptersAddressesSourceWin : public IAdapterListSource
{
public:
    uint32_t List(std::vector<SPlatformAdapterEntry>& entries) const override;
};

} // namespace Baselibs
