#include <camerapool/SocketDrops.h>
#include <camerapool/StreamSocketBuffer.h>

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace CameraPool;

namespace {

constexpr qint64 MiB = 1 << 20;

QString limitFile(const QTemporaryDir& dir, const QByteArray& content)
{
    const QString path = dir.filePath(QStringLiteral("rmem_max"));
    QFile file(path);
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    file.write(content);
    return path;
}

} // namespace

TEST(StreamSocketBuffer, FourFramesBetweenTwoAndSixtyFourMebibytes)
{
    EXPECT_EQ(streamSocketBufferBytes(640 * 480), 2 * MiB);
    EXPECT_EQ(streamSocketBufferBytes(1920 * 1200), 4 * 1920 * 1200);
    EXPECT_EQ(streamSocketBufferBytes(5472 * 3648 * 3), 64 * MiB);
    EXPECT_EQ(streamSocketBufferBytes(-1), 2 * MiB);
}

TEST(StreamSocketBuffer, ReadsTheKernelLimitAndWarnsOnlyBelowTheRequest)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    EXPECT_EQ(receiveBufferLimitBytes(limitFile(dir, "212992\n")), 212992);
    EXPECT_EQ(receiveBufferLimitBytes(limitFile(dir, "lots")), -1);
    EXPECT_EQ(receiveBufferLimitBytes(dir.filePath(QStringLiteral("absent"))), -1);

    const QString warning = receiveBufferLimitWarning(8 * MiB, 212992);
    EXPECT_TRUE(warning.contains(QStringLiteral("208 KiB"))) << warning.toStdString();
    EXPECT_TRUE(warning.contains(QStringLiteral("net.core.rmem_max"))) << warning.toStdString();
    EXPECT_TRUE(receiveBufferLimitWarning(8 * MiB, 8 * MiB).isEmpty());
    EXPECT_TRUE(receiveBufferLimitWarning(8 * MiB, -1).isEmpty()) << "an unknown limit is no reason to warn";
}

TEST(StreamSocketBuffer, SetsTheBufferOfTheSocketOnTheGivenPortOnly)
{
    const int fd = ::socket(AF_INET, SOCK_DGRAM, 0);
    ASSERT_GE(fd, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    socklen_t length = sizeof address;
    ASSERT_EQ(::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length), 0);
    const auto bufferOf = [fd] {
        int size = 0;
        socklen_t sizeLength = sizeof size;
        ::getsockopt(fd, SOL_SOCKET, SO_RCVBUF, &size, &sizeLength);
        return size;
    };
    const int before = bufferOf();

    EXPECT_FALSE(setReceiveBufferOfLocalPort(quint16(ntohs(address.sin_port) + 1), 64 * 1024));
    EXPECT_EQ(bufferOf(), before);
    // The kernel doubles what it grants; 4 KiB is below every limit and every default.
    EXPECT_TRUE(setReceiveBufferOfLocalPort(ntohs(address.sin_port), 4096));
    EXPECT_NE(bufferOf(), before);
    EXPECT_LE(bufferOf(), 2 * 4096);
    ::close(fd);
}

// A socket that nobody reads, with the smallest buffer the kernel allows:
// what it cannot queue, sock_diag counts as its drops.
TEST(SocketDrops, countsWhatAFullReceiveBufferRefused)
{
    const int receiver = ::socket(AF_INET, SOCK_DGRAM, 0);
    const int sender = ::socket(AF_INET, SOCK_DGRAM, 0);
    ASSERT_GE(receiver, 0);
    ASSERT_GE(sender, 0);
    const int smallest = 1;
    ASSERT_EQ(setsockopt(receiver, SOL_SOCKET, SO_RCVBUF, &smallest, sizeof smallest), 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ASSERT_EQ(::bind(receiver, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    socklen_t length = sizeof address;
    ASSERT_EQ(getsockname(receiver, reinterpret_cast<sockaddr*>(&address), &length), 0);
    const quint16 port = ntohs(address.sin_port);
    EXPECT_EQ(udpSocketDrops(port), 0);

    const char datagram[1000] = {};
    constexpr int Sent = 100;
    for (int i = 0; i < Sent; ++i)
        ::sendto(sender, datagram, sizeof datagram, 0, reinterpret_cast<sockaddr*>(&address), sizeof address);
    int queued = 0;
    while (::recv(receiver, const_cast<char*>(datagram), 0, MSG_DONTWAIT) >= 0)
        ++queued;
    EXPECT_GT(queued, 0);
    EXPECT_EQ(udpSocketDrops(port), Sent - queued);
    ::close(sender);
    ::close(receiver);
    EXPECT_EQ(udpSocketDrops(port), -1) << "no socket on that port any more";
}
