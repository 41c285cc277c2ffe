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

// Sets the receive buffer of this process's UDP socket bound to localPort.
// Aravis applies its own setting only when a stream's first packet arrives,
// and the first frame would meet the default buffer. False where no such
// socket is found or the kernel refuses.
bool setReceiveBufferOfLocalPort(quint16 localPort, qint64 bytes);

// The warning for a request above the kernel's limit; empty where the limit is
// high enough or unknown.
QString receiveBufferLimitWarning(qint64 requestedBytes, qint64 limitBytes);

} // namespace CameraPool
