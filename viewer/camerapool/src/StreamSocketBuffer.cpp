#include <camerapool/StreamSocketBuffer.h>

#include <QFile>

namespace CameraPool {

namespace {

constexpr qint64 MinBytes = 2 << 20;
constexpr qint64 MaxBytes = 64 << 20;
constexpr int FramesInFlight = 4;

} // namespace

qint64 streamSocketBufferBytes(qint64 payloadBytes)
{
    return qBound(MinBytes, FramesInFlight * qMax<qint64>(payloadBytes, 0), MaxBytes);
}

qint64 receiveBufferLimitBytes(const QString& limitFile)
{
    QFile file(limitFile);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    bool ok = false;
    const qint64 value = file.readAll().trimmed().toLongLong(&ok);
    return ok && value >= 0 ? value : -1;
}

QString receiveBufferLimitWarning(qint64 requestedBytes, qint64 limitBytes)
{
    if (limitBytes < 0 || limitBytes >= requestedBytes)
        return {};
    return QStringLiteral("The stream's receive buffer is limited to %1 KiB by net.core.rmem_max (%2 KiB asked "
                          "for); packets may be lost while the system is busy. Raise it with: "
                          "sysctl -w net.core.rmem_max=%3")
        .arg(limitBytes / 1024)
        .arg(requestedBytes / 1024)
        .arg(MaxBytes);
}

} // namespace CameraPool
