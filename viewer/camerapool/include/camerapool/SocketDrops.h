#pragma once

#include <QtGlobal>

namespace CameraPool {

// Datagrams the kernel dropped on this host's IPv4 UDP socket bound to
// localPort (SK_MEMINFO_DROPS through sock_diag): its receive buffer was full.
// -1 where the socket is not found or sock_diag is not available.
qint64 udpSocketDrops(quint16 localPort);

} // namespace CameraPool
