#include "devicelinkthroughputlimiteditor.h"

#include <parameters/fakes/CScriptedParameterCollection.h>

#include <gtest/gtest.h>

#include <QSlider>

using namespace ParameterFakes;

namespace {

const QString kLimit = QStringLiteral("DeviceLinkThroughputLimit");
const QString kMode = QStringLiteral("DeviceLinkThroughputLimitMode");
const QString kSelector = QStringLiteral("DeviceLinkSelector");

struct SRangeCase { const char* scenario; qint64 value, minimum, maximum, increment;
    int sliderValue, sliderMinimum, sliderMaximum, sliderStep; };

class DeviceLinkRange : public ::testing::TestWithParam<SRangeCase> {};

TEST_P(DeviceLinkRange, nodeInBytesPerSecondShowsInMB)
{
    const SRangeCase& c = GetParam();
    auto parameters = QSharedPointer<CScriptedParameterCollection>::create();
    parameters->addInteger(kLimit, c.value, c.minimum, c.maximum, c.increment);

    DeviceLinkThroughputLimitEditor editor(parameters);

    EXPECT_EQ(editor.minimum(), c.sliderMinimum);
    EXPECT_EQ(editor.maximum(), c.sliderMaximum);
    EXPECT_EQ(editor.singleStep(), c.sliderStep);
    EXPECT_EQ(editor.value(), c.sliderValue);
    EXPECT_EQ(parameters->writeCount(kLimit), 0);
}

INSTANTIATE_TEST_SUITE_P(Nodes, DeviceLinkRange, ::testing::Values(
        SRangeCase{"minimum_below_half_a_MB_gives_1", 200000000, 100000, 400000000, 1, 200, 1, 400, 1},
        SRangeCase{"increment_below_a_MB_gives_step_1", 99600000, 8000000, 380000000, 4, 100, 8, 380, 1},
        SRangeCase{"maximum_is_cut_not_rounded", 50000000, 1000000, 399999999, 1, 50, 1, 399, 1},
        SRangeCase{"increment_of_2_MB_gives_step_2", 10000000, 2000000, 100000000, 2000000, 10, 2, 100, 2},
        SRangeCase{"value_below_half_a_MB_shows_the_minimum", 300000, 0, 400000000, 1, 1, 1, 400, 1}),
    [](const ::testing::TestParamInfo<SRangeCase>& info) { return std::string(info.param.scenario); });

struct SModeCase { const char* scenario; bool present; QStringList entries; QString access; QString expected; };

class DeviceLinkMode : public ::testing::TestWithParam<SModeCase> {};

TEST_P(DeviceLinkMode, isTurnedOnOnlyWhenOffered)
{
    const SModeCase& c = GetParam();
    auto parameters = QSharedPointer<CScriptedParameterCollection>::create();
    parameters->addInteger(kSelector, 2, 0, 3);
    parameters->addInteger(kLimit, 100000000, 1000000, 400000000);
    if (c.present)
        parameters->addEnumeration(kMode, "Off", c.entries, c.access);

    DeviceLinkThroughputLimitEditor editor(parameters);

    if (c.present) {
        EXPECT_EQ(parameters->value(kMode).toString(), c.expected);
    }
    EXPECT_EQ(parameters->value(kSelector).toLongLong(), 0);
    editor.slider()->setValue(150); // the editor works all the same
    EXPECT_EQ(parameters->value(kLimit).toLongLong(), 150000000);
}

INSTANTIATE_TEST_SUITE_P(Modes, DeviceLinkMode,
    ::testing::Values(SModeCase{"offered_On_is_set", true, {"Off", "On"}, "RW", "On"},
                      SModeCase{"mode_without_On_is_left_alone", true, {"Off"}, "RW", "Off"},
                      SModeCase{"read_only_mode_is_left_alone", true, {"Off", "On"}, "RO", "Off"},
                      SModeCase{"camera_without_the_mode_node", false, {}, "RW", ""}),
    [](const ::testing::TestParamInfo<SModeCase>& info) { return std::string(info.param.scenario); });

TEST(DeviceLinkEditor, changeOnTheCameraMovesTheSliderWithoutWritingBack)
{
    auto parameters = QSharedPointer<CScriptedParameterCollection>::create();
    parameters->addInteger(kLimit, 100000000, 1000000, 400000000);
    DeviceLinkThroughputLimitEditor editor(parameters);

    parameters->setValue(kLimit, 245600000);
    parameters->setRange(kLimit, 1000000, 300000000);
    parameters->emitChanged(kLimit);

    EXPECT_EQ(editor.value(), 246);
    EXPECT_EQ(editor.maximum(), 300);
    EXPECT_EQ(parameters->writeCount(kLimit), 0);
}

// The slider moves in whole MB/s, setValue takes bytes per second; both write the nearest valid value.
TEST(DeviceLinkEditor, sliderAndSetValueWriteTheNearestValidValue)
{
    const struct { const char* scenario; qint64 increment; bool slider; int input; int shown; qint64 written; } cases[] = {
        {"slider on a grid of 0.3 MB/s from 1.0", 300000, true, 2, 2, 1900000},
        {"setValue in bytes per second", 1, false, 87600000, 88, 88000000}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.scenario);
        auto parameters = QSharedPointer<CScriptedParameterCollection>::create();
        parameters->addInteger(kLimit, 1000000, 1000000, 400000000, c.increment);
        DeviceLinkThroughputLimitEditor editor(parameters);
        c.slider ? editor.slider()->setValue(c.input) : editor.setValue(c.input);
        EXPECT_EQ(editor.value(), c.shown);
        EXPECT_EQ(parameters->writtenValues(kLimit), (QVariantList{c.written}));
    }
}

TEST(DeviceLinkEditor, isAtMaximumReadsTheInterPacketDelay)
{
    auto parameters = QSharedPointer<CScriptedParameterCollection>::create();
    parameters->addInteger(kLimit, 1000000, 1000000, 400000000);
    parameters->addInteger("GevSCPD", 99, 0, 100);
    DeviceLinkThroughputLimitEditor editor(parameters);
    EXPECT_TRUE(editor.isAtMaximum());
    parameters->setValue("GevSCPD", 98);
    EXPECT_FALSE(editor.isAtMaximum());
}

} // namespace
