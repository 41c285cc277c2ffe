#include "lossmeter.h"
#include "lossplace.h"

#include <parameters/fakes/CScriptedParameterCollection.h>

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace Plugin::BandwidthManager;

namespace {

struct SPlaceCase { const char* name; SLossTotals totals; ELossPlace place; };

class LossPlaceOf : public ::testing::TestWithParam<SPlaceCase> {};

TEST_P(LossPlaceOf, theCounterThatLostMost)
{
    EXPECT_EQ(lossPlace(GetParam().totals), GetParam().place);
}

// lostFrames, missingPackets, ringDrops, socketDrops, underruns, peakLinkUse
INSTANTIATE_TEST_SUITE_P(Table, LossPlaceOf,
    ::testing::Values(SPlaceCase{"nothingLost", {0, 0, 0, 0, 0, 1.0}, ELossPlace::None},
                      SPlaceCase{"missingOnAFullLink", {5, 400, 0, 0, 0, 0.96}, ELossPlace::Link},
                      SPlaceCase{"missingWithRoom", {5, 400, 0, 0, 0, 0.40}, ELossPlace::Wire},
                      SPlaceCase{"justBelowFull", {5, 400, 0, 0, 0, 0.89}, ELossPlace::Wire},
                      SPlaceCase{"ringDroppedThem", {5, 400, 390, 0, 0, 0.95}, ELossPlace::AdapterRing},
                      SPlaceCase{"socketDroppedThem", {5, 400, 0, 380, 0, 0.5}, ELossPlace::SocketBuffer},
                      // Measured: 31 socket drops cost 665 packets (whole frames behind lost leaders).
                      SPlaceCase{"fewSocketDropsOnARoomyLink", {5, 665, 0, 31, 0, 0.41}, ELossPlace::SocketBuffer},
                      SPlaceCase{"fewSocketDropsOnAFullLink", {90, 8000, 0, 30, 0, 0.96}, ELossPlace::Link},
                      SPlaceCase{"ringOverSocket", {5, 400, 20, 10, 0, 0.5}, ELossPlace::AdapterRing},
                      SPlaceCase{"wholeFramesWithoutBuffer", {5, 0, 0, 0, 5, 0.3}, ELossPlace::Application},
                      SPlaceCase{"framesLostNoCounterMoved", {5, 0, 0, 0, 0, 0.3}, ELossPlace::None}),
    [](const ::testing::TestParamInfo<SPlaceCase>& info) { return std::string(info.param.name); });

TEST(LossPlaceAdvice, namesWhatToDoForEveryPlace)
{
    EXPECT_TRUE(lossPlaceAdvice(ELossPlace::None).isEmpty());
    for (ELossPlace place : {ELossPlace::Link, ELossPlace::Wire, ELossPlace::AdapterRing, ELossPlace::SocketBuffer,
                             ELossPlace::Application})
        EXPECT_FALSE(lossPlaceAdvice(place).isEmpty()) << int(place);
    EXPECT_TRUE(lossPlaceAdvice(ELossPlace::SocketBuffer).contains(QLatin1String("net.core.rmem_max")));
}

// Counters from a scripted kernel and backend: deltas since the first sight,
// the link's use between ticks, the host's UDP drops only without per-socket ones.
TEST(LossMeter, countsFromTheFirstSightAndSumsAnAdaptersCameras)
{
    CLossMeter::SLinkCounters link{1000000, 7, 1, 3};
    QTemporaryDir dir;
    const QString snmp = dir.filePath("snmp");
    const auto writeSnmp = [&snmp](int errors) {
        QFile file(snmp);
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        file.write("Udp: InDatagrams NoPorts InErrors OutDatagrams RcvbufErrors SndbufErrors\n"
                   "Udp: 10 0 0 10 " + QByteArray::number(errors) + " 0\n");
    };
    writeSnmp(50);
    const auto readLink = [&link](const QString& name, CLossMeter::SLinkCounters& counters) {
        counters = link;
        return name == QLatin1String("eth1");
    };
    CLossMeter meter(readLink, snmp);
    auto camera = QSharedPointer<ParameterFakes::CScriptedParameterCollection>::create();
    for (const char* name : {"Failed_Packet", "Resend_Packet", "Resend_Request", "Buffer_Underrun"})
        camera->addInteger(QStringLiteral("@StreamGrabber0/Statistic_%1_Count").arg(QLatin1String(name)), 100, 0, 1 << 30);
    const std::vector<CLossMeter::SAdapter> adapters{{"10.0.0.1", "eth1", 1e9}, {"10.0.1.1", "gone", 1e9}};

    meter.sample(1.0, adapters, {{"cam", "10.0.0.1", camera, 0}});
    link = {1000000 + 62500000, 9, 1, 3};
    camera->setValue(QStringLiteral("@StreamGrabber0/Statistic_Failed_Packet_Count"), 130);
    camera->setValue(QStringLiteral("@StreamGrabber0/Statistic_Resend_Request_Count"), 110);
    writeSnmp(80);
    meter.sample(2.0, adapters, {{"cam", "10.0.0.1", camera, 4}});

    const CLossMeter::SAdapterFigures adapter = meter.adapter(QStringLiteral("10.0.0.1"));
    EXPECT_DOUBLE_EQ(adapter.linkUse, 0.5);
    EXPECT_EQ(adapter.missed, 2u);
    EXPECT_EQ(adapter.fifo, 0u);
    const CLossMeter::SCameraFigures figures = meter.camera(QStringLiteral("cam"));
    EXPECT_EQ(figures.missingPackets, 30u);
    EXPECT_EQ(figures.resendRequests, 10u);
    EXPECT_EQ(figures.socketDrops, -1) << "this backend cannot tell its socket's drops";
    const SLossTotals totals = meter.totals(QStringLiteral("10.0.0.1"));
    EXPECT_EQ(totals.lostFrames, 4u);
    EXPECT_EQ(totals.ringDrops, 2u);
    EXPECT_EQ(totals.socketDrops, 30u) << "the host's UDP buffer errors stand in";
    EXPECT_EQ(meter.totals(QStringLiteral("10.0.1.1")).lostFrames, 0u);

    camera->addInteger(QStringLiteral("@StreamGrabber0/Statistic_Socket_Drop_Count"), 0, 0, 1 << 30);
    meter.clear();
    meter.sample(3.0, adapters, {{"cam", "10.0.0.1", camera, 0}});
    camera->setValue(QStringLiteral("@StreamGrabber0/Statistic_Socket_Drop_Count"), 12);
    writeSnmp(500);
    meter.sample(4.0, adapters, {{"cam", "10.0.0.1", camera, 1}});
    EXPECT_EQ(meter.totals(QStringLiteral("10.0.0.1")).socketDrops, 12u) << "the stream's own socket, not the host's";
}

} // namespace
