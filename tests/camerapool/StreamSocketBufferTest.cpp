#include <camerapool/StreamSocketBuffer.h>

#include <gtest/gtest.h>

#include <QTemporaryDir>

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
