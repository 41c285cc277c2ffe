#include "SwitchQueue.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <numeric>
#include <vector>

using bwm::link::CSwitchQueue;
using bwm::link::SSwitchQueueConfig;
using EPush = CSwitchQueue::EPush;

namespace {

constexpr std::size_t kFrame = 1514;
// 1514 + 24 bytes at 1 Gb/s.
constexpr std::int64_t kWireNs = 12304;

SSwitchQueueConfig gigabit(std::size_t capacity)
{
    SSwitchQueueConfig c;
    c.rateBitsPerSecond = 1000000000;
    c.capacityBytes = capacity;
    c.maxFrameBytes = 9234;
    return c;
}

std::vector<std::uint8_t> frameBytes(std::size_t size, std::uint8_t seed)
{
    std::vector<std::uint8_t> f(size);
    std::iota(f.begin(), f.end(), seed);
    return f;
}

// Drains every frame due at or before now, as the pump does.
std::size_t drainUntil(CSwitchQueue& q, std::int64_t now)
{
    std::size_t n = 0;
    while (!q.empty() && q.nextDueNs() <= now) {
        q.pop();
        ++n;
    }
    return n;
}

} // namespace

TEST(SwitchQueue, WireTimeCountsPreambleFcsAndGap)
{
    CSwitchQueue q(gigabit(1 << 18));
    EXPECT_EQ(q.wireTimeNs(kFrame), kWireNs);
    EXPECT_EQ(q.wireTimeNs(9014), (9014 + 24) * 8);
    SSwitchQueueConfig slow = gigabit(1 << 18);
    slow.rateBitsPerSecond = 100000000;
    EXPECT_EQ(CSwitchQueue(slow).wireTimeNs(kFrame), kWireNs * 10);
}

TEST(SwitchQueue, BurstLeavesOneWireTimeApart)
{
    CSwitchQueue q(gigabit(1 << 18));
    const auto f = frameBytes(kFrame, 0);
    for (int i = 0; i < 5; ++i)
        ASSERT_EQ(q.push(f.data(), f.size(), 1000), EPush::Queued);
    for (int i = 1; i <= 5; ++i) {
        EXPECT_EQ(q.nextDueNs(), 1000 + i * kWireNs);
        q.pop();
    }
    EXPECT_TRUE(q.empty());
}

TEST(SwitchQueue, IdleLinkBanksNoCredit)
{
    CSwitchQueue q(gigabit(1 << 18));
    const auto f = frameBytes(kFrame, 0);
    q.push(f.data(), f.size(), 0);
    q.pop();
    q.push(f.data(), f.size(), 1000000);
    q.push(f.data(), f.size(), 1000000);
    EXPECT_EQ(q.nextDueNs(), 1000000 + kWireNs);
    q.pop();
    EXPECT_EQ(q.nextDueNs(), 1000000 + 2 * kWireNs);
}

TEST(SwitchQueue, TailDropsWhenBurstExceedsBuffer)
{
    CSwitchQueue q(gigabit(10 * kFrame));
    const auto f = frameBytes(kFrame, 0);
    std::vector<EPush> results;
    for (int i = 0; i < 15; ++i)
        results.push_back(q.push(f.data(), f.size(), 0));
    EXPECT_EQ(std::count(results.begin(), results.begin() + 10, EPush::Queued), 10);
    EXPECT_EQ(std::count(results.begin() + 10, results.end(), EPush::DroppedFull), 5);
    EXPECT_EQ(q.backlogBytes(), 10 * kFrame);

    // Once three frames are on the wire, three more fit, and no fourth.
    const std::int64_t later = 3 * kWireNs;
    EXPECT_EQ(q.push(f.data(), f.size(), later), EPush::Queued);
    EXPECT_EQ(q.push(f.data(), f.size(), later), EPush::Queued);
    EXPECT_EQ(q.push(f.data(), f.size(), later), EPush::Queued);
    EXPECT_EQ(q.push(f.data(), f.size(), later), EPush::DroppedFull);
}

TEST(SwitchQueue, BacklogFollowsArrivalsNotThePumpsReads)
{
    // A late pump must not turn frames the switch had already sent into drops.
    SSwitchQueueConfig c = gigabit(2 * kFrame);
    c.storeBytes = 6 * kFrame;
    CSwitchQueue q(c);
    const auto f = frameBytes(kFrame, 0);
    for (int i = 0; i < 5; ++i)
        ASSERT_EQ(q.push(f.data(), f.size(), i * kWireNs), EPush::Queued) << i;
    EXPECT_EQ(q.size(), 5u);
    EXPECT_EQ(q.backlogBytes(), kFrame);
    EXPECT_EQ(drainUntil(q, 5 * kWireNs), 5u);
}

TEST(SwitchQueue, StampsSteppingBackAreHeldAtTheLastArrival)
{
    CSwitchQueue q(gigabit(1 << 18));
    const auto f = frameBytes(kFrame, 0);
    q.push(f.data(), f.size(), 50000);
    q.push(f.data(), f.size(), 40000);
    q.pop();
    EXPECT_EQ(q.nextDueNs(), 50000 + 2 * kWireNs);
}

TEST(SwitchQueue, FramesComeOutWholeAndInOrderAcrossTheStoreWrap)
{
    SSwitchQueueConfig c = gigabit(4096);
    c.maxFrameBytes = 1600;
    c.storeBytes = 3 * 4096;
    CSwitchQueue q(c);
    std::int64_t t = 0;
    for (int round = 0; round < 50; ++round) {
        const std::size_t sizes[] = {60, 1514, 777, 1200};
        std::vector<std::vector<std::uint8_t>> sent;
        for (std::size_t s : sizes) {
            sent.push_back(frameBytes(s, static_cast<std::uint8_t>(round * 7 + s)));
            ASSERT_EQ(q.push(sent.back().data(), s, t), EPush::Queued);
        }
        for (const auto& expected : sent) {
            const auto got = q.front();
            ASSERT_EQ(got.size, expected.size());
            ASSERT_TRUE(std::equal(expected.begin(), expected.end(), got.data)) << round;
            q.pop();
        }
        t += 1000000;
    }
}

TEST(SwitchQueue, StalledPumpOverrunsTheStoreInsteadOfOverwriting)
{
    SSwitchQueueConfig c = gigabit(2 * kFrame);
    c.maxFrameBytes = kFrame;
    c.storeBytes = 6 * kFrame;
    CSwitchQueue q(c);
    const auto f = frameBytes(kFrame, 3);
    int overruns = 0;
    for (int i = 0; i < 20; ++i)
        overruns += q.push(f.data(), f.size(), i * 10 * kWireNs) == EPush::DroppedOverrun;
    EXPECT_EQ(q.size(), 6u);
    EXPECT_EQ(overruns, 14);
    EXPECT_TRUE(std::equal(f.begin(), f.end(), q.front().data));
}

TEST(SwitchQueue, OversizedFrameIsRefused)
{
    SSwitchQueueConfig c = gigabit(1 << 18);
    c.maxFrameBytes = 1518;
    CSwitchQueue q(c);
    const auto f = frameBytes(9014, 0);
    EXPECT_EQ(q.push(f.data(), f.size(), 0), EPush::DroppedTooBig);
    EXPECT_TRUE(q.empty());
}

struct SLoadCase
{
    const char* name;
    double offeredOverLink;
    double expectedDropShare;
};

class SwitchQueueLoad : public testing::TestWithParam<SLoadCase>
{
};

// Steady offered load against the link rate: below it nothing is lost, above
// it exactly the excess is, and what leaves never exceeds the link.
TEST_P(SwitchQueueLoad, DropsTheExcessOfTheOffer)
{
    const SLoadCase& c = GetParam();
    CSwitchQueue q(gigabit(1 << 18));
    const auto f = frameBytes(kFrame, 0);
    const auto gap = static_cast<std::int64_t>(kWireNs / c.offeredOverLink);
    const int offered = 100000;
    int dropped = 0;
    std::size_t delivered = 0;
    std::int64_t t = 0;
    for (int i = 0; i < offered; ++i, t += gap) {
        delivered += drainUntil(q, t);
        dropped += q.push(f.data(), f.size(), t) != EPush::Queued;
    }
    const std::int64_t end = t;
    EXPECT_NEAR(double(dropped) / offered, c.expectedDropShare, 0.01);
    EXPECT_LE(double(delivered) * kWireNs, double(end));
    delivered += drainUntil(q, INT64_MAX - 1);
    EXPECT_EQ(delivered + dropped, std::size_t(offered));
}

INSTANTIATE_TEST_SUITE_P(
    Offers, SwitchQueueLoad,
    testing::Values(SLoadCase{"half_the_link_loses_nothing", 0.5, 0.0},
                    SLoadCase{"just_under_the_link_loses_nothing", 0.99, 0.0},
                    SLoadCase{"twice_the_link_loses_half", 2.0, 0.5},
                    SLoadCase{"three_cameras_at_full_rate_lose_two_thirds", 3.0, 2.0 / 3.0}),
    [](const testing::TestParamInfo<SLoadCase>& info) { return std::string(info.param.name); });
