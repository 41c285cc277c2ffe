#include "EmulatorFakes.h"
#include "GvspStreamer.h"

#include <gtest/gtest.h>

#include <cmath>

namespace gigeemu::test {
namespace {

struct CStreamRig {
    explicit CStreamRig(SConfig c, std::size_t mtu = 65535)
        : config(std::move(c))
        , sink(clock, mtu)
        , model(config)
        , source(model)
        , streamer(config, sink, clock, source)
    {
        model.setDestination(0x7F000001);
        model.setHostPort(5000);
    }
    void runFor(double seconds)
    {
        const std::int64_t end = clock.m_now + std::int64_t(seconds * 1e9);
        while (clock.m_now < end) {
            const std::int64_t next = streamer.service(clock.m_now);
            clock.m_now = std::max(clock.m_now + 1, std::min(next, end));
        }
    }
    std::vector<const SSentPacket*> withFormat(std::uint8_t format) const
    {
        std::vector<const SSentPacket*> out;
        for (const auto& p : sink.m_sent)
            if (p.bytes[4] == format)
                out.push_back(&p);
        return out;
    }

    CFakeClock clock;
    SConfig config;
    CRecordingSink sink;
    CCameraModel model;
    CModelSource source;
    CGvspStreamer streamer;
};

SConfig vga(std::uint32_t linkMbps)
{
    SConfig c;
    c.width = c.sensorWidth = 640;
    c.height = c.sensorHeight = 480;
    c.linkMbps = linkMbps;
    return c;
}

struct SPacingCase {
    const char* name;
    std::uint32_t linkMbps;
    float fps; // 0: frame rate disabled
    std::uint32_t scpd;
    std::uint32_t ftd;
};

class Pacing : public testing::TestWithParam<SPacingCase> {};

TEST_P(Pacing, PacketsLeaveOnTheLinkScheduleAndFramesAtTheResultingRate)
{
    const SPacingCase& c = GetParam();
    CStreamRig rig(vga(c.linkMbps));
    rig.model.setFrameRateEnable(c.fps > 0 ? 1 : 0);
    if (c.fps > 0)
        rig.model.setFrameRate(c.fps);
    rig.model.setScpd(c.scpd);
    rig.model.setFtd(c.ftd);
    rig.model.startAcquisition();
    const std::int64_t t0 = rig.clock.m_now;
    rig.runFor(0.5);

    const CLinkModel& link = rig.model.link();
    const double interval = 1e9 / rig.model.resultingFrameRate();
    const double gap = c.scpd; // 1 GHz ticks
    std::size_t frame = 0;
    double expected = 0;
    for (const SSentPacket& p : rig.sink.m_sent) {
        if (p.bytes[4] == 1)
            expected = double(t0) + double(frame++) * interval + c.ftd;
        ASSERT_NEAR(double(p.atNs), expected, 1.0) << "frame " << frame << " packet " << getBe32(&p.bytes[4]);
        expected += link.wireSeconds(std::uint32_t(p.bytes.size() + 28)) * 1e9 + gap;
    }
    EXPECT_EQ(frame, std::size_t(std::ceil((0.5e9 - c.ftd) / interval - 1e-9)));
    EXPECT_EQ(rig.streamer.counters().packets, rig.sink.m_sent.size());
}

INSTANTIATE_TEST_SUITE_P(Table, Pacing,
                         testing::Values(SPacingCase{"link_limits", 100, 0, 0, 0},
                                         SPacingCase{"frame_rate_limits", 1000, 20, 0, 0},
                                         SPacingCase{"packet_delay_limits", 1000, 0, 20000, 0},
                                         SPacingCase{"frame_delay_shifts_every_frame", 1000, 25, 5000, 3000000}),
                         [](const auto& info) { return std::string(info.param.name); });

// A burst from a late wake-up would overflow a switch that exact pacing does
// not; lost link time would lower the frame rate.
TEST(Streamer, ALateWakeUpCatchesUpHalfAMillisecondAtOnceAndTheRestSlowly)
{
    CStreamRig rig(vga(100)); // 1500-byte packets every 123 us
    rig.model.startAcquisition();
    rig.runFor(0.001);
    const std::size_t before = rig.sink.m_sent.size();
    rig.clock.m_now += 3000000;
    rig.streamer.service(rig.clock.m_now);
    const std::size_t burst = rig.sink.m_sent.size() - before;
    EXPECT_GE(burst, 4u);
    EXPECT_LE(burst, 5u);

    // The rest is paid back at most 9 % faster than the link, so the packets
    // of the whole stretch are those of an exact camera.
    const std::size_t afterBurst = rig.sink.m_sent.size();
    rig.runFor(0.3);
    const double wireNs = rig.model.link().wireSeconds(1500) * 1e9;
    for (std::size_t i = afterBurst + 1; i < rig.sink.m_sent.size(); ++i) {
        if (rig.sink.m_sent[i - 1].bytes.size() + 28 == 1500) {
            ASSERT_GE(double(rig.sink.m_sent[i].atNs - rig.sink.m_sent[i - 1].atNs), 0.92 * wireNs - 1.0) << i;
        }
    }
    CStreamRig exact(vga(100));
    exact.model.startAcquisition();
    exact.runFor(0.001 + 0.003 + 0.3);
    EXPECT_NEAR(double(rig.sink.m_sent.size()), double(exact.sink.m_sent.size()), 2.0) << "no link time lost";
}

TEST(Streamer, ResendServesHeldPacketsIdenticallyAndExpiredOnesAsUnavailable)
{
    SConfig c = vga(1000);
    c.resendFrames = 2;
    CStreamRig rig(c);
    rig.model.startAcquisition();
    rig.runFor(0.12); // frames 1..4 at 30 fps
    ASSERT_EQ(rig.withFormat(1).size(), 4u);
    rig.model.stopAcquisition();
    std::vector<SSentPacket> original(rig.sink.m_sent);
    rig.sink.m_sent.clear();

    rig.streamer.resend(4, 3, 5);
    rig.streamer.resend(3, 210, 0xFFFFFF);
    rig.streamer.resend(1, 7, 7);
    rig.runFor(0.01);
    ASSERT_EQ(rig.sink.m_sent.size(), 3u + 2u + 1u);
    auto originalOf = [&](std::uint16_t block, std::uint32_t id) {
        for (const auto& p : original)
            if (getBe16(&p.bytes[2]) == block && (getBe32(&p.bytes[4]) & 0xFFFFFF) == id)
                return p.bytes;
        return std::vector<std::uint8_t>{};
    };
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(rig.sink.m_sent[i].bytes, originalOf(4, 3 + i));
    EXPECT_EQ(rig.sink.m_sent[3].bytes, originalOf(3, 210));
    EXPECT_EQ(rig.sink.m_sent[4].bytes, originalOf(3, 211)) << "0xFFFFFF runs through the trailer";
    EXPECT_EQ(rig.sink.m_sent[5].bytes, (std::vector<std::uint8_t>{0x80, 0x0C, 0, 1, 3, 0, 0, 7}));
    EXPECT_EQ(rig.streamer.counters().resent, 5u);
}

TEST(Streamer, InjectedLossSparesResentPackets)
{
    SConfig c = vga(1000);
    c.lossRatio = 0.3;
    CStreamRig rig(c);
    rig.model.setAcquisitionMode(1);
    rig.model.startAcquisition();
    rig.runFor(0.05);
    const std::uint32_t lost = rig.streamer.counters().droppedByLoss;
    EXPECT_NEAR(lost, 0.3 * 212, 25);
    EXPECT_EQ(rig.sink.m_sent.size() + lost, 212u);
    rig.sink.m_sent.clear();
    rig.streamer.resend(1, 0, 0xFFFFFF);
    rig.runFor(0.01);
    EXPECT_EQ(rig.sink.m_sent.size(), 212u);
    EXPECT_EQ(rig.streamer.counters().droppedByLoss, lost);
}

TEST(Streamer, TestPacketHasExactSizeAndIsDroppedAboveThePathMtu)
{
    CStreamRig rig(vga(1000), 1500);
    SStreamSettings s = rig.model.streamSettings();
    s.packetSize = 1500;
    rig.streamer.fireTestPacket(s);
    ASSERT_EQ(rig.sink.m_sent.size(), 1u);
    EXPECT_EQ(rig.sink.m_sent[0].bytes.size(), 1472u);
    s.packetSize = 1504;
    rig.streamer.fireTestPacket(s);
    EXPECT_EQ(rig.sink.m_sent.size(), 1u);
    EXPECT_EQ(rig.streamer.counters().droppedForSize, 1u);
    EXPECT_EQ(rig.streamer.counters().testPackets, 1u);
}

TEST(Streamer, SoftwareTriggerExposesOncePerMinimumInterval)
{
    CStreamRig rig(vga(1000));
    rig.model.setTriggerMode(0, 1);
    rig.model.startAcquisition();
    rig.runFor(0.2);
    EXPECT_EQ(rig.streamer.counters().frames, 0u);
    rig.streamer.softwareTrigger(0);
    rig.streamer.softwareTrigger(0);
    rig.runFor(0.001);
    EXPECT_EQ(rig.streamer.counters().frames, 1u) << "the second trigger came too early";
    rig.runFor(0.01);
    rig.streamer.softwareTrigger(0);
    rig.runFor(0.01);
    EXPECT_EQ(rig.streamer.counters().frames, 2u);
    EXPECT_EQ(rig.withFormat(2).size(), 2u);
}

TEST(Streamer, FramesOfAClosedChannelAreCountedNotSent)
{
    CStreamRig rig(vga(1000));
    rig.model.setHostPort(0);
    rig.model.startAcquisition();
    rig.runFor(0.1);
    EXPECT_EQ(rig.streamer.counters().frames, 3u);
    EXPECT_EQ(rig.streamer.counters().framesSent, 0u);
    EXPECT_TRUE(rig.sink.m_sent.empty());
}

// A camera lowers its frame rate to what its pacing lets through rather than
// fill its queue: every frame it produces is sent.
TEST(Streamer, PacingSlowerThanTheFramePeriodLowersTheRateAndLosesNoFrame)
{
    for (const double periodsPerFrame : {0.8, 2.0}) {
        SCOPED_TRACE(periodsPerFrame);
        CStreamRig rig(vga(1000));
        rig.model.setFrameRateEnable(1);
        rig.model.setFrameRate(20);
        const double packets = std::ceil(640.0 * 480 / (1500 - 36));
        rig.model.setScpd(std::uint32_t(periodsPerFrame * 0.05e9 / packets));
        rig.model.startAcquisition();
        rig.runFor(4.0);
        const double frames = rig.streamer.counters().frames;
        EXPECT_NEAR(frames, 80 / std::max(1.0, periodsPerFrame), 2.0);
        EXPECT_NEAR(rig.streamer.counters().framesSent, frames, 1.0);
    }
}

TEST(Streamer, OversizedPacketsAreDroppedForSize)
{
    CStreamRig rig(vga(1000), 1500);
    rig.model.setPacketSize(9000);
    rig.model.setAcquisitionMode(1);
    rig.model.startAcquisition();
    rig.runFor(0.05);
    EXPECT_EQ(rig.withFormat(3).size(), 0u);
    EXPECT_EQ(rig.streamer.counters().droppedForSize, 35u);
    EXPECT_EQ(rig.withFormat(1).size(), 1u) << "leader and trailer are small enough";
}

} // namespace
} // namespace gigeemu::test
