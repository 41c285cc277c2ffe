#include <camerapool/IntegerCorrection.h>

#include <ParameterCollection/ECorrection.h>

#include <gtest/gtest.h>

using namespace CameraPool;
using namespace ParameterCollection;

namespace {

struct SCorrectionCase
{
    const char* scenario;
    qint64 value;
    int correction;
    qint64 expected;
};

class IntegerCorrectionTest : public testing::TestWithParam<SCorrectionCase>
{
};

} // namespace

// The grid of a GigE packet size: 220, 224, ..., 16404.
TEST_P(IntegerCorrectionTest, MovesOntoTheGrid)
{
    const SCorrectionCase& c = GetParam();
    EXPECT_EQ(correctInteger(c.value, 220, 16404, 4, c.correction), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, IntegerCorrectionTest,
    testing::Values(SCorrectionCase{"nearest_rounds_down", 1401, CorrectionNearest, 1400},
                    SCorrectionCase{"nearest_rounds_up", 1403, CorrectionNearest, 1404},
                    SCorrectionCase{"nearest_tie_goes_up", 1402, CorrectionNearest, 1404},
                    SCorrectionCase{"valid_value_is_kept", 1500, CorrectionNearest, 1500},
                    SCorrectionCase{"below_minimum_clamps", 0, CorrectionNearest, 220},
                    SCorrectionCase{"above_maximum_clamps", 20000, CorrectionNearest, 16404},
                    SCorrectionCase{"up_takes_the_next", 1401, CorrectionUp, 1404},
                    SCorrectionCase{"down_takes_the_previous", 1403, CorrectionDown, 1400},
                    SCorrectionCase{"none_leaves_it_for_the_camera_to_refuse", 1401, CorrectionNone, 1401}),
    [](const testing::TestParamInfo<SCorrectionCase>& info) { return std::string(info.param.scenario); });

TEST(IntegerCorrection, MaximumOffTheGridGivesTheLastValueOnIt)
{
    EXPECT_EQ(correctInteger(1000, 0, 10, 3, CorrectionNearest), 9);
}
