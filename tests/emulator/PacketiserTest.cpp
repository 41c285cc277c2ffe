#include "Packetiser.h"

#include <gtest/gtest.h>

namespace gigeemu::test {
namespace {

// 16 x 4 Mono8 in packets of 60 bytes: 24 payload bytes each, so 24 + 24 + 16.
SFrameInfo tinyFrame()
{
    SFrameInfo f;
    f.blockId = 5;
    f.timestamp = 0x0000000100000002ull;
    f.width = 16;
    f.height = 4;
    f.pixelFormat = 0x01080001;
    f.payloadSize = 64;
    f.packetSize = 60;
    return f;
}

std::vector<std::uint8_t> build(const SFrameInfo& f, std::uint32_t id)
{
    CPacketiser p;
    std::vector<std::uint8_t> buf(CPacketiser::kMaxDatagram);
    buf.resize(p.build(f, id, buf.data()));
    return buf;
}

TEST(Packetiser, LeaderBytes)
{
    const std::vector<std::uint8_t> expected = {
        0x00, 0x00, 0x00, 0x05, 0x01, 0x00, 0x00, 0x00, // status, block 5, leader, id 0
        0x00, 0x00, 0x00, 0x01,                         // reserved, payload type image
        0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x02, // timestamp
        0x01, 0x08, 0x00, 0x01,                         // Mono8
        0x00, 0x00, 0x00, 0x10, 0x00, 0x00, 0x00, 0x04, // 16 x 4
        0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, // offsets
        0x00, 0x00, 0x00, 0x00,                         // paddings
    };
    EXPECT_EQ(build(tinyFrame(), 0), expected);
}

TEST(Packetiser, LastPayloadAndTrailerBytes)
{
    std::vector<std::uint8_t> payload = {0x00, 0x00, 0x00, 0x05, 0x03, 0x00, 0x00, 0x03};
    for (int x = 0; x < 16; ++x)
        payload.push_back(std::uint8_t(x + 3 + 5)); // row 3 of block 5
    EXPECT_EQ(build(tinyFrame(), 3), payload);
    const std::vector<std::uint8_t> trailer = {0x00, 0x00, 0x00, 0x05, 0x02, 0x00, 0x00, 0x04,
                                               0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x04};
    EXPECT_EQ(build(tinyFrame(), 4), trailer);
}

TEST(Packetiser, TestPacketAndUnavailableBytes)
{
    std::vector<std::uint8_t> buf(9000, 0xAA);
    ASSERT_EQ(CPacketiser::buildTestPacket(1500, buf.data()), 1472u);
    EXPECT_EQ(std::vector<std::uint8_t>(buf.begin(), buf.begin() + 8),
              (std::vector<std::uint8_t>{0, 0, 0, 0, 0x03, 0, 0, 0}));
    EXPECT_EQ(std::count(buf.begin() + 8, buf.begin() + 1472, 0), 1464);
    ASSERT_EQ(CPacketiser::buildUnavailable(0x1234, 7, buf.data()), 8u);
    EXPECT_EQ(std::vector<std::uint8_t>(buf.begin(), buf.begin() + 8),
              (std::vector<std::uint8_t>{0x80, 0x0C, 0x12, 0x34, 0x03, 0, 0, 7}));
}

struct SGeometry {
    const char* name;
    std::uint32_t width, height, pixelFormat, packetSize;
    std::uint32_t payloadPackets;
};

class Reassembly : public testing::TestWithParam<SGeometry> {};

TEST_P(Reassembly, PacketsCarryTheWholeRampAtTheirOffsets)
{
    const SGeometry& g = GetParam();
    SFrameInfo f;
    f.blockId = 300;
    f.width = g.width;
    f.height = g.height;
    f.pixelFormat = g.pixelFormat;
    f.payloadSize = g.width * g.height * ((g.pixelFormat >> 16) & 0xFF) / 8;
    f.packetSize = g.packetSize;
    ASSERT_EQ(CPacketiser::packetCount(f), g.payloadPackets + 2);
    CPacketiser p;
    std::vector<std::uint8_t> image;
    std::vector<std::uint8_t> buf(CPacketiser::kMaxDatagram);
    for (std::uint32_t id = 1; id <= g.payloadPackets; ++id) {
        const std::size_t n = p.build(f, id, buf.data());
        ASSERT_EQ(n, CPacketiser::datagramSize(f, id));
        if (id < g.payloadPackets) {
            ASSERT_EQ(n + 28, g.packetSize) << "all but the last payload packet are full";
        }
        image.insert(image.end(), buf.begin() + 8, buf.begin() + std::ptrdiff_t(n));
    }
    ASSERT_EQ(image.size(), f.payloadSize);
    const std::uint32_t px = std::max(1u, ((g.pixelFormat >> 16) & 0xFF) / 8);
    for (std::uint32_t y = 0; y < g.height; ++y)
        for (std::uint32_t x = 0; x < g.width; ++x)
            ASSERT_EQ(image[(y * g.width + x) * px + px - 1], std::uint8_t(x + y + 300)) << x << "," << y;
}

INSTANTIATE_TEST_SUITE_P(Table, Reassembly,
                         testing::Values(SGeometry{"mono8_short_last_packet", 640, 480, 0x01080001, 1500, 210},
                                         SGeometry{"mono8_exact_multiple", 1464, 10, 0x01080001, 1500, 10},
                                         SGeometry{"rgb8_jumbo", 400, 300, 0x02180014, 9000, 41},
                                         SGeometry{"mono16_rows_shorter_than_packet", 20, 50, 0x01100007, 576, 4}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace gigeemu::test
