#include "CameraModel.h"
#include "LinkModel.h"

#include <gtest/gtest.h>

namespace gigeemu::test {
namespace {

SConfig fullHd(std::uint64_t tickHz = 1000000000)
{
    SConfig c;
    c.width = c.sensorWidth = 1920;
    c.height = c.sensorHeight = 1200;
    c.tickHz = tickHz;
    c.throughputLimit = true;
    return c;
}

TEST(LinkModel, WorkedExampleFrameGeometry)
{
    const CLinkModel link(1000, 1000000000);
    EXPECT_EQ(CLinkModel::payloadPacketCount(2304000, 1500), 1574u);
    EXPECT_EQ(CLinkModel::bytesPerFrame(2304000, 1500), 2360780u);
    EXPECT_NEAR(link.frameSeconds(2304000, 1500, 0), 0.019365344, 1e-12);
    EXPECT_EQ(CLinkModel::payloadPacketCount(1464 * 10, 1500), 10u) << "an exact multiple needs no short packet";
}

struct SRateCase {
    const char* name;
    std::uint64_t tickHz;
    bool frameRateEnabled;
    std::uint32_t limit; // 0: limit mode off
    std::uint64_t scpd;
    double fps;
    std::uint64_t dct;
};

class WorkedExample : public testing::TestWithParam<SRateCase> {};

TEST_P(WorkedExample, GivesTheKnownRates)
{
    const SRateCase& c = GetParam();
    CCameraModel m(fullHd(c.tickHz));
    m.setFrameRateEnable(c.frameRateEnabled ? 1 : 0);
    if (c.limit) {
        ASSERT_EQ(m.setLimit(c.limit), eSuccess);
        ASSERT_EQ(m.setLimitMode(1), eSuccess);
    }
    EXPECT_EQ(m.scpd(), c.scpd);
    EXPECT_NEAR(m.resultingFrameRate(), c.fps, 0.005);
    EXPECT_EQ(m.deviceThroughput(), c.dct);
}

INSTANTIATE_TEST_SUITE_P(Table, WorkedExample,
                         testing::Values(SRateCase{"link_limits", 1000000000, false, 0, 0, 51.64, 121907465},
                                         SRateCase{"frame_rate_30_limits", 1000000000, true, 0, 0, 30.0, 70823400},
                                         SRateCase{"throughput_limit_56MBps", 1000000000, false, 56000000, 14482,
                                                   23.70, 55957271},
                                         SRateCase{"link_limits_at_125MHz", 125000000, false, 0, 0, 51.64,
                                                   121907465},
                                         SRateCase{"throughput_limit_at_125MHz", 125000000, false, 56000000, 1811,
                                                   23.70, 55944732}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(LinkModel, ThroughputNeverRisesWithPacketDelayAndIsFlatWhileFrameRateLimits)
{
    CCameraModel m(fullHd());
    m.setFrameRate(20.0f);
    std::uint64_t previous = m.deviceThroughput();
    int flat = 0;
    for (std::uint32_t scpd = 0; scpd <= 100000; scpd += 500) {
        ASSERT_EQ(m.setScpd(scpd), eSuccess);
        const std::uint64_t dct = m.deviceThroughput();
        EXPECT_LE(dct, previous) << "SCPD " << scpd;
        flat += dct == previous;
        previous = dct;
    }
    EXPECT_GT(flat, 10) << "the 20 fps plateau must show before the delay takes over";
    EXPECT_LT(previous, 20u * CLinkModel::bytesPerFrame(m.payloadSize(), 1500) / 2);
}

TEST(LinkModel, LimitVariantKeepsThroughputBelowTheLimit)
{
    for (std::uint32_t limit : {1000000u, 5000000u, 30000000u, 90000000u, 124000000u}) {
        CCameraModel m(fullHd());
        m.setFrameRateEnable(0);
        m.setLimit(limit);
        m.setLimitMode(1);
        EXPECT_LE(m.deviceThroughput(), limit) << limit;
        EXPECT_LE(m.scpd(), m.scpdMax());
    }
    CCameraModel m(fullHd());
    m.setLimit(1000000);
    m.setLimitMode(1);
    EXPECT_EQ(m.scpd(), 1487696u);
    m.setLimitMode(0);
    EXPECT_EQ(m.scpd(), 1487696u) << "mode off keeps the last delay";
    EXPECT_EQ(m.setScpd(10), eSuccess);
}

} // namespace
} // namespace gigeemu::test
