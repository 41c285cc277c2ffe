#pragma once

#include <QtGlobal>

#include <functional>

namespace CameraPool {

// The largest packet size in [minimum, maximum], on the grid of increment from
// minimum, that the path carries. The host adapter's MTU is almost always the
// answer and is tried first; below a size that fails the range is bisected.
// -1 when no size carries (a firewall that drops test packets looks the same),
// so that the caller keeps what the camera has. hostMtu <= 0: unknown.
qint64 largestCarriedPacketSize(qint64 minimum, qint64 maximum, qint64 increment, qint64 hostMtu,
                                const std::function<bool(qint64)>& carries);

// The MTU of the local adapter that owns this IPv4 address (host byte order); -1 if none.
qint64 mtuOfLocalAddress(quint32 address);

} // namespace CameraPool
