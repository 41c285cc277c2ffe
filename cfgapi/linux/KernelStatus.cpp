#include "cfgapi/linux/KernelStatus.h"

#include <cerrno>

namespace CfgApi {

uint32_t StatusFromKernelError(int negativeErrno)
{
    switch (-negativeErrno) {
    case 0: return 0;
    case ENODEV:
    case ENXIO: return 2;
    case EPERM:
    case EACCES: return 5;
    case EINVAL:
    case ERANGE: return 13;
    case EOPNOTSUPP: return 50;
    case EBUSY: return 170;
    default: return 31;
    }
}

} // namespace CfgApi
