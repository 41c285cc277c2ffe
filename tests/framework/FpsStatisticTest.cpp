#include <Utilities/FpsStatistic.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

std::int64_t g_now = 0;
std::int64_t fakeNow()
{
    return g_now;
}

constexpr std::int64_t kMs = 1000000;

struct SRateCase
{
    const char* scenario;
    int images;
    std::int64_t intervalNs;
    std::int64_t silenceNs; // after the last image
    double fps;
    size_t bytesPerSecond;
};

class FpsStatisticRates : public ::testing::TestWithParam<SRateCase>
{
};

// Every image carries 1000 bytes.
TEST_P(FpsStatisticRates, averagesOverTheWindow)
{
    const SRateCase& c = GetParam();
    g_now = 5000 * kMs;
    FpsStatistic statistic(&fakeNow);
    for (int i = 0; i < c.images; ++i) {
        g_now += c.intervalNs;
        statistic.addSample(1000);
    }
    g_now += c.silenceNs;
    double fps = 0;
    size_t bytes = 1;
    statistic.computeResult(fps, bytes);
    EXPECT_NEAR(fps, c.fps, 1e-9 * (1.0 + std::abs(c.fps)));
    EXPECT_NEAR(double(bytes), double(c.bytesPerSecond), 1.0);
}

INSTANTIATE_TEST_SUITE_P(
    Window, FpsStatisticRates,
    ::testing::Values(SRateCase{"nothing_yet", 0, 10 * kMs, 0, -1.0, 0},
                      SRateCase{"one_image_is_nothing_to_average", 1, 10 * kMs, 0, -1.0, 0},
                      SRateCase{"starting_stream_measured_from_its_first_image", 10, 10 * kMs, 0, 100.0, 100000},
                      SRateCase{"steady_stream_fills_the_second", 300, 10 * kMs, 0, 100.0, 100000},
                      SRateCase{"stopped_stream_decays", 300, 10 * kMs, 500 * kMs, 50.0, 50000},
                      SRateCase{"long_stopped_stream_is_a_measured_zero", 300, 10 * kMs, 2000 * kMs, 0.0, 0},
                      SRateCase{"beyond_capacity_the_window_shrinks", 3000, 1 * kMs, 0, 1000.0, 1000000}),
    [](const auto& info) { return std::string(info.param.scenario); });

TEST(FpsStatistic, resetForgetsEarlierImages)
{
    g_now = 0;
    FpsStatistic statistic(&fakeNow);
    for (int i = 0; i < 50; ++i) {
        g_now += 10 * kMs;
        statistic.addSample(1000);
    }
    statistic.reset();
    double fps = 0;
    size_t bytes = 1;
    statistic.computeResult(fps, bytes);
    EXPECT_EQ(fps, -1.0);
    EXPECT_EQ(bytes, 0u);
    for (int i = 0; i < 5; ++i) {
        g_now += 50 * kMs;
        statistic.addSample(2000);
    }
    statistic.computeResult(fps, bytes);
    EXPECT_DOUBLE_EQ(fps, 20.0);
    EXPECT_EQ(bytes, 40000u);
}

} // namespace
