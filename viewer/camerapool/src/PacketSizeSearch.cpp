#include "camerapool/PacketSizeSearch.h"

#include "camerapool/InterfaceAddress.h"

#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

namespace CameraPool {

qint64 largestCarriedPacketSize(qint64 minimum, qint64 maximum, qint64 increment, qint64 hostMtu,
                                const std::function<bool(qint64)>& carries)
{
    increment = std::max<qint64>(1, increment);
    const auto onGrid = [&](qint64 size) { return minimum + (size - minimum) / increment * increment; };
    if (maximum < minimum)
        return -1;
    qint64 high = onGrid(hostMtu > 0 ? std::clamp(hostMtu, minimum, maximum) : maximum);
    if (carries(high))
        return high;
    qint64 low = minimum;
    qint64 found = -1;
    while (high - low > increment) {
        const qint64 middle = onGrid(low + (high - low) / 2);
        if (middle == low)
            break;
        if (carries(middle)) {
            low = middle;
            found = middle;
        } else {
            high = middle;
        }
    }
    if (found < 0 && high != minimum && carries(minimum))
        found = minimum;
    return found;
}

qint64 mtuOfLocalAddress(quint32 address)
{
    for (const SLocalIPv4& local : localIPv4Addresses()) {
        if (local.address != address)
            continue;
        const int fd = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        if (fd < 0)
            return -1;
        ifreq request{};
        std::strncpy(request.ifr_name, local.adapter.toLocal8Bit().constData(), IFNAMSIZ - 1);
        const bool ok = ::ioctl(fd, SIOCGIFMTU, &request) == 0;
        ::close(fd);
        return ok ? qint64(request.ifr_mtu) : -1;
    }
    return -1;
}

} // namespace CameraPool
