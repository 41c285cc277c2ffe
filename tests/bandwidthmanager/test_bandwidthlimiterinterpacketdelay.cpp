#include "bandwidthlimiterinterpacketdelay.h"

#include <parameters/fakes/CScriptedParameterCollection.h>

#include <gtest/gtest.h>

#include <QSlider>

#include <algorithm>
#include <cmath>
#include <vector>
#include <cstdlib>

using namespace ParameterFakes;

namespace {

const QString kDelay = QStringLiteral("GevSCPD");
const QString kThroughput = QStringLiteral("GevSCDCT");

qint64 megabytes(qint64 bytesPerSecond)
{
    return (bytesPerSecond + 500000) / 1000000;
}

// A GigE camera whose reported throughput falls as the inter-packet delay
// rises, up to what its frame rate lets it send.
class ScriptedGigECamera : public ::testing::Test
{
protected:
    void SetUp() override
    {
        parameters->addInteger(kDelay, 1000, 0, 100000);
        parameters->addInteger(kThroughput, 0, 0, 1000000000, 1, "RO");
        parameters->setValueLaw(kThroughput, [this] {
            const qint64 delay = parameters->value(kDelay).toLongLong();
            return std::min(frameRateCap, 125000000LL * 2000 / (2000 + delay));
        });
    }

    qint64 delay() const { return parameters->value(kDelay).toLongLong(); }
    qint64 throughput() const { return parameters->value(kThroughput).toLongLong(); }
    int writes() const { return parameters->writeCount(kDelay); }

    QSharedPointer<CScriptedParameterCollection> parameters = QSharedPointer<CScriptedParameterCollection>::create();
    qint64 frameRateCap = 1000000000;
};

TEST_F(ScriptedGigECamera, rangeComesFromTheTwoEndsOfTheDelay)
{
    BandwidthLimiterInterPacketDelay limiter(parameters);

    EXPECT_TRUE(limiter.isEnabled());
    EXPECT_EQ(limiter.minimum(), 2);   // 2.45 MB/s at the largest delay
    EXPECT_EQ(limiter.maximum(), 125); // at delay 0
    EXPECT_EQ(delay(), 1000);          // put back
    EXPECT_EQ(limiter.value(), 83);    // 83.3 MB/s at delay 1000
    EXPECT_EQ(limiter.toolTip(), QStringLiteral("Range: 2..125"));
}

TEST_F(ScriptedGigECamera, slowestEndThatRoundsToNothingGivesAMinimumOf1)
{
    parameters->setRange(kDelay, 0, 100000000);
    BandwidthLimiterInterPacketDelay limiter(parameters);
    EXPECT_EQ(limiter.minimum(), 1);
}

struct SWishCase { const char* scenario; qint64 startDelay;
    qint64 capAfterOpening; /* what the camera sends at most once the editor is open */ int wish; int minWrites;
    int maxWrites; qint64 delayAfter; /* -1: whichever meets the wish within 1 MB/s */ int shown; };

class LimiterWish : public ScriptedGigECamera, public ::testing::WithParamInterface<SWishCase> {};

TEST_P(LimiterWish, isMetWithin1MBOrEndsAtTheSmallestDelay)
{
    const SWishCase& c = GetParam();
    parameters->setValue(kDelay, c.startDelay);
    BandwidthLimiterInterPacketDelay limiter(parameters);
    frameRateCap = c.capAfterOpening;
    const int writesBefore = writes();

    // The user's slider; setValue where the slider would not move.
    c.minWrites > 0 ? limiter.slider()->setValue(c.wish) : limiter.setValue(c.wish);

    if (c.delayAfter < 0) {
        EXPECT_LE(std::abs(megabytes(throughput()) - c.wish), 1);
    } else {
        EXPECT_EQ(delay(), c.delayAfter);
    }
    EXPECT_LE(std::abs(limiter.value() - c.shown), c.delayAfter < 0 ? 1 : 0);
    EXPECT_GE(writes() - writesBefore, c.minWrites);
    EXPECT_LE(writes() - writesBefore, c.maxWrites);
}

INSTANTIATE_TEST_SUITE_P(Wishes, LimiterWish,
    ::testing::Values(SWishCase{"below_the_current_rate", 1000, 1000000000, 40, 1, 32, -1, 40},
                      SWishCase{"near_the_slow_end", 1000, 1000000000, 5, 1, 32, -1, 5},
                      SWishCase{"above_the_current_rate", 1000, 1000000000, 110, 1, 32, -1, 110},
                      SWishCase{"at_the_fast_end", 1000, 1000000000, 125, 1, 32, -1, 125},
                      SWishCase{"equal_to_the_current_rounded_rate_writes_nothing", 1000, 1000000000, 83, 0, 0, 1000, 83},
                      SWishCase{"unreachable_ends_at_the_smallest_delay_showing_what_it_sends", 1000, 60000000, 100, 1,
                                32, 0, 60},
                      // Reached exactly at some delay below 2167; the camera sends as much at 0.
                      SWishCase{"camera_at_its_own_limit_is_left_at_the_smallest_delay", 50000, 60000000, 60, 1, 32, 0,
                                60}),
    [](const ::testing::TestParamInfo<SWishCase>& info) { return std::string(info.param.scenario); });

TEST_F(ScriptedGigECamera, failingWriteEndsTheSearchWhereTheCameraIs)
{
    BandwidthLimiterInterPacketDelay limiter(parameters);
    parameters->failNext(kDelay, EScriptedAccess::Write, 1, 2);

    limiter.setValue(20);

    EXPECT_EQ(parameters->writtenValues(kDelay).size(), 3 + 2);
    EXPECT_EQ(delay(), parameters->writtenValues(kDelay).last().toLongLong());
}

// A camera of the GigE link model: 1920x1200 frames, throughput = bytes of a
// frame over the time its packets take on the wire plus the delays.
struct SLinkCase { qint64 packetSize; qint64 linkMbps; qint64 tickHz; };

class LinkModelCamera : public ::testing::TestWithParam<SLinkCase>
{
protected:
    void SetUp() override
    {
        const SLinkCase& c = GetParam();
        parameters->addInteger(QStringLiteral("GevSCPSPacketSize"), c.packetSize, 576, 9000);
        parameters->addInteger(QStringLiteral("GevLinkSpeed"), c.linkMbps, 0, 100000, 1, "RO");
        parameters->addInteger(QStringLiteral("GevTimestampTickFrequency"), c.tickHz, 1, 4000000000LL, 1, "RO");
        parameters->addInteger(kDelay, 0, 0, c.tickHz / 10);
        parameters->addInteger(kThroughput, 0, 0, 4000000000LL, 1, "RO");
        parameters->setValueLaw(kThroughput, [this] { return rate(parameters->value(kDelay).toLongLong()); });
    }
    qint64 rate(qint64 delay) const
    {
        const SLinkCase& c = GetParam();
        const double payload = 1920.0 * 1200.0;
        const double packets = std::ceil(payload / double(c.packetSize - 36));
        const double bytes = 116 + payload + 36 * packets;
        const double wire = (bytes + 38 * (packets + 2)) * 8 / (double(c.linkMbps) * 1e6);
        const double delays = (packets + 2) * double(delay) / double(c.tickHz);
        return qint64(std::min(frameRateCap, bytes / (wire + delays)));
    }

    QSharedPointer<CScriptedParameterCollection> parameters = QSharedPointer<CScriptedParameterCollection>::create();
    double frameRateCap = 1e12;
};

// Every reachable wish is met within 1 MB/s in at most 8 writes, 4 or fewer
// for half of them; an unreachable one ends at the smallest delay. Where one
// tick of delay moves the rate by more (10 Gbit/s, small packets), no
// neighbouring delay may come closer.
TEST_P(LinkModelCamera, wishesAreMetInFewWrites)
{
    BandwidthLimiterInterPacketDelay limiter(parameters);
    const qint64 fastest = limiter.maximum();
    std::vector<int> counts;
    for (const double share : {0.05, 0.1, 0.25, 0.4, 0.5, 0.6, 0.75, 0.9, 0.97}) {
        const int wish = std::max(1, int(share * double(fastest)));
        if (wish == megabytes(parameters->value(kThroughput).toLongLong()))
            continue;
        const int before = parameters->writeCount(kDelay);
        limiter.setValue(wish);
        const int writes = parameters->writeCount(kDelay) - before;
        counts.push_back(writes);
        const qint64 delay = parameters->value(kDelay).toLongLong();
        const auto miss = [&](qint64 at) { return std::abs(double(rate(at)) / 1e6 - wish); };
        EXPECT_LE(miss(delay), std::max(1.0, std::min(miss(delay - 1), miss(delay + 1)) + 1.0)) << "wish " << wish;
        EXPECT_EQ(limiter.value(), megabytes(parameters->value(kThroughput).toLongLong()));
        EXPECT_LE(writes, 8) << "wish " << wish;
    }
    std::sort(counts.begin(), counts.end());
    EXPECT_LE(counts[counts.size() / 2], 4) << "median writes";

    frameRateCap = 0.3 * double(fastest) * 1e6;
    limiter.setValue(int(0.6 * double(fastest)));
    EXPECT_EQ(parameters->value(kDelay).toLongLong(), 0) << "a wish above what the camera sends";
    EXPECT_EQ(limiter.value(), megabytes(qint64(frameRateCap)));
}

INSTANTIATE_TEST_SUITE_P(Links, LinkModelCamera,
    ::testing::Values(SLinkCase{1500, 100, 125000000}, SLinkCase{8192, 100, 1000000000},
                      SLinkCase{9000, 100, 125000000}, SLinkCase{1500, 1000, 1000000000},
                      SLinkCase{8192, 1000, 125000000}, SLinkCase{9000, 1000, 1000000000},
                      SLinkCase{1500, 10000, 125000000}, SLinkCase{8192, 10000, 1000000000},
                      SLinkCase{9000, 10000, 125000000}),
    [](const ::testing::TestParamInfo<SLinkCase>& info) {
        return "packet" + std::to_string(info.param.packetSize) + "_link" + std::to_string(info.param.linkMbps) + "_tick"
            + std::to_string(info.param.tickHz / 1000000) + "MHz";
    });

struct SDisabledCase { const char* scenario; bool hasThroughput; QString delayAccess; };

class LimiterWithoutSearch : public ::testing::TestWithParam<SDisabledCase> {};

TEST_P(LimiterWithoutSearch, isDisabledAt112Of1To125AndWritesNothing)
{
    const SDisabledCase& c = GetParam();
    auto parameters = QSharedPointer<CScriptedParameterCollection>::create();
    parameters->addInteger(kDelay, 1000, 0, 100000, 1, c.delayAccess);
    if (c.hasThroughput)
        parameters->addInteger(kThroughput, 50000000, 0, 1000000000, 1, "RO");

    BandwidthLimiterInterPacketDelay limiter(parameters);

    EXPECT_FALSE(limiter.isEnabled());
    EXPECT_EQ(limiter.minimum(), 1);
    EXPECT_EQ(limiter.maximum(), 125);
    EXPECT_EQ(limiter.value(), 112);
    limiter.slider()->setValue(50);
    EXPECT_EQ(parameters->writeCount(kDelay), 0);
}

INSTANTIATE_TEST_SUITE_P(Cameras, LimiterWithoutSearch,
    ::testing::Values(SDisabledCase{"camera_without_GevSCDCT", false, "RW"},
                      SDisabledCase{"read_only_delay", true, "RO"}),
    [](const ::testing::TestParamInfo<SDisabledCase>& info) { return std::string(info.param.scenario); });

} // namespace
