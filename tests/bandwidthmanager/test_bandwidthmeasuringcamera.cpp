#include "bandwidthmeasuringcameragige.h"

#include <host/fakes/CFakeCameraControlService.h>
#include <host/fakes/CFakeCameraInfo.h>
#include <host/fakes/CFakeCameraStatusService.h>
#include <parameters/fakes/CScriptedParameterCollection.h>

#include <GenICam/GenericException.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>

using namespace Plugin::BandwidthManager;
using namespace HostFakes;
using namespace ParameterFakes;

namespace {

const QString kUnderrun = QStringLiteral("@StreamGrabber0/Statistic_Buffer_Underrun_Count");
const QString kMissed = QStringLiteral("@StreamGrabber0/Statistic_Missed_Frame_Count");

// A camera the host holds open already.
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
    CBandwidthMeasuringCameraGigE& gigE()
    {
        measuring = std::make_unique<CBandwidthMeasuringCameraGigE>(parameters, info, status, control);
        return static_cast<CBandwidthMeasuringCameraGigE&>(*measuring);
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

struct SCountingCase { const char* scenario;
    QStringList counterNodes; /* stream grabber counters the camera has, each starting at 0 */
    QString counterThatMoves; /* the one whose readings follow */ const char* grabs;
    QList<qint64> readings; /* one sample taken after each */ quint64 images; quint64 errors;
    bool underrunNotImplemented = false; };

class MeasuringCameraCounting : public MeasuringCameraTest, public ::testing::WithParamInterface<SCountingCase> {};

TEST_P(MeasuringCameraCounting, countsImagesAndErrors)
{
    const SCountingCase& c = GetParam();
    if (c.underrunNotImplemented)
        parameters->addNotImplemented(kUnderrun, ParameterCollection::EParameterKind::Integer);
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

INSTANTIATE_TEST_SUITE_P(Grabs, MeasuringCameraCounting, ::testing::Values(
        SCountingCase{"failed grab is an error and not an image", {kUnderrun}, kUnderrun, "+-+", {}, 2, 1},
        SCountingCase{"frame lost by the stream grabber counts in both", {kUnderrun}, kUnderrun, "+", {3}, 4, 3},
        SCountingCase{"counter that fell adds nothing and becomes the base", {kUnderrun}, kUnderrun, "", {5, 2, 4}, 7, 7},
        SCountingCase{"missed frame counter when underrun counter is missing", {kMissed}, kMissed, "++", {2}, 4, 2},
        SCountingCase{"missed frame counter when underrun counter is not implemented", {kMissed}, kMissed, "", {3}, 3, 3, true},
        SCountingCase{"underrun counter preferred over missed frame counter", {kUnderrun, kMissed}, kMissed, "+", {9}, 1, 0},
        SCountingCase{"without counters only failed grabs are errors", {}, {}, "+--", {}, 1, 2}),
    [](const auto& info) { return QString(info.param.scenario).replace(' ', '_').toStdString(); });

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

// After a limit change or an optimisation the camera sends at another rate: the
// next sample while grabbing reads "fps Sent" again, once per change. The limit
// is followed only if initParameters got as far (it needs PayloadSize).
TEST_F(MeasuringCameraTest, changedTransportSettingRereadsTheFrameRate)
{
    for (const char* node : {"DeviceLinkThroughputLimit", "GevSCPSPacketSize", "GevSCPD", "GevSCFTD"}) {
        for (const bool payload : {true, false}) {
            SCOPED_TRACE(std::string(node) + (payload ? " with PayloadSize" : " without PayloadSize"));
            parameters = QSharedPointer<CScriptedParameterCollection>::create();
            if (payload)
                parameters->addInteger("PayloadSize", 1000, 0, 1 << 20, 1, "RO");
            parameters->addFloat("ResultingFrameRate", 30.0, 0, 1000, "RO");
            parameters->addInteger(node, 0, 0, 1 << 30);
            open();
            measuring->startMeasuring();
            status->setGrabbing(key, true);
            EXPECT_DOUBLE_EQ(measuring->getSample().fpsSent, 30.0);
            parameters->setValue("ResultingFrameRate", 16.0);
            EXPECT_DOUBLE_EQ(measuring->getSample().fpsSent, 30.0) << "read once per change only";
            parameters->emitChanged(node);
            const bool followed = payload || std::string(node) != "DeviceLinkThroughputLimit";
            EXPECT_DOUBLE_EQ(measuring->getSample().fpsSent, followed ? 16.0 : 30.0);
            status->setGrabbing(key, false);
        }
    }
}

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

TEST_F(MeasuringCameraTest, frameRateComesFromTheFirstNameTheCameraHas)
{
    // Nodes by name and access mode, valued 10, 11, ...
    const struct { QList<QPair<QString, QString>> nodes; double expected; } cases[] = {
        {{{"ResultingFrameRate", "RO"}, {"ResultingFrameRateAbs", "RO"}}, 10.0},
        {{{"ResultingFrameRateAbs", "RO"}}, 10.0},
        {{{"ResultingFrameRate", "NI"}, {"ResultingFrameRateAbs", "RO"}}, 11.0},
        {{{"ResultingFrameRate", "NA"}}, 0.0},
        {{}, 0.0}};
    for (const auto& c : cases) {
        SCOPED_TRACE((c.nodes.size() ? c.nodes[0].first + c.nodes[0].second : QStringLiteral("neither")).toStdString());
        parameters = QSharedPointer<CScriptedParameterCollection>::create();
        double value = 10.0;
        for (const auto& node : c.nodes)
            parameters->addFloat(node.first, value++, 0, 1000, node.second);
        open();
        EXPECT_DOUBLE_EQ(measuring->getResultingFrameRate(), c.expected);
        EXPECT_DOUBLE_EQ(measuring->getSample().fpsSent, c.expected);
    }
}

struct STriggerCase { const char* scenario; QString frameStartMode; QString frameStartSource;
    EScriptedAccess failingAccess; /* of TriggerMode, Query for none */ bool enabled; bool software; };

class MeasuringCameraTrigger : public MeasuringCameraTest, public ::testing::WithParamInterface<STriggerCase> {};

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

INSTANTIATE_TEST_SUITE_P(Walks, MeasuringCameraTrigger,
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

TEST_F(MeasuringCameraTest, givesBackTheCameraTheWayItGotItOrNotAtAll)
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

    control = QSharedPointer<CFakeCameraControlService>::create();
    control->setOpenFails(key);
    measuring = std::make_unique<CBandwidthMeasuringCamera>(parameters, info, status, control);
    EXPECT_FALSE(measuring->openCamera());
    measuring->startMeasuring();
    EXPECT_FALSE(measuring->isMeasuring());
}

// Grabs on their own thread while the sampling thread reads and resets.
TEST_F(MeasuringCameraTest, samplesAndResetsDuringGrabsKeepExactCounts)
{
    constexpr int kGrabs = 100000;
    constexpr size_t kPayload = 4096;
    const auto grabAtFullSpeed = [this](int count, std::atomic<bool>* done) { // every seventh grab fails
        for (int i = 0; i < count; ++i)
            camera->grab(i % 7 != 0, kPayload);
        *done = true;
    };
    parameters->addInteger(kUnderrun, 0, 0, 1 << 30, 1, "RO");
    parameters->addInteger("PayloadSize", kPayload, 0, 1 << 20, 1, "RO");
    parameters->addFloat("ResultingFrameRate", 100.0, 0, 1000, "RO");
    status->setGrabbing(key, true);
    open();
    measuring->startMeasuring();

    std::atomic<bool> done{false};
    std::thread grabber(grabAtFullSpeed, kGrabs, &done);
    SBandwidthSample last;
    while (!done) {
        const SBandwidthSample sample = measuring->getSample();
        EXPECT_GE(sample.images, last.images);
        EXPECT_GE(sample.errors, last.errors);
        EXPECT_LE(sample.images + sample.errors, quint64(kGrabs));
        if (sample.fpsReceived > 0) { // every image has the same size, torn slots would break this
            EXPECT_NEAR(double(sample.payloadReceived) / sample.fpsReceived, double(kPayload), kPayload * 0.01);
        }
        last = sample;
    }
    grabber.join();
    EXPECT_EQ(measuring->getSample().errors, quint64(kGrabs + 6) / 7);
    EXPECT_EQ(measuring->getSample().images, kGrabs - quint64(kGrabs + 6) / 7);

    done = false;
    grabber = std::thread(grabAtFullSpeed, kGrabs / 2, &done);
    while (!done) {
        measuring->resetStatistics();
        measuring->getSample();
    }
    grabber.join();
    measuring->resetStatistics();
    grabAtFullSpeed(700, &done);
    const SBandwidthSample sample = measuring->getSample();
    EXPECT_EQ(sample.images, 600u);
    EXPECT_EQ(sample.errors, 100u);
    EXPECT_TRUE(sample.timestamp.isValid());
}

const QString kHeartbeat = QStringLiteral("@DeviceTransportLayer/HeartbeatTimeout");
const QString kWriteTimeout = QStringLiteral("@DeviceTransportLayer/WriteTimeout");
const QString kDuplication = QStringLiteral("@DeviceTransportLayer/CommandDuplicationEnable");
const QString kRetries = QStringLiteral("@DeviceTransportLayer/MaxRetryCountWrite");

TEST_F(MeasuringCameraTest, gigEWritesItsTransportLayerSettingsThenRunsTheBase)
{
    const struct { const char* scenario; bool present; QString retriesAccess; QString failingNode;
    QVariantList expected; /* heartbeat, write timeout, duplication, retries after initParameters */ } cases[] = {
        {"all nodes written", true, "RW", {}, {10000, 50, true, 8}},
        {"missing nodes passed over", false, "RW", {}, {}},
        {"read-only retry count kept", true, "RO", {}, {10000, 50, true, 3}},
        {"a failure ends the series and keeps what was done", true, "RW", kWriteTimeout, {10000, 500, false, 3}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.scenario);
        parameters = QSharedPointer<CScriptedParameterCollection>::create();
        if (c.present) {
            parameters->addInteger(kHeartbeat, 3000, 500, 60000);
            parameters->addInteger(kWriteTimeout, 500, 10, 10000);
            parameters->addBoolean(kDuplication, false);
            parameters->addInteger(kRetries, 3, 0, 8, 1, c.retriesAccess);
        }
        if (!c.failingNode.isEmpty())
            parameters->failNext(c.failingNode, EScriptedAccess::Write);
        parameters->addInteger("PayloadSize", 2000, 0, 1 << 20, 1, "RO");
        parameters->addInteger("DeviceLinkThroughputLimit", 0, 0, 0, 1, "NA");
        parameters->addFloat("ResultingFrameRate", 5.0, 0, 100, "RO");
        gigE().initParameters();
        if (c.present) {
            EXPECT_EQ((QVariantList{parameters->value(kHeartbeat), parameters->value(kWriteTimeout),
                                    parameters->value(kDuplication), parameters->value(kRetries)}), c.expected);
        }
        EXPECT_EQ(measuring->getSample().bandwidth, 10000u);
    }
}

TEST_F(MeasuringCameraTest, gigERefusedPacketSizeIsFalseOrRaisesAndRefusedFrameDelayIsFalse)
{
    parameters->addInteger("GevSCPSPacketSize", 1500, 576, 9000, 1);
    parameters->setWriteLaw("GevSCPSPacketSize", [](const QVariant& v) { return v.toLongLong() / 8 * 8; });
    parameters->addInteger("GevSCFTD", 0, 0, 100000);
    CBandwidthMeasuringCameraGigE& camera = gigE();
    EXPECT_FALSE(camera.setPacketSize(8999));
    EXPECT_EQ(parameters->value("GevSCPSPacketSize").toLongLong(), 8992);
    EXPECT_TRUE(camera.setPacketSize(8000));
    EXPECT_THROW(camera.setPacketSize(9600), GenICam_3_1_Dorvik_zenta::GenericException);

    EXPECT_FALSE(camera.isFrameTransmissionDelaySet());
    EXPECT_TRUE(camera.setFrameTransmissionDelay(4000));
    EXPECT_TRUE(camera.isFrameTransmissionDelaySet());
    EXPECT_FALSE(camera.setFrameTransmissionDelay(200000));
    EXPECT_EQ(parameters->value("GevSCFTD").toLongLong(), 4000);
}

TEST_F(MeasuringCameraTest, gigEProbeReportsThePacketSizesAroundIt)
{
    const struct { const char* scenario; bool hasCommand; bool commandRaises; bool result; qint64 after; } cases[] = {
        {"probe runs", true, false, true, 8192},
        {"no probe command", false, false, false, 1500},
        {"probe raises", true, true, false, 1500}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.scenario);
        parameters = QSharedPointer<CScriptedParameterCollection>::create();
        parameters->addInteger("GevSCPSPacketSize", 1500, 576, 9000);
        if (c.hasCommand) {
            parameters->addCommand("@StreamGrabber0/ProbePacketSize");
            parameters->setAfterWrite("@StreamGrabber0/ProbePacketSize",
                                      [this](const QVariant&) { parameters->setValue("GevSCPSPacketSize", 8192); });
            if (c.commandRaises)
                parameters->failNext("@StreamGrabber0/ProbePacketSize", EScriptedAccess::Write);
        }
        qint64 before = -1;
        qint64 after = -1;
        CBandwidthMeasuringCameraGigE& camera = gigE();
        EXPECT_EQ(camera.probePacketSize(&after, &before), c.result);
        EXPECT_EQ(before, 1500);
        EXPECT_EQ(after, c.after);
        EXPECT_EQ(camera.getMaximumThroughput(), -1) << "neither a limit nor a delay to probe";
    }
}

struct SThroughputCase { const char* scenario; bool limitNode;
    int failingDelayWrite; /* -1 none, 0 the move to the minimum, 1 the restore */ qint64 expected;
    QVariantList delayWrites; /* that the camera took */ qint64 delayAfter; };

class GigEMaximumThroughput : public MeasuringCameraTest, public ::testing::WithParamInterface<SThroughputCase> {};

TEST_P(GigEMaximumThroughput, isTheLimitsMaximumOrTheRateAtTheSmallestDelay)
{
    const SThroughputCase& c = GetParam();
    if (c.limitNode)
        parameters->addInteger("DeviceLinkThroughputLimit", 200000000, 1000000, 380000000);
    parameters->addInteger("GevSCPD", 5000, 100, 100000);
    parameters->addInteger("GevSCDCT", 0, 0, 1 << 30, 1, "RO");
    // A 1 MB frame every (delay + 8) microseconds.
    parameters->setValueLaw("GevSCDCT", [this] {
        return QVariant(qint64(1000000) * 1000000 / (parameters->value("GevSCPD").toLongLong() + 8) / 1000);
    });
    if (c.failingDelayWrite >= 0)
        parameters->failNext("GevSCPD", EScriptedAccess::Write, 1, c.failingDelayWrite);
    EXPECT_EQ(gigE().getMaximumThroughput(), c.expected);
    EXPECT_EQ(parameters->writtenValues("GevSCPD"), c.delayWrites);
    EXPECT_EQ(parameters->value("GevSCPD").toLongLong(), c.delayAfter);
}

INSTANTIATE_TEST_SUITE_P(Throughput, GigEMaximumThroughput,
    ::testing::Values(SThroughputCase{"device_link_limit_maximum", true, -1, 380000000, {}, 5000},
                      SThroughputCase{"delay_probe_restores_the_delay", false, -1, 9259259, {100, 5000}, 5000},
                      SThroughputCase{"failed_restore_leaves_the_minimum", false, 1, 9259259, {100}, 100},
                      SThroughputCase{"failed_move_to_minimum", false, 0, -1, {}, 5000}),
    [](const auto& info) { return std::string(info.param.scenario); });

} // namespace
