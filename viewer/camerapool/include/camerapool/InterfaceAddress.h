#pragma once

#include <QList>
#include <QString>

#include <functional>

namespace CameraPool {

// One IPv4 address of a local adapter, host byte order.
struct SLocalIPv4
{
    QString adapter;
    quint32 address = 0;
    int prefixLength = 0;
};

// The host adapter of a GigE camera, as the first IPv4 address of that adapter:
// the adapter whose subnet holds the camera (longest prefix wins), else the one
// owning the address the kernel would send from. Empty when neither is known.
QString chooseInterfaceAddress(quint32 camera, const QList<SLocalIPv4>& locals,
                               const std::function<quint32(quint32)>& routedSource);

// The machine's IPv4 addresses in getifaddrs order.
QList<SLocalIPv4> localIPv4Addresses();
// UDP connect to camera:3956 and getsockname; sends nothing. 0 when there is no route.
quint32 routedSourceAddress(quint32 camera);

} // namespace CameraPool
