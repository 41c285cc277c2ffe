#include "baselibs/NetworkManager.h"
#include "baselibs/win/CAdaptersAddressesSourceWin.h"

namespace Baselibs {

std::shared_ptr<const IAdapterListSource> NetworkManager::PlatformSource()
{
    return std::make_shared<CAdaptersAddressesSourceWin>();
}

} // namespace Baselibs
