#include "bandwidthmeasuringcamera.h"

#include <host/fakes/CFakeCameraControlService.h>
#include <host/fakes/CFakeCameraInfo.h>
#include <host/fakes/CFakeCameraStatusService.h>
#include <parameters/fakes/CScriptedParameterCollection.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>

using namespace Plugin::BandwidthManager;
using namespace HostFakes;
using namespace ParameterFakes;

namespace {

constexpr int kGrabs = 100000;
constexpr size_t kPayload = 4096;

// Every seventh grab fails.
void grabAtFullSpeed(CFakeCamera& camera, int count, std::atomic<bool>& done)
{
    for (int i = 0; i < count; ++i)
        camera.grab(i % 7 != 0, kPayload);
    done = true;
}

quint64 failuresIn(int count)
{
    return quint64((count + 6) / 7);
}

class MeasuringCameraThreads : public ::testing::Test
{
protected:
    void SetUp() override
    {
        parameters->addInteger("@StreamGrabber0/Statistic_Buffer_Underrun_Count", 0, 0, 1 << 30, 1, "RO");
        parameters->addInteger("PayloadSize", kPayload, 0, 1 << 20, 1, "RO");
        parameters->addFloat("ResultingFrameRate", 100.0, 0, 1000, "RO");
        control->setAlreadyOpen(key);
        status->setGrabbing(key, true);
        ASSERT_TRUE(measuring.openCamera());
        camera = control->camera(key);
        measuring.initParameters();
        measuring.startMeasuring();
    }

    QSharedPointer<CScriptedParameterCollection> parameters = QSharedPointer<CScriptedParameterCollection>::create();
    const QString key = QStringLiteral("U3V:Cam 1");
    Core::CameraPoolComponents::CameraInfoPtr info = CFakeCameraInfo::create("Cam 1", key, "U3V");
    QSharedPointer<CFakeCameraStatusService> status = QSharedPointer<CFakeCameraStatusService>::create();
    QSharedPointer<CFakeCameraControlService> control = QSharedPointer<CFakeCameraControlService>::create();
    QSharedPointer<CFakeCamera> camera;
    CBandwidthMeasuringCamera measuring{parameters, info, status, control};
};

TEST_F(MeasuringCameraThreads, samplesDuringGrabsAndEndsWithExactCounts)
{
    std::atomic<bool> done{false};
    std::thread grabber(grabAtFullSpeed, std::ref(*camera), kGrabs, std::ref(done));
    quint64 lastImages = 0;
    quint64 lastErrors = 0;
    int samples = 0;
    while (!done) {
        const SBandwidthSample sample = measuring.getSample();
        EXPECT_GE(sample.images, lastImages);
        EXPECT_GE(sample.errors, lastErrors);
        EXPECT_LE(sample.images + sample.errors, quint64(kGrabs));
        if (sample.fpsReceived > 0) { // every image has the same size, torn slots would break this
            EXPECT_NEAR(double(sample.payloadReceived) / sample.fpsReceived, double(kPayload), kPayload * 0.01);
        }
        lastImages = sample.images;
        lastErrors = sample.errors;
        ++samples;
    }
    grabber.join();
    const SBandwidthSample sample = measuring.getSample();
    EXPECT_EQ(sample.errors, failuresIn(kGrabs));
    EXPECT_EQ(sample.images, kGrabs - failuresIn(kGrabs));
    EXPECT_GT(samples, 0);
}

TEST_F(MeasuringCameraThreads, resetsWhileGrabbingLoseNothingAfterwards)
{
    std::atomic<bool> done{false};
    std::thread grabber(grabAtFullSpeed, std::ref(*camera), kGrabs / 2, std::ref(done));
    while (!done) {
        measuring.resetStatistics();
        measuring.getSample();
    }
    grabber.join();
    measuring.resetStatistics();
    done = false;
    std::thread second(grabAtFullSpeed, std::ref(*camera), 700, std::ref(done));
    second.join();
    const SBandwidthSample sample = measuring.getSample();
    EXPECT_EQ(sample.images, 600u);
    EXPECT_EQ(sample.errors, 100u);
    EXPECT_TRUE(sample.timestamp.isValid());
}

} // namespace
