#include "Device.h"
#include "EmulatorFakes.h"
#include "Protocol.h"
#include "XmlDescription.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace gigeemu::test {
namespace {

const SPeer kHost{0x7F000001, 50000};
const SPeer kOther{0x7F000001, 50001};
constexpr std::uint32_t kXmlBase = CRegisterSpace::kXmlBase;

struct SAck {
    bool present = false;
    std::uint16_t status = 0;
    std::uint16_t command = 0;
    std::vector<std::uint8_t> body;
    std::uint32_t word(std::size_t i) const { return getBe32(&body[4 * i]); }
};

SConfig smallCamera()
{
    SConfig c;
    c.address = "127.0.0.2";
    c.width = 640;
    c.height = 480;
    c.sensorWidth = 1920;
    c.sensorHeight = 1200;
    return c;
}

struct CRig {
    explicit CRig(const SConfig& c = smallCamera())
        : config(c)
        , xml(config)
        , device(config, SDeviceIdentity{0x7F000002, 0xFF000000, {2, 0, 0, 0, 0, 1}, xml.fileName()}, xml.blob(),
                 sink, clock)
    {
    }
    SAck send(const std::vector<std::uint8_t>& datagram, SPeer from = kHost)
    {
        SAck a;
        const auto reply = device.handle(datagram.data(), datagram.size(), from, false);
        if (!reply)
            return a;
        a.present = true;
        a.status = getBe16(&reply->bytes[0]);
        a.command = getBe16(&reply->bytes[2]);
        a.body.assign(reply->bytes.begin() + 8, reply->bytes.end());
        EXPECT_EQ(getBe16(&reply->bytes[4]), a.body.size());
        EXPECT_EQ(getBe16(&reply->bytes[6]), getBe16(&datagram[6])) << "ack id must echo the request id";
        return a;
    }
    SAck read(std::uint32_t address, SPeer from = kHost) { return send(gvcpCommand(eReadRegCmd, ++id, {address}), from); }
    std::uint32_t value(std::uint32_t address) { return read(address).word(0); }
    SAck write(std::uint32_t address, std::uint32_t v, SPeer from = kHost)
    {
        return send(gvcpCommand(eWriteRegCmd, ++id, {address, v}), from);
    }
    void claim(std::uint32_t bits = 2, SPeer from = kHost) { ASSERT_EQ(write(0x0A00, bits, from).status, eSuccess); }

    CFakeClock clock;
    CRecordingSink sink{clock};
    SConfig config;
    CXmlDescription xml;
    CDevice device;
    std::uint16_t id = 0;
};

struct SAccessCase {
    const char* name;
    std::function<void(SConfig&)> configure;
    std::function<void(CRig&)> prepare;
    std::vector<std::uint8_t> command;
    std::uint16_t status;
    std::size_t ackBody;
    std::uint32_t readBackAddress;
    std::uint32_t readBackValue;
};

void none(SConfig&) {}
void control(CRig& r) { r.claim(); }
void noControl(CRig&) {}
std::vector<std::uint8_t> readReg(std::vector<std::uint32_t> a) { return gvcpCommand(eReadRegCmd, 1000, a); }
std::vector<std::uint8_t> writeReg(std::vector<std::uint32_t> p) { return gvcpCommand(eWriteRegCmd, 1000, p); }
std::vector<std::uint8_t> readMem(std::uint32_t a, std::uint32_t n) { return gvcpCommand(eReadMemCmd, 1000, {a, n}); }
std::vector<std::uint8_t> writeMem(std::vector<std::uint32_t> w) { return gvcpCommand(eWriteMemCmd, 1000, w); }

class RegisterAccess : public testing::TestWithParam<SAccessCase> {};

TEST_P(RegisterAccess, AnswersWithStatusAndLeavesTheExpectedValue)
{
    const SAccessCase& c = GetParam();
    SConfig config = smallCamera();
    c.configure(config);
    CRig rig(config);
    c.prepare(rig);
    const SAck ack = rig.send(c.command);
    ASSERT_TRUE(ack.present);
    EXPECT_EQ(ack.command, getBe16(&c.command[2]) + 1);
    EXPECT_EQ(ack.status, c.status);
    EXPECT_EQ(ack.body.size(), c.ackBody);
    if (c.readBackAddress != 0) {
        EXPECT_EQ(rig.value(c.readBackAddress), c.readBackValue);
    }
}

const SAccessCase kAccessCases[] = {
    {"version_reads_1_2", none, noControl, readReg({0x0000}), eSuccess, 4, 0x0000, 0x00010002},
    {"reads_are_allowed_without_control", none, noControl, readReg({0xA000, 0xA004}), eSuccess, 8, 0xA004, 480},
    {"unmapped_bootstrap_address", none, control, readReg({0x0000, 0x0018}), eInvalidAddress, 4, 0, 0},
    {"misaligned_read", none, control, readReg({0x0002}), eBadAlignment, 0, 0, 0},
    {"write_to_read_only_register", none, control, writeReg({0x0000, 1}), eWriteProtect, 4, 0x0000, 0x00010002},
    {"write_without_control_is_denied", none, noControl, writeReg({0xA000, 320}), eAccessDenied, 4, 0xA000, 640},
    {"write_to_unmapped_vendor_address", none, control, writeReg({0xA0F0, 1}), eInvalidAddress, 4, 0, 0},
    {"write_only_command_reads_zero", none, control, readReg({0xA104}), eSuccess, 4, 0, 0},
    {"width_snaps_to_nearest_increment", none, control, writeReg({0xA000, 641}), eSuccess, 4, 0xA000, 640},
    {"width_above_sensor_is_clamped", none, control, writeReg({0xA000, 5000}), eSuccess, 4, 0xA000, 1920},
    {"strict_writes_refuse_out_of_range", [](SConfig& c) { c.strictWrites = true; }, control,
     writeReg({0xA000, 5000}), eInvalidParameter, 4, 0xA000, 640},
    {"packet_size_snaps_down", none, control, writeReg({0x0D04, 1503}), eSuccess, 4, 0x0D04, 1500},
    {"fire_bit_reads_back_zero", none, control, writeReg({0x0D04, 0xC00005DC}), eSuccess, 4, 0x0D04, 0x400005DC},
    {"unknown_pixel_format_refused", none, control, writeReg({0xA008, 0x12345678}), eInvalidParameter, 4, 0xA008,
     0x01080001},
    {"writereg_stops_at_first_failure", none, control, writeReg({0xA000, 320, 0x0000, 1, 0xA004, 240}),
     eWriteProtect, 4, 0xA004, 480},
    {"image_format_locked_while_acquiring", none, [](CRig& r) { r.claim(); r.write(0xA104, 1); },
     writeReg({0xA000, 320}), eWriteProtect, 4, 0xA000, 640},
    {"scpd_locked_while_limit_is_on", [](SConfig& c) { c.throughputLimit = true; },
     [](CRig& r) { r.claim(); r.write(0xA404, 1); }, writeReg({0x0D08, 5}), eWriteProtect, 4, 0, 0},
    {"limit_registers_absent_without_variant", none, control, readReg({0xA404}), eInvalidAddress, 0, 0, 0},
    {"writemem_applies_every_word", none, control, writeMem({0xA000, 320, 240}), eSuccess, 4, 0xA004, 240},
    {"writemem_fire_bit_like_writereg", none, control, writeMem({0x0D04, 0xC00005DC}), eSuccess, 4, 0x0D04,
     0x400005DC},
    {"writemem_without_control_is_denied", none, noControl, writeMem({0xA000, 320}), eAccessDenied, 4, 0xA000, 640},
    {"readmem_of_url", none, noControl, readMem(0x0200, 16), eSuccess, 20, 0, 0},
    {"readmem_count_above_536", none, noControl, readMem(0x0200, 540), eInvalidParameter, 4, 0, 0},
    {"readmem_misaligned_count", none, noControl, readMem(0x0200, 6), eBadAlignment, 4, 0, 0},
    {"readmem_zero_count", none, noControl, readMem(0x0200, 0), eInvalidParameter, 4, 0, 0},
    {"readmem_far_past_description", none, noControl, readMem(kXmlBase + 0x80000, 4), eInvalidAddress, 4, 0, 0},
    {"unknown_command", none, noControl, gvcpCommand(0x0090, 1000, {}), eNotImplemented, 0, 0, 0},
    {"readreg_with_empty_body", none, noControl, gvcpCommand(eReadRegCmd, 1000, {}), eInvalidParameter, 0, 0, 0},
};

INSTANTIATE_TEST_SUITE_P(Table, RegisterAccess, testing::ValuesIn(kAccessCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Gvcp, LengthBeyondDatagramIsAnInvalidHeader)
{
    CRig rig;
    auto d = gvcpCommand(eReadRegCmd, 7, {0x0000});
    putBe16(&d[4], 12);
    EXPECT_EQ(rig.send(d).status, eInvalidHeader);
}

TEST(Gvcp, NoAckWithoutAckFlagAndNoAnswerToForeignKey)
{
    CRig rig;
    EXPECT_FALSE(rig.send(gvcpCommand(eReadRegCmd, 7, {0x0000}, 0x00)).present);
    auto d = gvcpCommand(eReadRegCmd, 8, {0x0000});
    d[0] = 0x43;
    EXPECT_FALSE(rig.send(d).present);
}

TEST(Gvcp, ReadmemPastTheDescriptionEndIsZeroFilled)
{
    CRig rig;
    const std::size_t size = rig.xml.blob().size();
    const std::uint32_t start = kXmlBase + std::uint32_t(size & ~std::size_t(3)) - 4;
    const SAck ack = rig.send(readMem(start, 16));
    ASSERT_EQ(ack.status, eSuccess);
    const std::string text = rig.xml.text();
    for (std::size_t i = 0; i < 16; ++i) {
        const std::size_t offset = start - kXmlBase + i;
        EXPECT_EQ(ack.body[4 + i], offset < size ? std::uint8_t(text[offset]) : 0) << "offset " << offset;
    }
}

TEST(Gvcp, DiscoveryAnswersUnderAForeignPrimaryWithTheBootstrapBytes)
{
    CRig rig;
    rig.claim(3, kOther);
    const SAck ack = rig.send(gvcpCommand(eDiscoveryCmd, 0xFFFF, {}, 0x11));
    ASSERT_EQ(ack.status, eSuccess);
    ASSERT_EQ(ack.body.size(), 0xF8u);
    EXPECT_EQ(getBe32(&ack.body[0x24]), 0x7F000002u);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&ack.body[0x48])), "EmuVision");
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&ack.body[0xD8])), "EMU0001");
}

TEST(Gvcp, RepeatedRequestIdGetsTheStoredAckWithoutFiringAgain)
{
    CRig rig;
    rig.claim();
    rig.write(0x0D18, 0x7F000001);
    rig.write(0x0D00, 5000);
    const std::uint32_t commandsBefore = getBe32(rig.read(0xA51C).body.data());
    const auto fire = gvcpCommand(eWriteRegCmd, 500, {0x0D04, 0xC00005DC});
    const SAck first = rig.send(fire);
    const SAck again = rig.send(fire);
    EXPECT_EQ(first.body, again.body);
    ASSERT_EQ(rig.sink.m_sent.size(), 1u);
    EXPECT_EQ(rig.sink.m_sent[0].bytes.size(), 1500u - 28u);
    rig.send(gvcpCommand(eWriteRegCmd, 501, {0x0D04, 0xC00005DC}));
    EXPECT_EQ(rig.sink.m_sent.size(), 2u) << "a new request id fires again";
    // The retry is no command of its own; the reading is one.
    EXPECT_EQ(getBe32(rig.read(0xA51C).body.data()), commandsBefore + 3);
}

TEST(Privilege, PrimaryHoldsControlOthersMayOnlyRead)
{
    CRig rig;
    rig.claim();
    EXPECT_EQ(rig.value(0x0A00), 2u);
    EXPECT_EQ(rig.value(0x0A04), kHost.port);
    EXPECT_EQ(rig.value(0x0A14), kHost.ip);
    EXPECT_EQ(rig.write(0x0A00, 2, kOther).status, eAccessDenied);
    EXPECT_EQ(rig.write(0xA000, 320, kOther).status, eAccessDenied);
    EXPECT_EQ(rig.read(0xA000, kOther).status, eSuccess);
    EXPECT_EQ(rig.write(0x0A00, 0).status, eSuccess);
    EXPECT_EQ(rig.write(0x0A00, 2, kOther).status, eSuccess) << "released control can be taken";
}

TEST(Privilege, ExclusiveAccessDeniesForeignReads)
{
    CRig rig;
    rig.claim(3);
    EXPECT_EQ(rig.read(0x0000, kOther).status, eAccessDenied);
    EXPECT_EQ(rig.read(0x0000).status, eSuccess);
}

TEST(Heartbeat, ExpiryClosesTheChannelStopsAcquisitionAndFreesControl)
{
    CRig rig;
    rig.claim();
    rig.write(0x0D18, 0x7F000001);
    rig.write(0x0D00, 5000);
    rig.write(0xA104, 1);
    rig.clock.advanceMs(2000);
    rig.read(0x0000, kOther);
    rig.clock.advanceMs(999);
    rig.device.checkHeartbeat();
    EXPECT_EQ(rig.read(0x0A00, kOther).word(0), 2u) << "foreign traffic must not refresh the timer";
    rig.clock.advanceMs(1);
    rig.device.checkHeartbeat();
    EXPECT_EQ(rig.value(0x0A00), 0u);
    EXPECT_EQ(rig.value(0x0D00), 0u);
    EXPECT_EQ(rig.value(0x0D18), 0x7F000001u) << "other settings stay";
    EXPECT_FALSE(rig.device.streamSettings().acquiring);
    rig.claim(2, kOther);
}

TEST(Heartbeat, PrimaryTrafficRefreshesAndTheDisableBitStopsExpiry)
{
    CRig rig;
    rig.claim();
    rig.write(0x0938, 1000);
    rig.clock.advanceMs(800);
    rig.read(0x0A00);
    rig.clock.advanceMs(800);
    rig.device.checkHeartbeat();
    EXPECT_EQ(rig.value(0x0A00), 2u);
    rig.write(0x0954, 1);
    rig.clock.advanceMs(60000);
    rig.device.checkHeartbeat();
    EXPECT_EQ(rig.value(0x0A00), 2u);
    EXPECT_EQ(rig.device.nextDeadlineNs(), -1);
}

TEST(Heartbeat, TimeoutBelowMinimumIsRaised)
{
    CRig rig;
    rig.claim();
    rig.write(0x0938, 100);
    EXPECT_EQ(rig.value(0x0938), 500u);
}

} // namespace
} // namespace gigeemu::test
