#include "CCameraProcess.h"

#include "bandwidthdialog.h"
#include "bandwidthtreewidget.h"
#include "flattree.h"

#include <camerapool/CameraPoolServices.h>
#include <host/fakes/CModalResponder.h>
#include <host/fakes/WaitUntil.h>

#include <Core/Logging/Logging.h>
#include <Core/Plugin/ServiceLookup.h>
#include <Plugin/ParameterCollectionPool/IParameterService.h>

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>

#include <unistd.h>

#include <memory>

namespace {

constexpr double FramesPerSecond = 20.0;

struct SCamera
{
    QString serial;
    QString address;
    CCameraProcess process;
    QString key;
};

// Two emulated cameras on loopback addresses of this run, so that other
// runs' cameras on the same machine do not meet ours.
class AnalysisEndToEnd : public ::testing::Test
{
protected:
    void SetUp() override
    {
#ifndef GIGE_EMULATOR_PATH
        GTEST_SKIP() << "gige-emulator is not built: two cameras do not fit on loopback with Aravis' fake camera";
#else
        const int pid = int(::getpid());
        for (int index = 0; index < 2; ++index) {
            auto& camera = cameras[index];
            camera.serial = QStringLiteral("BWT%1%2").arg(pid % 100000).arg(QChar('A' + index));
            camera.address = QStringLiteral("127.%1.%2.%3").arg(100 + pid % 100).arg((pid / 100) % 250).arg(2 + index);
            ASSERT_TRUE(startEmulator(camera)) << "emulator on " << camera.address.toStdString();
        }
        Core::Logging::setStderrEnabled(qEnvironmentVariableIsSet("BWM_E2E_LOG"));
        CameraPool::SCameraPoolOptions options;
        options.rescanIntervalMs = 1000;
        CameraPool::registerCameraPoolServices(manager, &servicesParent, options);
#endif
    }
    void TearDown() override { Core::Logging::setStderrEnabled(true); }

    static bool startEmulator(SCamera& camera)
    {
#ifdef GIGE_EMULATOR_PATH
        return camera.process.start({GIGE_EMULATOR_PATH, "--address", camera.address, "--serial", camera.serial,
                                     "--width", "640", "--height", "480", "--packet-size", "8192", "--fps",
                                     QString::number(FramesPerSecond)});
#else
        Q_UNUSED(camera);
        return false;
#endif
    }

    bool discovered()
    {
        const auto enumeration = Core::Plugin::getService<Plugin::CameraPool::ICameraEnumerationService>(manager);
        if (!enumeration)
            return false;
        for (const auto& layer : enumeration->transportLayers()) {
            for (const auto& info : layer->cameras()) {
                for (SCamera& camera : cameras) {
                    if (info->displayName().contains(camera.serial))
                        camera.key = info->key();
                }
            }
        }
        return !cameras[0].key.isEmpty() && !cameras[1].key.isEmpty();
    }

    const FlatTreeItem* item(const SCamera& camera) const
    {
        const FlatTreeItemID id = tree->model()->findByKey(camera.key);
        return id == 0 ? nullptr : &tree->model()->item(id);
    }
    double number(const SCamera& camera, int column) const
    {
        bool ok = false;
        const double value = tree->locale().toDouble(item(camera)->row->text(column), &ok);
        return ok ? value : -1.0;
    }
    qint64 payloadSize(const SCamera& camera) const
    {
        const auto parameters = Core::Plugin::getService<Plugin::ParameterCollectionPool::IParameterService>(manager);
        const auto collection = parameters->parameterCollection(item(camera)->cameraInfo);
        const auto node = collection ? collection->getIntegerParameter(QStringLiteral("PayloadSize")) : nullptr;
        return node ? node->getValue() : -1;
    }

    // Where a count of errors came from, for the failure message.
    std::string streamStatistics(const SCamera& camera) const
    {
        const auto parameters = Core::Plugin::getService<Plugin::ParameterCollectionPool::IParameterService>(manager);
        const auto collection = parameters->parameterCollection(item(camera)->cameraInfo);
        std::string text = camera.serial.toStdString() + ":";
        for (const char* name : {"Failed_Buffer", "Missed_Frame", "Failed_Packet", "Resend_Request", "Resend_Packet",
                                 "Buffer_Underrun"}) {
            const auto node = collection ? collection->getIntegerParameter(
                                  QStringLiteral("@StreamGrabber0/Statistic_%1_Count").arg(QLatin1String(name)))
                                         : nullptr;
            text += std::string(" ") + name + "=" + (node ? std::to_string(node->getValue()) : "?");
        }
        return text;
    }

    Core::Plugin::PluginManagerPtr manager = Core::Plugin::PluginManagerPtr::create();
    SCamera cameras[2];
    BandwidthTreeWidget* tree = nullptr;
    // Destroyed first: the backend closes its cameras before their processes are killed.
    QObject servicesParent;
};

TEST_F(AnalysisEndToEnd, measuresTwoCamerasAndLosesOneAlone)
{
    ASSERT_TRUE(HostFakes::waitUntil([&] { return discovered(); }, 20000));

    // Declines the GigE offer, and goes before it takes the modal dialog itself for a box.
    auto responder = std::make_unique<HostFakes::CModalResponder>();
    BandwidthDialog dialog(manager.toWeakRef(), nullptr, Qt::WindowFlags(), nullptr);
    responder.reset();
    dialog.show();
    tree = dialog.findChild<BandwidthTreeWidget*>(QStringLiteral("treeBandwidth"));
    ASSERT_NE(tree, nullptr);
    for (const SCamera& camera : cameras) {
        ASSERT_NE(item(camera), nullptr) << camera.key.toStdString();
        item(camera)->row->setCheckState(0, Qt::Checked);
        ASSERT_NE(item(camera)->measuringCamera, nullptr) << camera.key.toStdString() << ": "
                                                           << item(camera)->row->toolTip(0).toStdString();
    }
    QPushButton* start = dialog.findChild<QPushButton*>(QStringLiteral("btnStart"));
    ASSERT_TRUE(start->isEnabled());
    start->click();
    QTest::qWait(2000);

    for (const SCamera& camera : cameras) {
        SCOPED_TRACE(camera.serial.toStdString());
        const double sent = number(camera, 4);
        const double received = number(camera, 5);
        const double payloadMBs = number(camera, 3);
        const double expectedMBs = double(payloadSize(camera)) * sent / 1e6;
        EXPECT_NEAR(sent, FramesPerSecond, FramesPerSecond * 0.05);
        EXPECT_NEAR(received, sent, sent * 0.05);
        EXPECT_NEAR(payloadMBs, expectedMBs, expectedMBs * 0.05);
        EXPECT_EQ(item(camera)->row->text(7), QStringLiteral("0")) << streamStatistics(camera);
    }
    const QByteArray screenshot = qgetenv("BWM_SCREENSHOT");
    if (!screenshot.isEmpty()) {
        EXPECT_TRUE(dialog.grab().save(QString::fromLocal8Bit(screenshot)));
    }

    // What the lost camera's row says when the loss is reported: the pool may
    // drop the camera, and a rebuild its row, within the next moment.
    QStringList lossShown;
    QObject::connect(tree, &BandwidthTreeWidget::errorOccurred, tree, [&](const QString& key, const QString& text, const QDateTime&) {
        const FlatTreeItem* row = key == cameras[0].key ? item(cameras[0]) : nullptr;
        if (row && row->row && !row->row->icon(0).isNull())
            lossShown << text + " / " + row->row->toolTip(0);
    });
    cameras[0].process.kill();
    // Aravis notices the silent camera by its heartbeat; then the row is no longer measured.
    ASSERT_TRUE(HostFakes::waitUntil([&] { return !item(cameras[0]) || !item(cameras[0])->measuringCamera; }, 30000));
    EXPECT_EQ(lossShown, QStringList{QStringLiteral("Error accessing camera! (Connection lost) / "
                                                    "Error accessing camera! (Connection lost)")});
    ASSERT_NE(item(cameras[1]), nullptr);
    ASSERT_NE(item(cameras[1])->measuringCamera, nullptr);
    EXPECT_EQ(item(cameras[1])->row->checkState(0), Qt::Checked);
    const double imagesBefore = number(cameras[1], 6);
    // Two seconds: the rate is an estimate over the last second, which is then
    // clear of the other camera's teardown.
    QTest::qWait(2000);
    EXPECT_GT(number(cameras[1], 6), imagesBefore + FramesPerSecond);
    EXPECT_NEAR(number(cameras[1], 5), FramesPerSecond, FramesPerSecond * 0.08);
    EXPECT_EQ(item(cameras[1])->row->text(7), QStringLiteral("0")) << streamStatistics(cameras[1]);

    // Back on the same address: once the pool has dropped it and found it
    // again, it is measured again without a tick.
    ASSERT_TRUE(HostFakes::waitUntil([&] { return !item(cameras[0]); }, 30000)) << "the pool keeps the dead camera";
    ASSERT_TRUE(startEmulator(cameras[0]));
    ASSERT_TRUE(HostFakes::waitUntil([&] { return item(cameras[0]) && item(cameras[0])->measuringCamera; }, 30000));
    EXPECT_EQ(item(cameras[0])->row->checkState(0), Qt::Checked);
    EXPECT_TRUE(HostFakes::waitUntil([&] { return number(cameras[0], 6) > 0; }, 5000)) << "images after the return";
    dialog.done(0);
}

} // namespace
