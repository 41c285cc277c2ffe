#include <camerapool/InterfaceAddress.h>

#include <QHostAddress>

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace CameraPool {

namespace {

quint32 maskOf(int prefixLength)
{
    return prefixLength <= 0 ? 0u : (prefixLength >= 32 ? 0xFFFFFFFFu : ~((1u << (32 - prefixLength)) - 1u));
}

QString firstAddressOf(const QString& adapter, const QList<SLocalIPv4>& locals)
{
    for (const SLocalIPv4& local : locals) {
        if (local.adapter == adapter)
            return QHostAddress(local.address).toString();
    }
    return {};
}

} // namespace

QString chooseInterfaceAddress(quint32 camera, const QList<SLocalIPv4>& locals,
                               const std::function<quint32(quint32)>& routedSource)
{
    const SLocalIPv4* best = nullptr;
    for (const SLocalIPv4& local : locals) {
        const quint32 mask = maskOf(local.prefixLength);
        if ((local.address & mask) == (camera & mask) && (!best || local.prefixLength > best->prefixLength))
            best = &local;
    }
    if (best)
        return firstAddressOf(best->adapter, locals);

    const quint32 source = routedSource ? routedSource(camera) : 0;
    if (source == 0)
        return {};
    for (const SLocalIPv4& local : locals) {
        if (local.address == source)
            return firstAddressOf(local.adapter, locals);
    }
    return QHostAddress(source).toString();
}

QList<SLocalIPv4> localIPv4Addresses()
{
    QList<SLocalIPv4> result;
    ifaddrs* list = nullptr;
    if (getifaddrs(&list) != 0)
        return result;
    for (ifaddrs* entry = list; entry; entry = entry->ifa_next) {
        if (!entry->ifa_addr || entry->ifa_addr->sa_family != AF_INET)
            continue;
        SLocalIPv4 local;
        local.adapter = QString::fromLocal8Bit(entry->ifa_name);
        local.address = ntohl(reinterpret_cast<const sockaddr_in*>(entry->ifa_addr)->sin_addr.s_addr);
        if (entry->ifa_netmask) {
            const quint32 mask = ntohl(reinterpret_cast<const sockaddr_in*>(entry->ifa_netmask)->sin_addr.s_addr);
            local.prefixLength = __builtin_popcount(mask);
        }
        result.append(local);
    }
    freeifaddrs(list);
    return result;
}

quint32 routedSourceAddress(quint32 camera)
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return 0;
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_port = htons(3956);
    target.sin_addr.s_addr = htonl(camera);
    quint32 source = 0;
    if (::connect(fd, reinterpret_cast<const sockaddr*>(&target), sizeof target) == 0) {
        sockaddr_in local{};
        socklen_t length = sizeof local;
        if (::getsockname(fd, reinterpret_cast<sockaddr*>(&local), &length) == 0)
            source = ntohl(local.sin_addr.s_addr);
    }
    ::close(fd);
    return source;
}

} // namespace CameraPool
