#include "bandwidthmeasuringcameragige.h"

#include <host/fakes/CFakeCameraControlService.h>
#include <host/fakes/CFakeCameraInfo.h>
#include <host/fakes/CFakeCameraStatusService.h>
#include <parameters/fakes/CScriptedParameterCollection.h>

#include <GenICam/GenericException.h>

#include <gtest/gtest.h>

#include <memory>

using namespace Plugin::BandwidthManager;
using namespace HostFakes;
using namespace ParameterFakes;

namespace {

const QString kHeartbeat = QStringLiteral("@DeviceTransportLayer/HeartbeatTimeout");
const QString kWriteTimeout = QStringLiteral("@DeviceTransportLayer/WriteTimeout");
const QString kDuplication = QStringLiteral("@DeviceTransportLayer/CommandDuplicationEnable");
const QString kRetries = QStringLiteral("@DeviceTransportLayer/MaxRetryCountWrite");

class GigEMeasuringCameraTest : public ::testing::Test
{
protected:
    CBandwidthMeasuringCameraGigE& make()
    {
        control->setAlreadyOpen(key);
        measuring = std::make_unique<CBandwidthMeasuringCameraGigE>(parameters, info, status, control);
        return *measuring;
    }

    QSharedPointer<CScriptedParameterCollection> parameters = QSharedPointer<CScriptedParameterCollection>::create();
    const QString key = QStringLiteral("GEV:Gev 1");
    Core::CameraPoolComponents::CameraInfoPtr info = CFakeCameraInfo::create("Gev 1", key, "GEV");
    QSharedPointer<CFakeCameraStatusService> status = QSharedPointer<CFakeCameraStatusService>::create();
    QSharedPointer<CFakeCameraControlService> control = QSharedPointer<CFakeCameraControlService>::create();
    std::unique_ptr<CBandwidthMeasuringCameraGigE> measuring;
};

struct STransportCase
{
    const char* scenario;
    bool present;
    QString retriesAccess;
    QString failingNode;
    QVariantList expected; // heartbeat, write timeout, duplication, retries after initParameters
};

class GigETransportLayer : public GigEMeasuringCameraTest, public ::testing::WithParamInterface<STransportCase>
{
};

TEST_P(GigETransportLayer, writesSettingsThenRunsTheBase)
{
    const STransportCase& c = GetParam();
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
    make().initParameters();
    if (c.present) {
        const QVariantList actual{parameters->value(kHeartbeat), parameters->value(kWriteTimeout),
                                  parameters->value(kDuplication), parameters->value(kRetries)};
        EXPECT_EQ(actual, c.expected);
    }
    EXPECT_EQ(measuring->getSample().bandwidth, 10000u);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, GigETransportLayer,
    ::testing::Values(
        STransportCase{"all_nodes_written", true, "RW", {}, {10000, 50, true, 8}},
        STransportCase{"missing_nodes_passed_over", false, "RW", {}, {}},
        STransportCase{"read_only_retry_count_kept", true, "RO", {}, {10000, 50, true, 3}},
        STransportCase{"failure_ends_the_series_and_keeps_what_was_done", true, "RW", kWriteTimeout, {10000, 500, false, 3}}),
    [](const auto& info) { return std::string(info.param.scenario); });

TEST_F(GigEMeasuringCameraTest, packetSizeTheCameraCorrectsComesBackFalse)
{
    parameters->addInteger("GevSCPSPacketSize", 1500, 576, 9000, 1);
    parameters->setWriteLaw("GevSCPSPacketSize", [](const QVariant& v) { return v.toLongLong() / 8 * 8; });
    make();
    EXPECT_FALSE(measuring->setPacketSize(8999));
    EXPECT_EQ(parameters->value("GevSCPSPacketSize").toLongLong(), 8992);
    EXPECT_TRUE(measuring->setPacketSize(8000));
    EXPECT_THROW(measuring->setPacketSize(9600), GenICam_3_1_Dorvik_zenta::GenericException);
}

TEST_F(GigEMeasuringCameraTest, frameTransmissionDelayRefusalIsFalseNotAnException)
{
    parameters->addInteger("GevSCFTD", 0, 0, 100000);
    make();
    EXPECT_FALSE(measuring->isFrameTransmissionDelaySet());
    EXPECT_TRUE(measuring->setFrameTransmissionDelay(4000));
    EXPECT_TRUE(measuring->isFrameTransmissionDelaySet());
    EXPECT_FALSE(measuring->setFrameTransmissionDelay(200000));
    EXPECT_EQ(parameters->value("GevSCFTD").toLongLong(), 4000);
}

struct SProbeCase
{
    const char* scenario;
    bool hasCommand;
    bool commandRaises;
    bool result;
    qint64 after;
};

class GigEPacketSizeProbe : public GigEMeasuringCameraTest, public ::testing::WithParamInterface<SProbeCase>
{
};

TEST_P(GigEPacketSizeProbe, reportsSizesAroundTheProbe)
{
    const SProbeCase& c = GetParam();
    parameters->addInteger("GevSCPSPacketSize", 1500, 576, 9000);
    if (c.hasCommand) {
        parameters->addCommand("@StreamGrabber0/ProbePacketSize");
        parameters->setAfterWrite("@StreamGrabber0/ProbePacketSize",
                                  [this](const QVariant&) { parameters->setValue("GevSCPSPacketSize", 8192); });
        if (c.commandRaises)
            parameters->failNext("@StreamGrabber0/ProbePacketSize", EScriptedAccess::Write);
    }
    make();
    qint64 before = -1;
    qint64 after = -1;
    EXPECT_EQ(measuring->probePacketSize(&after, &before), c.result);
    EXPECT_EQ(before, 1500);
    EXPECT_EQ(after, c.after);
}

INSTANTIATE_TEST_SUITE_P(Probe, GigEPacketSizeProbe,
                         ::testing::Values(SProbeCase{"probe_runs", true, false, true, 8192},
                                           SProbeCase{"no_probe_command", false, false, false, 1500},
                                           SProbeCase{"probe_raises", true, true, false, 1500}),
                         [](const auto& info) { return std::string(info.param.scenario); });

TEST_F(GigEMeasuringCameraTest, probeWithoutPointersStillRuns)
{
    parameters->addCommand("@StreamGrabber0/ProbePacketSize");
    make();
    EXPECT_TRUE(measuring->probePacketSize(nullptr, nullptr));
    EXPECT_EQ(parameters->writeCount("@StreamGrabber0/ProbePacketSize"), 1);
}

struct SThroughputCase
{
    const char* scenario;
    bool limitNode;
    bool delayNodes;
    int failingDelayWrite; // -1 none, 0 the move to the minimum, 1 the restore
    qint64 expected;
    qint64 delayAfter;
};

class GigEMaximumThroughput : public GigEMeasuringCameraTest, public ::testing::WithParamInterface<SThroughputCase>
{
};

TEST_P(GigEMaximumThroughput, findsTheHighestBandwidth)
{
    const SThroughputCase& c = GetParam();
    if (c.limitNode)
        parameters->addInteger("DeviceLinkThroughputLimit", 200000000, 1000000, 380000000);
    if (c.delayNodes) {
        parameters->addInteger("GevSCPD", 5000, 0, 100000);
        parameters->addInteger("GevSCDCT", 0, 0, 1 << 30, 1, "RO");
        // A 1 MB frame every (delay + 8) microseconds.
        parameters->setValueLaw("GevSCDCT", [this] {
            return QVariant(qint64(1000000) * 1000000 / (parameters->value("GevSCPD").toLongLong() + 8) / 1000);
        });
        if (c.failingDelayWrite >= 0)
            parameters->failNext("GevSCPD", EScriptedAccess::Write, 1, c.failingDelayWrite);
    }
    make();
    EXPECT_EQ(measuring->getMaximumThroughput(), c.expected);
    if (c.delayNodes) {
        EXPECT_EQ(parameters->value("GevSCPD").toLongLong(), c.delayAfter);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Throughput, GigEMaximumThroughput,
    ::testing::Values(SThroughputCase{"device_link_limit_maximum", true, false, -1, 380000000, 0},
                      SThroughputCase{"delay_probe_restores_the_delay", false, true, -1, 125000000, 5000},
                      SThroughputCase{"failed_restore_leaves_the_minimum", false, true, 1, 125000000, 0},
                      SThroughputCase{"failed_move_to_minimum", false, true, 0, -1, 5000},
                      SThroughputCase{"neither_kind_of_node", false, false, -1, -1, 0}),
    [](const auto& info) { return std::string(info.param.scenario); });

TEST_F(GigEMeasuringCameraTest, probeOfTheDelayWritesMinimumThenTheSavedValue)
{
    parameters->addInteger("GevSCPD", 5000, 100, 100000);
    parameters->addInteger("GevSCDCT", 7, 0, 100, 1, "RO");
    make();
    EXPECT_EQ(measuring->getMaximumThroughput(), 7);
    EXPECT_EQ(parameters->writtenValues("GevSCPD"), (QVariantList{100, 5000}));
}

} // namespace
