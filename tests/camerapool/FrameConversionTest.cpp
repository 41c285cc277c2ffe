#include <camerapool/Aravis.h>
#include <camerapool/CFrameExchange.h>
#include <camerapool/PixelConversion.h>

#include <gtest/gtest.h>

using namespace CameraPool;

TEST(FrameExchange, ReaderGetsOnlyTheNewestFrameOnce)
{
    CFrameExchange exchange;
    exchange.reset(4);
    EXPECT_EQ(exchange.takeLatest(), nullptr);
    const quint8 first[4] = {1, 1, 1, 1};
    const quint8 second[4] = {2, 2, 2, 2};
    exchange.publish(first, 4, 2, 2, ARV_PIXEL_FORMAT_MONO_8);
    exchange.publish(second, 4, 2, 2, ARV_PIXEL_FORMAT_MONO_8);
    const CFrameExchange::SFrame* frame = exchange.takeLatest();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->data[0], 2);
    EXPECT_EQ(exchange.takeLatest(), nullptr);
    exchange.publish(first, 4, 2, 2, ARV_PIXEL_FORMAT_MONO_8);
    frame = exchange.takeLatest();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->data[0], 1);
}

namespace {

struct SPixelCase
{
    const char* scenario;
    quint32 format;
    std::vector<quint8> bytes;  // a 2x2 frame
    QRgb topLeft;
};

class PixelConversionTest : public testing::TestWithParam<SPixelCase>
{
};

} // namespace

TEST_P(PixelConversionTest, ShowsTheTopLeftPixel)
{
    const SPixelCase& c = GetParam();
    const QImage image = toDisplayImage(c.bytes.data(), c.bytes.size(), 2, 2, c.format);
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.size(), QSize(2, 2));
    EXPECT_EQ(image.pixel(0, 0) & 0xFFFFFF, c.topLeft & 0xFFFFFF);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PixelConversionTest,
    testing::Values(
        SPixelCase{"mono8_is_grey", ARV_PIXEL_FORMAT_MONO_8, {200, 0, 0, 0}, qRgb(200, 200, 200)},
        SPixelCase{"mono12_keeps_the_high_bits", ARV_PIXEL_FORMAT_MONO_12, {0xF0, 0x0F, 0, 0, 0, 0, 0, 0},
                   qRgb(0xFF, 0xFF, 0xFF)},
        SPixelCase{"bgr_is_swapped", ARV_PIXEL_FORMAT_BGR_8_PACKED, {10, 20, 30, 0, 0, 0, 0, 0, 0, 0, 0, 0},
                   qRgb(30, 20, 10)},
        SPixelCase{"bayer_rg_takes_red_from_the_corner", ARV_PIXEL_FORMAT_BAYER_RG_8, {100, 50, 70, 9},
                   qRgb(100, 60, 9)}),
    [](const testing::TestParamInfo<SPixelCase>& info) { return std::string(info.param.scenario); });

TEST(PixelConversion, ShortFrameGivesNoImage)
{
    const quint8 bytes[3] = {0, 0, 0};
    EXPECT_TRUE(toDisplayImage(bytes, 3, 2, 2, ARV_PIXEL_FORMAT_MONO_8).isNull());
}
