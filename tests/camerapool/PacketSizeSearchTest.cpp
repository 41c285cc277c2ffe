#include <camerapool/PacketSizeSearch.h>

#include <gtest/gtest.h>

using CameraPool::largestCarriedPacketSize;

namespace {

struct SProbeCase
{
    const char* name;
    qint64 increment;
    qint64 hostMtu;
    qint64 pathCarries; // largest size the path carries, 0 for none
    qint64 found;
    int mostTests;
};

class PacketSizeSearchTest : public testing::TestWithParam<SProbeCase>
{
};

TEST_P(PacketSizeSearchTest, FindsTheLargestSizeThePathCarries)
{
    const SProbeCase& c = GetParam();
    int tests = 0;
    const qint64 found = largestCarriedPacketSize(576, 9000, c.increment, c.hostMtu, [&](qint64 size) {
        ++tests;
        EXPECT_EQ((size - 576) % c.increment, 0) << size;
        return size <= c.pathCarries;
    });
    EXPECT_EQ(found, c.found);
    EXPECT_LE(tests, c.mostTests);
}

INSTANTIATE_TEST_SUITE_P(
    Table, PacketSizeSearchTest,
    testing::Values(SProbeCase{"jumbo_path_and_adapter", 1, 9000, 9000, 9000, 1},
                    SProbeCase{"adapter_at_1500", 1, 1500, 9000, 1500, 1},
                    SProbeCase{"adapter_above_the_node", 1, 65535, 9000, 9000, 1},
                    SProbeCase{"switch_smaller_than_the_adapter", 1, 9000, 4000, 4000, 15},
                    SProbeCase{"on_the_node_grid", 4, 9000, 4002, 4000, 14},
                    SProbeCase{"adapter_mtu_unknown", 1, -1, 1500, 1500, 15},
                    SProbeCase{"only_the_smallest", 1, 9000, 576, 576, 15},
                    SProbeCase{"nothing_arrives", 1, 9000, 0, -1, 16}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(PacketSizeSearch, AnEmptyRangeProbesNothing)
{
    int tests = 0;
    EXPECT_EQ(largestCarriedPacketSize(9000, 576, 1, 1500, [&](qint64) { return ++tests > 0; }), -1);
    EXPECT_EQ(tests, 0);
}

} // namespace
