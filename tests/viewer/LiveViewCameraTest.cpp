// The viewer's camera wiring against an emulated GigE camera on loopback,
// through the real camera services.
#include "CCameraSelectorPanel.h"
#include "CDeviceSelectorService.h"
#include "CLiveCameraController.h"
#include "CMainWindow.h"
#include "CMenuService.h"
#include "CMessageLogService.h"
#include "CProblemAssistantService.h"
#include "CameraPoolWiring.h"

#include <camerapool/CLiveImageView.h>
#include <camerapool/CameraPoolServices.h>

#include <Core/Plugin/ServiceLookup.h>

#include <gtest/gtest.h>

#include <QAction>
#include <QElapsedTimer>
#include <QLabel>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

#include <unistd.h>

using namespace Viewer;

namespace {

// One gige-emulator, ended by its pid when the test ends, passed or not.
class CEmulator
{
public:
    ~CEmulator()
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.kill();
            m_process.waitForFinished(5000);
        }
    }
    bool start(const QStringList& arguments)
    {
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.start(QStringLiteral(GIGE_EMULATOR_PATH), arguments);
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < 5000 && m_process.waitForStarted(1000) && m_process.state() == QProcess::Running) {
            m_process.waitForReadyRead(200);
            m_output += QString::fromUtf8(m_process.readAll());
            if (m_output.contains(QLatin1String(" on ")))
                return true;
        }
        return false;
    }
    QString output() const { return m_output; }

private:
    QProcess m_process;
    QString m_output;
};

template <typename Condition>
bool waitFor(Condition condition, int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > timeoutMs)
            return false;
        QTest::qWait(50);
    }
    return true;
}

QModelIndex findRow(const QAbstractItemModel* model, const QString& text, const QModelIndex& parent = {})
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        if (index.data().toString().contains(text))
            return index;
        if (const QModelIndex inner = findRow(model, text, index); inner.isValid())
            return inner;
    }
    return {};
}

} // namespace

TEST(ViewerWithCamera, refreshListsTheCameraAndGrabbingFromTheSelectorShowsItsFramesLive)
{
    const QString serial = QStringLiteral("VWR%1").arg(getpid() % 100000);
    const QString address = QStringLiteral("127.%1.%2.7").arg(60 + getpid() % 40).arg((getpid() / 40) % 250);

    auto manager = Core::Plugin::PluginManagerPtr::create();
    CMenuService menus;
    CMessageLogService log;
    CDeviceSelectorService selector;
    CProblemAssistantService assistant;
    auto window = std::make_unique<CMainWindow>(&menus, &log, &selector, &assistant);
    CameraPool::SCameraPoolOptions options;
    options.rescanIntervalMs = 600000;  // only the first scan and the ones asked for
    CameraPool::registerCameraPoolServices(manager, window.get(), options);
    const auto enumeration = Core::Plugin::getService<CameraPool::CCameraEnumerationService>(manager);
    const auto status = Core::Plugin::getService<CameraPool::CCameraStatusService>(manager);
    ASSERT_TRUE(enumeration && status);
    window->cameraSelector()->setEnumerationService(enumeration);
    CLiveCameraController* controller = connectCameraPool(window.get(), &menus, &selector, &log, manager);
    ASSERT_TRUE(controller);
    window->show();

    QSignalSpy scans(enumeration.data(), &CameraPool::CCameraEnumerationService::scanFinished);
    ASSERT_TRUE(scans.wait(10000)) << "the first scan";
    CEmulator camera;
    ASSERT_TRUE(camera.start({"--address", address, "--serial", serial, "--width", "640", "--height", "480",
                              "--fps", "20"}))
        << qPrintable(camera.output());

    QTreeView* list = window->cameraSelector()->view();
    QModelIndex row;
    ASSERT_TRUE(waitFor(
        [&] {
            row = findRow(list->model(), serial);
            if (!row.isValid() && scans.count() > 0) {
                scans.clear();
                window->refreshCamerasAction()->trigger();
            }
            return row.isValid();
        },
        15000))
        << "View > Refresh cameras lists the new camera";

    list->setCurrentIndex(row);
    ASSERT_TRUE(status->currentDevice());
    EXPECT_TRUE(status->currentDevice()->displayName().contains(serial)) << "the selection is the pool's current";

    ASSERT_TRUE(controller->startAction()->isEnabled());
    controller->startAction()->trigger();
    auto* view = window->findChild<CameraPool::CLiveImageView*>(QStringLiteral("LiveImageView"));
    ASSERT_TRUE(view);
    ASSERT_TRUE(waitFor([&] { return !view->currentImage().isNull(); }, 10000)) << "no frame reached the live view";
    EXPECT_EQ(view->currentImage().size(), QSize(640, 480));
    EXPECT_TRUE(view->isVisible());
    EXPECT_TRUE(controller->stopAction()->isEnabled());

    auto* frameRate = window->findChild<QLabel*>(QStringLiteral("FrameRateLabel"));
    ASSERT_TRUE(frameRate);
    EXPECT_TRUE(waitFor([&] { return frameRate->text().contains(QLatin1String("fps")); }, 5000));
    EXPECT_TRUE(frameRate->text().contains(serial)) << qPrintable(frameRate->text());
    EXPECT_GT(view->framesPerSecond(), 0.0);

    controller->stopAction()->trigger();
    ASSERT_TRUE(waitFor([&] { return !view->camera(); }, 5000));
    EXPECT_FALSE(status->isAnyCameraGrabbing());
    EXPECT_TRUE(enumeration->openCameras().isEmpty()) << "stopping the viewer's own grab closes the camera";
    EXPECT_FALSE(view->isVisible());
}
