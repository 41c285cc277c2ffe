#include "CEmulatedCamera.h"

#include "bandwidthcameraconfiguredialog.h"
#include "bandwidthmeasuringcameragige.h"

#include <camerapool/CameraPoolServices.h>

#include <Core/Logging/Logging.h>

#include <host/fakes/WaitUntil.h>

#include <Utilities/FeatureTreeWidget.h>

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTreeView>
#include <QTest>

#include <unistd.h>

#include <atomic>
#include <functional>
#include <memory>

using namespace Plugin::BandwidthManager;

namespace {

constexpr double kFps = 25.0;

// Three emulated cameras on loopback addresses of this run: a steady one, one
// that drops packets without resend, and one that the test kills.
class MeasuringCameraOnEmulator : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
#ifdef GIGE_EMULATOR_PATH
        Core::Logging::setStderrEnabled(false);
        const int pid = int(::getpid());
        const QString net = QStringLiteral("127.%1.%2.").arg(200 + pid % 50).arg((pid / 50) % 250);
        const QString tag = QString::number(pid % 100000);
        const QStringList small{"--width", "320", "--height", "240", "--fps", QString::number(kFps)};
        s_started = s_steady.start(GIGE_EMULATOR_PATH, net + "2", "MCS" + tag, small)
                    && s_lossy.start(GIGE_EMULATOR_PATH, net + "3", "MCL" + tag,
                                     small + QStringList{"--loss-ratio", "0.002", "--no-resend"})
                    && s_victim.start(GIGE_EMULATOR_PATH, net + "4", "MCK" + tag, small);
        s_services = new CameraPool::SCameraPoolServices(CameraPool::createCameraPoolServices({false, 1000}));
        s_discovered = s_started && HostFakes::waitUntil([] { return find(s_steady) && find(s_lossy) && find(s_victim); }, 20000);
#endif
    }

    static void TearDownTestSuite()
    {
        delete s_services;
        s_services = nullptr;
        for (CEmulatedCamera* camera : {&s_steady, &s_lossy, &s_victim})
            camera->kill();
        Core::Logging::setStderrEnabled(true);
    }

    void SetUp() override
    {
#ifndef GIGE_EMULATOR_PATH
        GTEST_SKIP() << "gige-emulator is not built";
#endif
        ASSERT_TRUE(s_started) << s_steady.output().toStdString() << s_lossy.output().toStdString();
        ASSERT_TRUE(s_discovered) << "the camera backend did not find the emulated cameras";
    }

    static Core::CameraPoolComponents::CameraInfoPtr find(const CEmulatedCamera& camera)
    {
        for (const auto& info : s_services->enumeration->cameras()) {
            if (info->displayName().contains(camera.serial()) || info->key().contains(camera.serial()))
                return info;
        }
        return {};
    }

    static std::unique_ptr<CBandwidthMeasuringCameraGigE> measure(const CEmulatedCamera& camera)
    {
        const auto info = find(camera);
        auto measuring = std::make_unique<CBandwidthMeasuringCameraGigE>(
            s_services->parameters->parameterCollection(info), info, s_services->status, s_services->control);
        if (!measuring->openCamera())
            return {};
        measuring->initParameters();
        return measuring;
    }

    static CEmulatedCamera s_steady;
    static CEmulatedCamera s_lossy;
    static CEmulatedCamera s_victim;
    static bool s_started;
    static bool s_discovered;
    static CameraPool::SCameraPoolServices* s_services;
};

CEmulatedCamera MeasuringCameraOnEmulator::s_steady;
CEmulatedCamera MeasuringCameraOnEmulator::s_lossy;
CEmulatedCamera MeasuringCameraOnEmulator::s_victim;
bool MeasuringCameraOnEmulator::s_started = false;
bool MeasuringCameraOnEmulator::s_discovered = false;
CameraPool::SCameraPoolServices* MeasuringCameraOnEmulator::s_services = nullptr;

// The "..." button's dialog shows the camera's features, category by category.
TEST_F(MeasuringCameraOnEmulator, configurationDialogListsTheFeaturesOfTheCamera)
{
    const auto info = find(s_steady);
    BandwidthCameraConfigureDialog dialog(nullptr, s_services->parameters->parameterCollection(info), info, 2);
    const QAbstractItemModel* model = dialog.featureTree()->findChild<QTreeView*>()->model();
    ASSERT_GT(model->rowCount(), 0) << "no category";
    QStringList shown;
    std::function<void(const QModelIndex&)> walk = [&](const QModelIndex& parent) {
        for (int row = 0; row < model->rowCount(parent); ++row) {
            shown << model->index(row, 0, parent).data().toString();
            walk(model->index(row, 0, parent));
        }
    };
    walk(QModelIndex());
    for (const char* feature : {"Width", "PixelFormat", "GevSCPD", "AcquisitionFrameRate"})
        EXPECT_TRUE(shown.contains(QString::fromLatin1(feature))) << feature << " in " << shown.join(", ").toStdString();
}

TEST_F(MeasuringCameraOnEmulator, countsAtTheFrameRateAndPayloadOfTheCamera)
{
    const auto measuring = measure(s_steady);
    ASSERT_TRUE(measuring);
    const double payload = double(measuring->getParameters()->getIntegerParameter("PayloadSize")->getValue());
    ASSERT_GT(payload, 0);
    const qint64 delayBefore = measuring->getParameters()->getIntegerParameter("GevSCPD")->getValue();
    EXPECT_GT(measuring->getMaximumThroughput(), 0);
    EXPECT_EQ(measuring->getParameters()->getIntegerParameter("GevSCPD")->getValue(), delayBefore);
    EXPECT_NEAR(double(measuring->getSample().bandwidth), payload * kFps, payload * kFps * 0.05);

    measuring->startMeasuring();
    ASSERT_TRUE(measuring->isMeasuring());
    ASSERT_TRUE(HostFakes::waitUntil([&] { return measuring->getSample().images > 0; }, 10000));
    // The throughput probe's write and restore of GevSCPD are announced late on a
    // busy machine; their notice resets the fps statistic once, on a sample.
    QTest::qWait(500);
    measuring->getSample();
    measuring->resetStatistics();
    QElapsedTimer timer;
    timer.start();
    QTest::qWait(2000);
    const SBandwidthSample sample = measuring->getSample();
    const double expectedImages = kFps * double(timer.elapsed()) / 1000.0;
    measuring->stopMeasuring();

    EXPECT_EQ(sample.errors, 0u);
    EXPECT_NEAR(double(sample.images), expectedImages, expectedImages * 0.05);
    EXPECT_NEAR(sample.fpsReceived, kFps, kFps * 0.05);
    EXPECT_NEAR(double(sample.payloadReceived), payload * kFps, payload * kFps * 0.05);
    EXPECT_NEAR(sample.fpsSent, kFps, kFps * 0.05);
    EXPECT_TRUE(sample.timestamp.isValid());
}

// Packets lost on the way fail frames; with one buffer, the frames that come
// while a failed one waits out its retention find none. Each frame the camera
// sent counts once: good, failed, or lost (and a lost one in both columns).
TEST_F(MeasuringCameraOnEmulator, everyFrameSentCountsOnceUnderLossAndUnderrun)
{
    const auto measuring = measure(s_lossy);
    ASSERT_TRUE(measuring);
    const auto parameters = measuring->getParameters();
    const auto buffers = parameters->getIntegerParameter(QStringLiteral("@StreamGrabber0/MaxNumBuffer"));
    const auto framesSent = parameters->getIntegerParameter(QStringLiteral("EmulatorFramesSent"));
    ASSERT_TRUE(buffers && framesSent);
    const auto camera = s_services->control->acquireCamera(measuring->getCameraInfo());
    ASSERT_TRUE(camera);
    std::atomic<quint64> succeeded{0};
    std::atomic<quint64> failed{0};
    QObject::connect(
        camera.data(), &Plugin::CameraPool::ICamera::cameraImageGrabbed, camera.data(),
        [&](const auto&, const Zenta::CGrabResultPtr& result) { ++(result->GrabSucceeded() ? succeeded : failed); },
        Qt::DirectConnection);

    const qint64 buffersBefore = buffers->getValue();
    buffers->setValue(1, ParameterCollection::CorrectionNone);
    const qint64 sentBefore = framesSent->getValue();
    measuring->startMeasuring();
    const bool sawLoss = HostFakes::waitUntil(
        [&] { return failed >= 5 && succeeded >= 5 && measuring->getSample().errors > failed; }, 15000);
    // Read before the stop as well: a stop that takes long on a busy machine
    // lets frames go out that nobody was counting any more.
    const qint64 sentAtStop = framesSent->getValue() - sentBefore;
    measuring->stopMeasuring();
    const qint64 sent = framesSent->getValue() - sentBefore;
    buffers->setValue(buffersBefore, ParameterCollection::CorrectionNone);
    QObject::disconnect(camera.data(), &Plugin::CameraPool::ICamera::cameraImageGrabbed, camera.data(), nullptr);
    s_services->control->releaseCamera(camera);
    ASSERT_TRUE(sawLoss) << succeeded << " good, " << failed << " failed";

    const SBandwidthSample sample = measuring->getSample();
    ASSERT_GE(sample.errors, failed.load());
    const quint64 lost = sample.errors - failed;
    EXPECT_EQ(sample.images, succeeded + lost);
    const quint64 counted = succeeded + failed + lost;
    EXPECT_LE(counted, quint64(sent)) << succeeded << " good, " << failed << " failed, " << lost << " lost";
    // The frames on their way when the grab stopped are nowhere.
    EXPECT_GE(counted + 3, quint64(sentAtStop)) << succeeded << " good, " << failed << " failed, " << lost << " lost";
}

TEST_F(MeasuringCameraOnEmulator, killedCameraIsReportedLostAndStopsMeasuring)
{
    const auto measuring = measure(s_victim);
    ASSERT_TRUE(measuring);
    measuring->startMeasuring();
    ASSERT_TRUE(HostFakes::waitUntil([&] { return measuring->getSample().images > 0; }, 10000));
    s_victim.kill();

    ASSERT_TRUE(HostFakes::waitUntil([&] { return measuring->isConnectionLost(); }, 30000));
    EXPECT_FALSE(measuring->isMeasuring());
    SBandwidthSample sample;
    try {
        sample = measuring->getSample();
    } catch (const std::exception& e) {
        FAIL() << "the sample after the loss raised: " << e.what();
    }
    EXPECT_TRUE(sample.connectionLost);
    QTest::qWait(300);
    quint64 later = 0;
    try {
        later = measuring->getSample().images;
    } catch (const std::exception&) {
        later = sample.images;
    }
    EXPECT_EQ(later, sample.images);
}

} // namespace
