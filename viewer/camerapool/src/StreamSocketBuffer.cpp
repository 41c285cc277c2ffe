#include <camerapool/StreamSocketBuffer.h>

#include <QDir>
#include <QFile>

#include <netinet/in.h>
#include <sys/socket.h>

#include <limits>

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

bool setReceiveBufferOfLocalPort(quint16 localPort, qint64 bytes)
{
    const QStringList descriptors = QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System);
    for (const QString& name : descriptors) {
        bool ok = false;
        const int fd = name.toInt(&ok);
        if (!ok)
            continue;
        int type = 0;
        socklen_t typeLength = sizeof type;
        sockaddr_in address{};
        socklen_t addressLength = sizeof address;
        if (getsockopt(fd, SOL_SOCKET, SO_TYPE, &type, &typeLength) != 0 || type != SOCK_DGRAM
            || getsockname(fd, reinterpret_cast<sockaddr*>(&address), &addressLength) != 0
            || address.sin_family != AF_INET || ntohs(address.sin_port) != localPort)
            continue;
        const int size = int(qMin<qint64>(bytes, std::numeric_limits<int>::max()));
        return setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &size, sizeof size) == 0;
    }
    return false;
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
