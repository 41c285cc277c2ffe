#include "framepacer.h"

#include <parameters/fakes/CScriptedParameterCollection.h>

#include <gtest/gtest.h>

#include <cmath>

using Plugin::BandwidthManager::CFramePacer;
using ParameterFakes::CScriptedParameterCollection;

namespace {

// A GigE camera whose frame rate is capped: it reports the throughput of
// min(frame rate, what the link lets through at the delay), as cameras do.
struct SCamera
{
    double linkMbps = 100.0;
    qint64 packetSize = 1500;
    qint64 payload = 1024 * 768;
    double fps = 2.0;
    qint64 maximumDelay = 10000000; // ticks of 1 ns
    qint64 delay = 0;

    qint64 packets() const { return (payload + packetSize - 37) / (packetSize - 36) + 2; }
    double frameBytes() const { return double(payload + 36 * packets()); }
    // Wire time of a frame at a delay: every packet, its Ethernet overhead and the gap after it.
    double frameSeconds(qint64 atDelay) const
    {
        return (frameBytes() + 38.0 * double(packets())) * 8.0 / (linkMbps * 1e6) + double(packets()) * double(atDelay) * 1e-9;
    }
    qint64 throughput(qint64 atDelay) const
    {
        return qint64(std::floor(std::min(fps, 1.0 / frameSeconds(atDelay)) * frameBytes()));
    }
    qint64 need() const { return throughput(0); }
};

QSharedPointer<CScriptedParameterCollection> scripted(const SCamera& camera)
{
    auto collection = QSharedPointer<CScriptedParameterCollection>::create();
    collection->addInteger(QStringLiteral("GevSCPD"), camera.delay, 0, camera.maximumDelay);
    collection->addInteger(QStringLiteral("GevSCDCT"), 0, 0, 4294967295LL, 1, "RO");
    CScriptedParameterCollection* raw = collection.data();
    collection->setValueLaw(QStringLiteral("GevSCDCT"), [raw, camera] {
        return QVariant(camera.throughput(raw->value(QStringLiteral("GevSCPD")).toLongLong()));
    });
    return collection;
}

struct SPacingCase { const char* scenario; SCamera camera; double shareMBs;
    /* Share of the frame period that a paced frame takes, and the paced rate, as need / period share. */
    double periodUse; };

class Pacing : public ::testing::TestWithParam<SPacingCase> {};

TEST_P(Pacing, spreadsTheFrameWithoutLosingFrames)
{
    const SPacingCase& c = GetParam();
    const auto collection = scripted(c.camera);
    const qint64 share = qint64(c.shareMBs * 1e6);

    const qint64 paced = CFramePacer(collection).pace(share);

    const qint64 delay = collection->value(QStringLiteral("GevSCPD")).toLongLong();
    const double periodUse = c.camera.frameSeconds(delay) * c.camera.fps;
    EXPECT_EQ(c.camera.throughput(delay), c.camera.need()) << "the frame rate is kept";
    EXPECT_NEAR(periodUse, c.periodUse, 0.01) << "delay " << delay;
    EXPECT_LE(paced, share) << "never faster than the share";
    EXPECT_NEAR(double(paced), double(c.camera.need()) / periodUse, double(c.camera.need()) * 0.01);
    EXPECT_LE(collection->writeCount(QStringLiteral("GevSCPD")), 12) << "a handful of round trips";
}

INSTANTIATE_TEST_SUITE_P(FramePacer, Pacing, ::testing::Values(
        SPacingCase{"slow_camera_far_below_its_share", SCamera{}, 2.8, 0.8},
        SPacingCase{"share_just_above_the_need_sets_the_rate", SCamera{}, 1.7, 1.611744 / 1.7},
        SPacingCase{"jumbo_packets_on_a_gigabit_link", SCamera{1000.0, 9000, 1920 * 1200, 5.0}, 40.0, 0.8},
        SPacingCase{"small_delay_range", SCamera{1000.0, 1500, 640 * 480, 30.0, 200000}, 30.0, 0.8}),
    [](const auto& info) { return std::string(info.param.scenario); });

struct SUntouchedCase { const char* scenario; SCamera camera; double shareMBs; };

class LeftAlone : public ::testing::TestWithParam<SUntouchedCase> {};

TEST_P(LeftAlone, givesMinusOneAndWritesNothing)
{
    const SUntouchedCase& c = GetParam();
    const auto collection = scripted(c.camera);

    EXPECT_EQ(CFramePacer(collection).pace(qint64(c.shareMBs * 1e6)), -1);
    EXPECT_EQ(collection->writeCount(QStringLiteral("GevSCPD")), 0);
}

INSTANTIATE_TEST_SUITE_P(FramePacer, LeftAlone,
    ::testing::Values(SUntouchedCase{"needs_its_whole_share", SCamera{}, 1.0},
                      SUntouchedCase{"the_limiter_already_slowed_it", SCamera{100.0, 1500, 1024 * 768, 2.0, 10000000, 500}, 2.8}),
    [](const auto& info) { return std::string(info.param.scenario); });

TEST(FramePacer, cameraThatFitsEvenAtTheLargestDelayGoesThere)
{
    // 1 fps over a 10 us maximum gap: the frame takes a fraction of its period at any delay.
    const SCamera camera{1000.0, 1500, 640 * 480, 1.0, 10000};
    const auto collection = scripted(camera);

    EXPECT_GT(CFramePacer(collection).pace(50000000), 0);
    EXPECT_EQ(collection->value(QStringLiteral("GevSCPD")).toLongLong(), 10000);
}

TEST(FramePacer, cameraBoundByItsLinkStaysAtItsSmallestDelay)
{
    // No frame-rate cap: it streams back to back, at its link's rate, below the share.
    const SCamera camera{100.0, 1500, 640 * 480, 1000.0};
    const auto collection = scripted(camera);

    const qint64 paced = CFramePacer(collection).pace(20000000);

    EXPECT_EQ(collection->value(QStringLiteral("GevSCPD")).toLongLong(), 0);
    EXPECT_NEAR(double(paced), double(camera.need()), double(camera.need()) * 0.01);
}

} // namespace
