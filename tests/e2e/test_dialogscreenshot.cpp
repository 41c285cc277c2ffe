// Runs zenta-viewer under Xvfb, opens the Bandwidth Manager from its menu and
// keeps the screenshot it takes as a build artifact.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>

namespace {

TEST(DialogScreenshot, ViewerShowsTheDialogUnderXvfb)
{
    const QString xvfbRun = QStandardPaths::findExecutable(QStringLiteral("xvfb-run"));
    if (xvfbRun.isEmpty())
        GTEST_SKIP() << "xvfb-run is not installed";

    const QString file = QStringLiteral(BWM_SCREENSHOT_DIR "/bandwidth-dialog.png");
    QDir().mkpath(QStringLiteral(BWM_SCREENSHOT_DIR));
    QFile::remove(file);

    QProcess viewer;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    viewer.setProcessEnvironment(environment);
    viewer.setProcessChannelMode(QProcess::MergedChannels);
    viewer.start(xvfbRun, {QStringLiteral("-a"), QStringLiteral("-s"), QStringLiteral("-screen 0 1600x1000x24"),
                           QStringLiteral(ZENTA_VIEWER_PATH), QStringLiteral("--open-bandwidth-manager"),
                           QStringLiteral("--screenshot"), file, QStringLiteral("--screenshot-delay"),
                           QStringLiteral("2500")});
    ASSERT_TRUE(viewer.waitForStarted(10000));
    if (!viewer.waitForFinished(60000)) {
        viewer.kill();
        viewer.waitForFinished();
        FAIL() << "the viewer did not quit after its screenshot";
    }
    const QByteArray output = viewer.readAll();
    ASSERT_EQ(viewer.exitStatus(), QProcess::NormalExit) << output.toStdString();
    ASSERT_EQ(viewer.exitCode(), 0) << output.toStdString();

    const QImage image(file);
    ASSERT_FALSE(image.isNull()) << output.toStdString();
    // The dialog alone has a minimum of 960 by 540.
    EXPECT_GE(image.width(), 960);
    EXPECT_GE(image.height(), 540);
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 7) {
        for (int x = 0; x < image.width(); x += 7)
            colours.insert(image.pixel(x, y));
    }
    EXPECT_GT(colours.size(), 8) << "the screenshot is blank";
}

} // namespace
