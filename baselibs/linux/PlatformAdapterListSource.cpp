#include "baselibs/NetworkManager.h"
#include "baselibs/linux/CKernelAdapterListSource.h"

namespace Baselibs {

std::shared_ptr<const IAdapterListSource> NetworkManager::PlatformSource()
{
    return std::make_shared<CKernelAdapterListSource>();
}

} // namespace Baselibs
