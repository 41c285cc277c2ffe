#include "SFakeCameraHost.h"
#include "bandwidthlimiterinterpacketdelay.h"
#include "bandwidthtreewidget.h"
#include "flattree.h"

#include <baselibs/CInMemoryAdapterListSource.h>
#include <cfgapi/CInMemoryElevation.h>
#include <cfgapi/CInMemoryManagementCalls.h>
#include <cfgapi/CInMemoryRegistryView.h>
#include <cfgapi/CNetworkAdapter.h>
#include <cfgapi/CNetworkConfig.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>

#include <arpa/inet.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <vector>

using namespace HostFakes;
using Core::CameraPoolComponents::CameraInfoPtr;
using ParameterFakes::CScriptedParameterCollection;
using Result = BandwidthTreeWidget::SOptimizationResult;

namespace {

const QString Adapter = QStringLiteral("192.0.2.7");

// The limit editor of a row, recording what the run asks of it.
class CRecordingLimiter : public BandwidthLimiterInterPacketDelay
{
public:
    using BandwidthLimiterInterPacketDelay::BandwidthLimiterInterPacketDelay;
    int applyWish(int value) override
    {
        values.push_back(value);
        const int reached = BandwidthLimiterInterPacketDelay::applyWish(value);
        if (afterSetValue)
            afterSetValue();
        return reached;
    }
    std::vector<int> values;
    std::function<void()> afterSetValue;
};

// A GigE camera whose throughput falls with the inter-packet delay and whose
// probe leaves the packet size at `probed`.
struct SCameraScript { double maximumMBs = 300.0; qint64 packetSize = 1500; qint64 probed = 1500; bool measured = true;
    /* A frame rate that keeps the camera below this, in MB/s; 0 for none. */ double frameBoundMBs = 0.0; };

// The network layer over in-memory seams: adapters with an address and a link speed.
struct SNetwork
{
    std::shared_ptr<Baselibs::CInMemoryAdapterListSource> adapters =
        std::make_shared<Baselibs::CInMemoryAdapterListSource>();
    std::shared_ptr<CfgApi::CInMemoryRegistryView> registry = std::make_shared<CfgApi::CInMemoryRegistryView>();
    bool broken = false;

    void add(const char* address, uint64_t linkSpeed)
    {
        const std::string index = std::to_string(adapters->m_entries.size());
        const std::string guid = "{" + index + "}";
        registry->SetString(std::string(CfgApi::CNetworkAdapter::kClassKey) + "\\000" + index, "NetCfgInstanceId", guid);
        Baselibs::SPlatformAdapterEntry entry;
        std::tie(entry.adapterName, entry.friendlyName, entry.operUp, entry.receiveLinkSpeed) =
            std::make_tuple(guid, "eth" + index, true, linkSpeed);
        entry.physicalAddress = {0x00, 0x1B, 0x21, 0x01, 0x02, uint8_t(adapters->m_entries.size())};
        Baselibs::SUnicastAddress unicast;
        unicast.family = AF_INET;
        const uint32_t raw = inet_addr(address);
        std::memcpy(unicast.address, &raw, 4);
        unicast.onLinkPrefixLength = 24;
        entry.unicastAddresses = {unicast};
        adapters->m_entries.push_back(entry);
    }

    std::unique_ptr<CfgApi::INetworkConfig> create() const
    {
        if (broken)
            return nullptr;
        CfgApi::SPlatform platform;
        platform.adapters = adapters;
        platform.registry = registry;
        platform.management = std::make_shared<CfgApi::CInMemoryManagementCalls>();
        platform.elevation = std::make_shared<CfgApi::CInMemoryElevation>(true);
        platform.sleep = [](unsigned) {};
        return std::make_unique<CfgApi::CNetworkConfig>(platform);
    }
};

class OptimizationTest : public ::testing::Test, public SFakeCameraHost
{
public:
    void SetUp() override
    {
        logHandle = Core::Logging::addLogListener([this](const Core::Logging::SLogEntry& entry) {
            if (entry.level == Core::Logging::LogLevelFailure)
                failures << entry.text;
        });
        tree.setColumnCount(8);
        tree.setCameraServices(manager.toWeakRef());
        tree.setDeviceClasses({"DorvikGigE"});
        tree.setNetworkConfigFactory([this] { return network.create(); });
    }
    void TearDown() override { Core::Logging::removeLogListener(logHandle); }

    // Cameras gev-1, gev-2, ... on one adapter; measured ones get a recording limiter.
    void build(const std::vector<SCameraScript>& scripts)
    {
        QList<CameraInfoPtr> infos;
        for (size_t index = 0; index < scripts.size(); ++index) {
            const QString key = QStringLiteral("gev-%1").arg(index + 1);
            infos << CFakeCameraInfo::create(key.toUpper(), key, "GEV", {{"Interface", Adapter}});
            collections.push_back(scripted(scripts[index]));
            parameters->setCollection(key, collections.back());
        }
        enumeration->addTransportLayer("DorvikGigE", infos);
        tree.refreshTree();
        for (size_t index = 0; index < scripts.size(); ++index) {
            limiters.push_back(nullptr);
            if (!scripts[index].measured)
                continue;
            const QString key = QStringLiteral("gev-%1").arg(index + 1);
            ASSERT_TRUE(tree.startCameraByKey(key)) << key.toStdString();
            limiters.back() = std::make_unique<CRecordingLimiter>(collections[index]);
            item(key).editor = limiters.back().get();
        }
    }

    // Throughput at delay d is maximum * 1000 / (1000 + d), capped by the frame rate where there is one.
    static QSharedPointer<CScriptedParameterCollection> scripted(const SCameraScript& script)
    {
        auto collection = QSharedPointer<CScriptedParameterCollection>::create();
        CScriptedParameterCollection* raw = collection.data();
        raw->addInteger(QStringLiteral("@StreamGrabber0/MaxNumBuffer"), 16, 1, 256);
        raw->addInteger(QStringLiteral("GevSCPD"), 0, 0, 100000);
        raw->addInteger(QStringLiteral("GevSCDCT"), 0, 0, 1000000000, 1, "RO");
        raw->setValueLaw(QStringLiteral("GevSCDCT"), [raw, script] {
            const double link = script.maximumMBs * 1e9 / (1000.0 + raw->value(QStringLiteral("GevSCPD")).toDouble());
            return QVariant(qint64(script.frameBoundMBs > 0.0 ? std::min(link, script.frameBoundMBs * 1e6) : link));
        });
        raw->addInteger(QStringLiteral("GevSCPSPacketSize"), script.packetSize, 576, 9000);
        raw->addInteger(QStringLiteral("GevSCFTD"), 0, 0, 1000000000);
        raw->addCommand(QStringLiteral("@StreamGrabber0/ProbePacketSize"));
        raw->setAfterWrite(QStringLiteral("@StreamGrabber0/ProbePacketSize"),
                           [raw, script](const QVariant&) { raw->setValue(QStringLiteral("GevSCPSPacketSize"), script.probed); });
        return collection;
    }

    FlatTreeItem& item(const QString& key) { return tree.model()->item(tree.model()->findByKey(key)); }
    FlatTreeItemID adapterId() { return tree.model()->findByKey(Adapter); }
    Result optimizeAll()
    {
        QSignalSpy spy(&tree, &BandwidthTreeWidget::optimizedGigECamera);
        tree.OptimizeAllGigE();
        EXPECT_EQ(spy.count(), 1);
        return spy.isEmpty() ? Result() : spy.takeFirst().at(0).value<Result>();
    }
    qint64 value(size_t camera, const char* node) { return collections[camera]->value(QString::fromLatin1(node)).toLongLong(); }

    SNetwork network;
    std::vector<QSharedPointer<CScriptedParameterCollection>> collections;
    std::vector<std::unique_ptr<CRecordingLimiter>> limiters;
    QStringList failures;
    int logHandle = 0;
    BandwidthTreeWidget tree;
};

struct SShareCase { const char* scenario; uint64_t linkSpeed; std::vector<SCameraScript> cameras;
    std::function<void(OptimizationTest&)> arrange; /* Per camera, in the order they were added. */
    std::vector<std::vector<int>> limiterValues; std::vector<qint64> frameDelays; double usedBandwidth;
    /* GevSCPD after the run, where the case states it. */ std::vector<qint64> packetDelays = {}; };

class Shares : public OptimizationTest, public ::testing::WithParamInterface<SShareCase> {};

TEST_P(Shares, fillTheBudgetFromTheSlowestCamera)
{
    const SShareCase& c = GetParam();
    network.add("192.0.2.7", c.linkSpeed);
    build(c.cameras);
    if (c.arrange)
        c.arrange(*this);

    const Result result = optimizeAll();

    for (size_t camera = 0; camera < c.cameras.size(); ++camera) {
        SCOPED_TRACE(camera);
        EXPECT_EQ(limiters[camera]->values, c.limiterValues[camera]);
        EXPECT_EQ(value(camera, "GevSCFTD"), c.frameDelays[camera]);
        if (!c.packetDelays.empty()) {
            EXPECT_NEAR(value(camera, "GevSCPD"), c.packetDelays[camera], 1);
        }
    }
    EXPECT_NEAR(result.usedBandwidth, c.usedBandwidth, 0.2);
    EXPECT_FALSE(result.frameTransmissionDelayChanged) << "left out of the merge";
    EXPECT_TRUE(failures.isEmpty()) << failures.join('\n').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Optimization, Shares, ::testing::Values(
        SShareCase{"one_camera_on_1000_mbit_gets_112_of_112_5", 1000000000, {{}}, {}, {{112}}, {0}, 111.0},
        SShareCase{"the_slower_camera_is_served_first_and_its_rest_flows_on", 1000000000, {{300.0}, {50.0}}, {},
                   {{62}, {56}}, {1518, 0}, 50.0 + 62.0 - 1.0},
        SShareCase{"a_camera_reporting_minus_one_takes_nothing_from_the_budget", 1000000000, {{300.0}, {50.0}},
                   [](OptimizationTest& t) {
                       t.limiters[1]->afterSetValue = [&t] { t.collections[1]->setAccessMode("GevSCDCT", "NA"); };
                   }, {{112}, {56}}, {1518, 0}, 112.0 - 1.0},
        SShareCase{"a_share_below_one_megabyte_reaches_the_limiter_as_0", 8000000, {{}}, {}, {{0}}, {0}, 2.97 - 1.0},
        SShareCase{"packet_size_8192_staggers_the_second_camera_by_8210",
                   1000000000, {{100.0, 1500, 8192}, {100.0, 1500, 8192}}, {}, {{56}, {56}}, {0, 8210}, 111.0},
        // Frame-bound at 20 MB/s, it is paced to 20 / 0.8 = 25 MB/s (delay 300 * 1000 / 25 - 1000) and
        // charged that much, so the other camera gets 112.5 - 25.
        SShareCase{"a_camera_below_its_share_is_paced_over_most_of_its_frame_period",
                   1000000000, {{300.0, 1500, 1500, true, 20.0}, {300.0}}, {}, {{56}, {87}}, {0, 1518},
                   25.0 + 87.0 - 1.0, {11000, 2448}}),
    [](const auto& info) { return std::string(info.param.scenario); });

struct SProbeCase { const char* scenario; qint64 before; qint64 probed;
    std::function<void(CScriptedParameterCollection&)> arrange; qint64 packetSize; bool changed; bool limited;
    bool defaulted; };

class Probe : public OptimizationTest, public ::testing::WithParamInterface<SProbeCase> {};

TEST_P(Probe, setsWhatThePathCarries)
{
    const SProbeCase& c = GetParam();
    network.add("192.0.2.7", 1000000000);
    build({{300.0, c.before, c.probed}});
    if (c.arrange)
        c.arrange(*collections[0]);

    const Result result = optimizeAll();

    EXPECT_EQ(collections[0]->writeCount("@StreamGrabber0/ProbePacketSize"), 1);
    EXPECT_EQ(value(0, "GevSCPSPacketSize"), c.packetSize);
    EXPECT_EQ(result.packetSizeChanged, c.changed);
    EXPECT_EQ(result.packetSizeLimited, c.limited);
    EXPECT_EQ(result.packetSizeDefaulted, c.defaulted);
}

INSTANTIATE_TEST_SUITE_P(Optimization, Probe, ::testing::Values(
        SProbeCase{"probe_leaving_1400_falls_back_to_1500", 1400, 1400, {}, 1500, true, true, true},
        SProbeCase{"fallback_corrected_by_the_camera_is_not_defaulted", 1400, 1400,
                   [](CScriptedParameterCollection& c) { c.setWriteLaw("GevSCPSPacketSize", [](auto&) { return 1496; }); },
                   1496, true, true, false},
        SProbeCase{"probe_raising_1500_to_9000", 1500, 9000, {}, 9000, true, false, false},
        SProbeCase{"probe_leaving_1500_alone", 1500, 1500, {}, 1500, false, true, false}),
    [](const auto& info) { return std::string(info.param.scenario); });

TEST_F(OptimizationTest, theLinkIsQuietBeforeTheFirstProbe)
{
    network.add("192.0.2.7", 1000000000);
    build({{300.0}, {50.0}, {100.0}});
    std::vector<qint64> delaysAtFirstProbe;
    collections[1]->setAfterWrite("@StreamGrabber0/ProbePacketSize", [&](const QVariant&) {
        for (size_t camera = 0; camera < collections.size(); ++camera)
            delaysAtFirstProbe.push_back(value(camera, "GevSCPD"));
    });

    optimizeAll();

    EXPECT_EQ(delaysAtFirstProbe, (std::vector<qint64>{100000, 100000, 100000})) << "every camera at its largest delay";
}

TEST_F(OptimizationTest, cameraThatStopsAnsweringIsPassedOverAndNamed)
{
    network.add("192.0.2.7", 1000000000);
    build({{300.0}, {50.0}, {100.0}});
    // gev-3 is served second; it dies while gev-2, the first, is probed.
    collections[1]->setAfterWrite("@StreamGrabber0/ProbePacketSize", [&](const QVariant&) {
        for (const char* node : {"GevSCPD", "GevSCDCT", "GevSCPSPacketSize", "GevSCFTD"}) {
            collections[2]->failNext(node, ParameterFakes::EScriptedAccess::Read, 1000);
            collections[2]->failNext(node, ParameterFakes::EScriptedAccess::Write, 1000);
        }
        collections[2]->failNext("@StreamGrabber0/ProbePacketSize", ParameterFakes::EScriptedAccess::Write, 1000);
    });

    const Result result = optimizeAll();

    EXPECT_EQ(result.unsetCameras, QStringList{item("gev-3").text});
    EXPECT_EQ(limiters[1]->values, std::vector<int>{37});
    EXPECT_TRUE(limiters[2]->values.empty());
    EXPECT_EQ(limiters[0]->values, std::vector<int>{75}) << "the last camera is still served, with the rest";
    EXPECT_EQ(value(0, "GevSCFTD"), 1518) << "staggered behind the first camera only";
}

TEST_F(OptimizationTest, unmeasuredCameraAmongTwoStopsTheAdapterInTheSortButTheSignalGoesOut)
{
    network.add("192.0.2.7", 1000000000);
    build({{300.0}, {50.0, 1500, 1500, false}});

    const Result result = optimizeAll();

    EXPECT_FALSE(result.packetSizeChanged || result.interPacketDelayChanged || result.packetSizeLimited);
    EXPECT_EQ(result.usedBandwidth, -1.0);
    EXPECT_TRUE(limiters[0]->values.empty());
    EXPECT_EQ(collections[0]->writeCount("@StreamGrabber0/ProbePacketSize"), 0);
    EXPECT_EQ(collections[0]->writeCount("GevSCFTD"), 0);
    EXPECT_TRUE(failures.contains(QStringLiteral("Invalid camera object received."))) << failures.join('\n').toStdString();
}

struct SLinkSpeedCase { const char* scenario; std::function<void(SNetwork&)> arrange;
    QStringList logged; /* "%1" stands for the adapter row's text */ };

class LinkSpeed : public OptimizationTest, public ::testing::WithParamInterface<SLinkSpeedCase> {};

TEST_P(LinkSpeed, unknownFallsBackToOneGigabit)
{
    const SLinkSpeedCase& c = GetParam();
    c.arrange(network);
    build({{}});

    optimizeAll();

    EXPECT_EQ(limiters[0]->values, std::vector<int>{112}) << "the budget of 1 GBit/s";
    QStringList expected;
    for (const QString& line : c.logged)
        expected << (line.contains("%1") ? line.arg(tree.model()->item(adapterId()).text) : line);
    EXPECT_EQ(failures, expected);
}

INSTANTIATE_TEST_SUITE_P(Optimization, LinkSpeed, ::testing::Values(
        SLinkSpeedCase{"adapter_not_found", [](SNetwork& n) { n.add("198.51.100.1", 10000000000ull); },
                       {"Could not find a network adapter with the given IP address.",
                        "Could not determine current bandwidth of network adapter '%1'. Defaulting to 1GBit/s."}},
        SLinkSpeedCase{"link_speed_of_0", [](SNetwork& n) { n.add("192.0.2.7", 0); },
                       {"Could not determine current bandwidth of network adapter '%1'. Defaulting to 1GBit/s."}},
        SLinkSpeedCase{"no_network_configuration", [](SNetwork& n) { n.broken = true; },
                       {"Invalid network config received.",
                        "Could not determine current bandwidth of network adapter '%1'. Defaulting to 1GBit/s."}}),
    [](const auto& info) { return std::string(info.param.scenario); });

TEST_F(OptimizationTest, optimizeButtonServesCheckedCamerasOnlyAndNothingWhenNoneIsChecked)
{
    network.add("192.0.2.7", 1000000000);
    build({{300.0}, {300.0, 1500, 1500, false}});
    QSignalSpy started(&tree, &BandwidthTreeWidget::optimizeGigEStarted);
    QSignalSpy optimized(&tree, &BandwidthTreeWidget::optimizedGigECamera);

    tree.onOptimizeButton(int(adapterId()));
    EXPECT_EQ(started.count(), 1);
    ASSERT_EQ(optimized.count(), 1) << "the unmeasured camera is not checked, so it is not sorted";
    EXPECT_EQ(limiters[0]->values, std::vector<int>{112});
    EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the wait cursor is gone after the run";

    ASSERT_TRUE(tree.stopCamera(tree.model()->findByKey("gev-1")));
    tree.onOptimizeButton(int(adapterId()));
    EXPECT_EQ(started.count(), 2);
    EXPECT_EQ(optimized.count(), 1) << "no checked camera: no signal";
    EXPECT_EQ(collections[0]->writeCount("@StreamGrabber0/ProbePacketSize"), 1);
}

} // namespace
