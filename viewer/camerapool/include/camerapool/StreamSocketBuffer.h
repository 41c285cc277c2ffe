#pragma once

#include <QString>
#include <QtGlobal>

namespace CameraPool {

// The receive buffer a GigE stream asks for: four frames, 2 to 64 MiB. Aravis
// asks for one payload, but the kernel charges a datagram about twice its size,
// so a stream thread that lags by one frame would lose packets.
qint64 streamSocketBufferBytes(qint64 payloadBytes);

// net.core.rmem_max as read from limitFile; -1 where it cannot be read.
qint64 receiveBufferLimitBytes(const QString& limitFile = QStringLiteral("/proc/sys/net/core/rmem_max"));

// The warning for a request above the kernel's limit; empty where the limit is
// high enough or unknown.
QString receiveBufferLimitWarning(qint64 requestedBytes, qint64 limitBytes);

} // namespace CameraPool
