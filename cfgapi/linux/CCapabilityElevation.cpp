#include "cfgapi/linux/CCapabilityElevation.h"

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace CfgApi {

bool CCapabilityElevation::IsElevated() const
{
    // euid 0 alone isn't enough: root without CAP_NET_ADMIN gets EPERM on every write.
    static const bool elevated = [] {
        __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
        __user_cap_data_struct data[2]{};
        return syscall(SYS_capget, &header, data) == 0 &&
               ((data[CAP_NET_ADMIN / 32].effective >> (CAP_NET_ADMIN % 32)) & 1u);
    }();
    return elevated;
}

} // namespace CfgApi
