#include "bandwidthmeasuringcamera.h"

#include <host/fakes/CFakeCameraControlService.h>
#include <host/fakes/CFakeCameraInfo.h>
#include <host/fakes/CFakeCameraStatusService.h>
#include <parameters/fakes/CScriptedParameterCollection.h>

#include <gtest/gtest.h>

#include <memory>

using namespace Plugin::BandwidthManager;
using namespace HostFakes;
using namespace ParameterFakes;

namespace {

const QString kUnderrun = QStringLiteral("@StreamGrabber0/Statistic_Buffer_Underrun_Count");
const QString kMissed = QStringLiteral("@StreamGrabber0/Statistic_Missed_Frame_Count");

class MeasuringCameraTest : public ::testing::Test
{
protected:
    void SetUp() override { control->setAlreadyOpen(key); }

    CBandwidthMeasuringCamera& open()
    {
        measuring = std::make_unique<CBandwidthMeasuringCamera>(parameters, info, status, control);
        EXPECT_TRUE(measuring->openCamera());
        camera = control->camera(key);
        measuring->initParameters();
        return *measuring;
    }

    // '+' a good image of 1000 bytes, '-' a failed grab.
    void grab(const char* pattern)
    {
        for (const char* p = pattern; *p; ++p)
            camera->grab(*p == '+', 1000);
    }

    QSharedPointer<CScriptedParameterCollection> parameters = QSharedPointer<CScriptedParameterCollection>::create();
    const QString key = QStringLiteral("U3V:Cam 1");
    Core::CameraPoolComponents::CameraInfoPtr info = CFakeCameraInfo::create("Cam 1", key, "U3V");
    QSharedPointer<CFakeCameraStatusService> status = QSharedPointer<CFakeCameraStatusService>::create();
    QSharedPointer<CFakeCameraControlService> control = QSharedPointer<CFakeCameraControlService>::create();
    QSharedPointer<CFakeCamera> camera;
    std::unique_ptr<CBandwidthMeasuringCamera> measuring;
};

struct SCountingCase
{
    const char* scenario;
    QStringList counterNodes;     // stream grabber counters the camera has, each starting at 0
    QString counterThatMoves;     // the one whose readings follow
    const char* grabs;
    QList<qint64> readings;       // one sample taken after each
    quint64 images;
    quint64 errors;
};

class MeasuringCameraCounting : public MeasuringCameraTest, public ::testing::WithParamInterface<SCountingCase>
{
};

TEST_P(MeasuringCameraCounting, countsImagesAndErrors)
{
    const SCountingCase& c = GetParam();
    for (const QString& name : c.counterNodes)
        parameters->addInteger(name, 0, 0, 1 << 30, 1, "RO");
    open();
    grab(c.grabs);
    SBandwidthSample sample = measuring->getSample();
    for (qint64 reading : c.readings) {
        parameters->setValue(c.counterThatMoves, reading);
        sample = measuring->getSample();
    }
    EXPECT_EQ(sample.images, c.images);
    EXPECT_EQ(sample.errors, c.errors);
}

INSTANTIATE_TEST_SUITE_P(
    Grabs, MeasuringCameraCounting,
    ::testing::Values(
        SCountingCase{"failed grab is an error and not an image", {kUnderrun}, kUnderrun, "+-+", {}, 2, 1},
        SCountingCase{"frame lost by the stream grabber counts in both", {kUnderrun}, kUnderrun, "+", {3}, 4, 3},
        SCountingCase{"counter that fell adds nothing and becomes the base", {kUnderrun}, kUnderrun, "", {5, 2, 4}, 7, 7},
        SCountingCase{"missed frame counter when underrun counter is missing", {kMissed}, kMissed, "++", {2}, 4, 2},
        SCountingCase{"underrun counter preferred over missed frame counter", {kUnderrun, kMissed}, kMissed, "+", {9}, 1, 0},
        SCountingCase{"without counters only failed grabs are errors", {}, {}, "+--", {}, 1, 2}),
    [](const auto& info) { return QString(info.param.scenario).replace(' ', '_').toStdString(); });

TEST_F(MeasuringCameraTest, notImplementedUnderrunCounterFallsBackToMissedFrames)
{
    parameters->addNotImplemented(kUnderrun, ParameterCollection::EParameterKind::Integer);
    parameters->addInteger(kMissed, 0, 0, 100, 1, "RO");
    open();
    parameters->setValue(kMissed, 3);
    EXPECT_EQ(measuring->getSample().errors, 3u);
}

TEST_F(MeasuringCameraTest, idleCameraEstimatesBandwidthAndKeepsItWhileGrabbing)
{
    parameters->addInteger("PayloadSize", 4611686018427387904LL, 0, 1LL << 62, 1, "RO");
    parameters->addFloat("ResultingFrameRate", 3.0, 0, 1000, "RO");
    parameters->addInteger("DeviceLinkThroughputLimit", 1000, 0, 2000);
    open();
    SBandwidthSample sample = measuring->getSample();
    EXPECT_EQ(sample.bandwidth, 13835058055282163712ULL); // 3 * 2^62 needs the top bit
    EXPECT_DOUBLE_EQ(sample.fpsSent, 3.0);
    EXPECT_EQ(sample.deviceLinkThroughputLimit, -1);
    EXPECT_DOUBLE_EQ(sample.fpsReceived, -1.0);

    parameters->setValue("PayloadSize", 100);
    status->setGrabbing(key, true);
    sample = measuring->getSample();
    EXPECT_EQ(sample.bandwidth, 13835058055282163712ULL);
    EXPECT_EQ(sample.deviceLinkThroughputLimit, 1000);
}

struct SConnectionCase
{
    const char* scenario;
    bool hasPayload;
    double expectedFpsSent;
};

class MeasuringCameraLimitSignal : public MeasuringCameraTest, public ::testing::WithParamInterface<SConnectionCase>
{
};

// A limit change while grabbing makes the next sample read the frame rate again,
// but only if initParameters got far enough to connect the signals.
TEST_P(MeasuringCameraLimitSignal, limitChangeRereadsFrameRate)
{
    if (GetParam().hasPayload)
        parameters->addInteger("PayloadSize", 1000, 0, 1 << 20, 1, "RO");
    parameters->addFloat("ResultingFrameRate", 10.0, 0, 1000, "RO");
    parameters->addInteger("DeviceLinkThroughputLimit", 1000, 0, 2000);
    open();
    measuring->getSample();
    measuring->startMeasuring();
    status->setGrabbing(key, true);
    measuring->getSample();
    parameters->setValue("ResultingFrameRate", 20.0);
    measuring->getSample();
    parameters->emitChanged("DeviceLinkThroughputLimit");
    const SBandwidthSample sample = measuring->getSample();
    EXPECT_DOUBLE_EQ(sample.fpsSent, GetParam().expectedFpsSent);
    EXPECT_EQ(sample.bandwidth, GetParam().hasPayload ? 10000u : 0u);
}

class MeasuringCameraTransportLayer : public MeasuringCameraTest, public ::testing::WithParamInterface<const char*>
{
};

// After an optimisation the camera sends at another rate: "fps Sent" must follow.
TEST_P(MeasuringCameraTransportLayer, changeRereadsFrameRateWhoeverMadeIt)
{
    parameters->addFloat("ResultingFrameRate", 30.0, 0, 1000, "RO");
    parameters->addInteger(GetParam(), 0, 0, 1 << 30);
    open();
    measuring->startMeasuring();
    status->setGrabbing(key, true);
    EXPECT_DOUBLE_EQ(measuring->getSample().fpsSent, 30.0);
    parameters->setValue("ResultingFrameRate", 16.0);
    EXPECT_DOUBLE_EQ(measuring->getSample().fpsSent, 30.0) << "read once per change only";
    parameters->emitChanged(GetParam());
    EXPECT_DOUBLE_EQ(measuring->getSample().fpsSent, 16.0);
}

INSTANTIATE_TEST_SUITE_P(Signals, MeasuringCameraTransportLayer,
                         ::testing::Values("GevSCPSPacketSize", "GevSCPD", "GevSCFTD"));

INSTANTIATE_TEST_SUITE_P(Signals, MeasuringCameraLimitSignal,
                         ::testing::Values(SConnectionCase{"with_payload_size", true, 20.0},
                                           SConnectionCase{"without_payload_size_nothing_is_connected", false, 10.0}),
                         [](const auto& info) { return std::string(info.param.scenario); });

TEST_F(MeasuringCameraTest, resetClearsCountsAndStampsOnlyWhileGrabbing)
{
    parameters->addInteger(kUnderrun, 4, 0, 100, 1, "RO");
    open();
    grab("++-");
    for (bool grabbing : {true, false}) {
        SCOPED_TRACE(grabbing ? "grabbing" : "idle");
        status->setGrabbing(key, grabbing);
        measuring->resetStatistics();
        const SBandwidthSample sample = measuring->getSample();
        EXPECT_EQ(sample.images, 0u);
        EXPECT_EQ(sample.errors, 0u); // the 4 frames lost before the reset stay forgotten
        EXPECT_DOUBLE_EQ(sample.fpsReceived, -1.0);
        EXPECT_EQ(sample.timestamp.isValid(), grabbing);
    }
    grab("+-");
    EXPECT_EQ(measuring->getSample().images, 1u);
}

struct SFrameRateCase
{
    const char* scenario;
    QList<QPair<QString, QString>> nodes; // name, access mode
    double expected;
};

class MeasuringCameraFrameRate : public MeasuringCameraTest, public ::testing::WithParamInterface<SFrameRateCase>
{
};

TEST_P(MeasuringCameraFrameRate, takesTheFirstNameTheCameraHas)
{
    double value = 10.0;
    for (const auto& node : GetParam().nodes)
        parameters->addFloat(node.first, value++, 0, 1000, node.second);
    open();
    EXPECT_DOUBLE_EQ(measuring->getResultingFrameRate(), GetParam().expected);
    EXPECT_DOUBLE_EQ(measuring->getSample().fpsSent, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, MeasuringCameraFrameRate,
    ::testing::Values(
        SFrameRateCase{"both_present_the_first_wins", {{"ResultingFrameRate", "RO"}, {"ResultingFrameRateAbs", "RO"}}, 10.0},
        SFrameRateCase{"only_the_abs_node", {{"ResultingFrameRateAbs", "RO"}}, 10.0},
        SFrameRateCase{"first_not_implemented", {{"ResultingFrameRate", "NI"}, {"ResultingFrameRateAbs", "RO"}}, 11.0},
        SFrameRateCase{"unreadable_gives_zero", {{"ResultingFrameRate", "NA"}}, 0.0},
        SFrameRateCase{"neither", {}, 0.0}),
    [](const auto& info) { return std::string(info.param.scenario); });

struct STriggerCase
{
    const char* scenario;
    QString frameStartMode;
    QString frameStartSource;
    EScriptedAccess failingAccess; // of TriggerMode, Query for none
    bool enabled;
    bool software;
};

class MeasuringCameraTrigger : public MeasuringCameraTest, public ::testing::WithParamInterface<STriggerCase>
{
};

// "LineStart" is current and has no trigger mode; the walk must put it back.
TEST_P(MeasuringCameraTrigger, walksSelectorAndPutsItBack)
{
    const STriggerCase& c = GetParam();
    parameters->addEnumeration("TriggerSelector", "LineStart", {"AcquisitionStart", "FrameStart", "LineStart"});
    parameters->addEnumeration("TriggerMode", "Off", {"Off", "On"});
    parameters->addEnumeration("TriggerSource", "Line1", {"Line1", "Software"});
    auto atFrameStart = [this] { return parameters->value("TriggerSelector").toString() == "FrameStart"; };
    parameters->setValueLaw("TriggerMode", [=] { return atFrameStart() ? c.frameStartMode : QString("Off"); });
    parameters->setValueLaw("TriggerSource", [=] { return atFrameStart() ? c.frameStartSource : QString("Line1"); });
    parameters->setAccessLaw("TriggerMode", [this] {
        return parameters->value("TriggerSelector").toString() == "LineStart" ? QString("NA") : QString("RW");
    });
    open();
    for (int walk = 0; walk < 2; ++walk) {
        if (c.failingAccess != EScriptedAccess::Query)
            parameters->failNext("TriggerMode", c.failingAccess);
        const bool result = walk == 0 ? measuring->isTriggerEnabled() : measuring->isSoftwareTriggered();
        EXPECT_EQ(result, walk == 0 ? c.enabled : c.software) << (walk == 0 ? "enabled" : "software");
        EXPECT_EQ(parameters->value("TriggerSelector").toString(), "LineStart");
        EXPECT_EQ(parameters->writtenValues("TriggerSelector").constLast().toString(), "LineStart");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Walks, MeasuringCameraTrigger,
    ::testing::Values(STriggerCase{"software_trigger_on", "On", "Software", EScriptedAccess::Query, true, true},
                      STriggerCase{"hardware_trigger_on", "On", "Line1", EScriptedAccess::Query, true, false},
                      STriggerCase{"no_trigger_on", "Off", "Software", EScriptedAccess::Query, false, false},
                      STriggerCase{"mode_read_raises", "On", "Software", EScriptedAccess::Read, false, false}),
    [](const auto& info) { return std::string(info.param.scenario); });

TEST_F(MeasuringCameraTest, selectorWriteThatRaisesStillEndsWithSelectorBack)
{
    parameters->addEnumeration("TriggerSelector", "LineStart", {"FrameStart", "LineStart"});
    parameters->addEnumeration("TriggerMode", "On", {"Off", "On"});
    open();
    parameters->failNext("TriggerSelector", EScriptedAccess::Write);
    EXPECT_FALSE(measuring->isTriggerEnabled());
    EXPECT_EQ(parameters->writtenValues("TriggerSelector"), QVariantList{"LineStart"});
}

TEST_F(MeasuringCameraTest, connectionLossStopsMeasuringAndIsReported)
{
    parameters->addFloat("ResultingFrameRate", 10.0, 0, 100, "RO");
    open();
    measuring->startMeasuring();
    grab("++");
    parameters->failNext("ResultingFrameRate", EScriptedAccess::Read, 100); // a lost camera raises everywhere
    EXPECT_TRUE(measuring->isMeasuring());
    camera->loseConnection();
    EXPECT_FALSE(measuring->isMeasuring());
    const SBandwidthSample sample = measuring->getSample();
    EXPECT_TRUE(sample.connectionLost);
    EXPECT_EQ(sample.images, 2u);
    EXPECT_TRUE(measuring->isConnectionLost());
}

TEST_F(MeasuringCameraTest, givesBackTheCameraTheWayItGotIt)
{
    control = QSharedPointer<CFakeCameraControlService>::create();
    open();
    measuring.reset();
    EXPECT_EQ(control->calls(), QStringList({"acquire:" + key, "open:" + key, "close:" + key}));

    control->setAlreadyOpen(key);
    open();
    measuring->releaseCamera();
    camera->grab(true, 1);
    EXPECT_EQ(measuring->getSample().images, 0u);
    measuring.reset();
    EXPECT_EQ(control->calls().mid(3), QStringList({"acquire:" + key, "release:" + key}));
}

TEST_F(MeasuringCameraTest, noCameraToBeHad)
{
    control = QSharedPointer<CFakeCameraControlService>::create();
    control->setOpenFails(key);
    measuring = std::make_unique<CBandwidthMeasuringCamera>(parameters, info, status, control);
    EXPECT_FALSE(measuring->openCamera());
    measuring->startMeasuring();
    EXPECT_FALSE(measuring->isMeasuring());
}

} // namespace
