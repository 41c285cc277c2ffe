#include <camerapool/CFrameGapCounter.h>

#include <gtest/gtest.h>

#include <vector>

using CameraPool::CFrameGapCounter;

namespace {

struct SBuffer
{
    quint64 id;
    quint64 underrunPackets;
};

struct SGapCase
{
    const char* name;
    bool sixteenBitIds;
    std::vector<SBuffer> buffers;
    quint64 missed;
    quint64 underrun;
};

class FrameGapCounterTest : public testing::TestWithParam<SGapCase>
{
};

TEST_P(FrameGapCounterTest, CountsEachFrameThatGotNoBufferOnce)
{
    CFrameGapCounter counter(GetParam().sixteenBitIds);
    for (const SBuffer& b : GetParam().buffers)
        counter.onBuffer(b.id, b.underrunPackets);
    EXPECT_EQ(counter.missedFrames(), GetParam().missed);
    EXPECT_EQ(counter.underrunFrames(), GetParam().underrun);
}

INSTANTIATE_TEST_SUITE_P(
    Table, FrameGapCounterTest,
    testing::Values(
        SGapCase{"consecutive", true, {{7, 0}, {8, 0}, {9, 0}}, 0, 0},
        SGapCase{"first_id_is_no_gap", true, {{500, 0}, {501, 0}}, 0, 0},
        // Two frames of 200 packets each found no buffer: two frames, not 400.
        SGapCase{"underrun_counts_frames_not_packets", true, {{1, 0}, {4, 400}, {5, 400}}, 2, 2},
        SGapCase{"lost_on_the_wire_is_no_underrun", true, {{1, 0}, {3, 0}, {6, 0}}, 3, 0},
        SGapCase{"underrun_then_wire", true, {{1, 0}, {3, 50}, {5, 50}}, 2, 1},
        // The underrun shows while the frame before the gap still holds the buffer.
        SGapCase{"underrun_seen_one_buffer_early", true, {{1, 0}, {2, 50}, {5, 50}}, 2, 2},
        SGapCase{"underrun_frame_got_a_buffer_later", true, {{1, 0}, {2, 50}, {3, 50}, {6, 50}}, 2, 0},
        SGapCase{"wraps_past_65535_to_1", true, {{65534, 0}, {1, 0}, {2, 0}}, 1, 0},
        SGapCase{"wrap_exact", true, {{65535, 0}, {1, 0}}, 0, 0},
        SGapCase{"extended_ids_do_not_wrap", false, {{65534, 0}, {65536, 0}, {65537, 0}}, 1, 0},
        SGapCase{"duplicate_or_late_id_changes_nothing", true, {{10, 0}, {12, 0}, {11, 0}, {13, 0}}, 1, 0},
        SGapCase{"camera_started_over", false, {{900000, 0}, {1, 0}, {2, 0}}, 0, 0},
        SGapCase{"jump_beyond_half_the_id_space_is_no_loss", false, {{1, 0}, {100000, 0}, {100001, 0}}, 0, 0}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(FrameGapCounter, ANewStreamStartsWithoutAGapButKeepsTheCounts)
{
    CFrameGapCounter counter(true);
    counter.onBuffer(1, 0);
    counter.onBuffer(3, 10);
    counter.restart();
    counter.onBuffer(40, 0);
    counter.onBuffer(42, 5);
    EXPECT_EQ(counter.missedFrames(), 2u);
    EXPECT_EQ(counter.underrunFrames(), 2u);
}

} // namespace
