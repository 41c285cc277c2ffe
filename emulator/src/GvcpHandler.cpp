#include "GvcpHandler.h"

#include "Bytes.h"

namespace gigeemu {

namespace {
constexpr std::uint32_t kCcpAddress = 0x0A00;
constexpr std::uint32_t kPrimaryPortAddress = 0x0A04;
constexpr std::uint32_t kPrimaryIpAddress = 0x0A14;
constexpr std::uint32_t kExclusive = 1u << 0;
constexpr std::uint32_t kControl = 1u << 1;
constexpr std::uint32_t kDiscoveryBodySize = 0xF8;
} // namespace

CGvcpHandler::CGvcpHandler(CRegisterSpace& registers, IStreamControl& stream, const IClock& clock)
    : m_registers(registers)
    , m_stream(stream)
    , m_clock(clock)
{
}

std::vector<std::uint8_t> CGvcpHandler::ack(std::uint16_t status, std::uint16_t command, std::uint16_t reqId,
                                            const std::vector<std::uint8_t>& body) const
{
    std::vector<std::uint8_t> out(kGvcpHeaderSize + body.size());
    putBe16(&out[0], status);
    putBe16(&out[2], std::uint16_t(command + 1));
    putBe16(&out[4], std::uint16_t(body.size()));
    putBe16(&out[6], reqId);
    std::copy(body.begin(), body.end(), out.begin() + kGvcpHeaderSize);
    return out;
}

std::vector<std::uint8_t> CGvcpHandler::discoveryBody() const
{
    std::vector<std::uint8_t> body(kDiscoveryBodySize, 0);
    for (std::uint32_t a = 0; a < kDiscoveryBodySize; a += 4) {
        std::uint32_t v = 0;
        if (m_registers.read(a, v) == eSuccess)
            putBe32(&body[a], v);
    }
    return body;
}

void CGvcpHandler::checkHeartbeat()
{
    if (m_ccp == 0 || m_registers.heartbeatDisabled())
        return;
    const std::int64_t timeoutNs = std::int64_t(m_registers.heartbeatTimeoutMs()) * 1000000;
    if (m_clock.nowNs() - m_lastHeardNs >= timeoutNs)
        release();
}

std::int64_t CGvcpHandler::nextDeadlineNs() const
{
    if (m_ccp == 0 || m_registers.heartbeatDisabled())
        return -1;
    return m_lastHeardNs + std::int64_t(m_registers.heartbeatTimeoutMs()) * 1000000;
}

void CGvcpHandler::release()
{
    m_ccp = 0;
    m_primary = SPeer{};
    m_registers.closeStreamChannel();
}

std::optional<SGvcpReply> CGvcpHandler::handle(const std::uint8_t* data, std::size_t size, SPeer from,
                                               bool viaBroadcast)
{
    if (size < kGvcpHeaderSize || data[0] != kGvcpKey)
        return std::nullopt;
    checkHeartbeat();
    const std::uint8_t flags = data[1];
    const std::uint16_t command = getBe16(data + 2);
    const std::uint16_t length = getBe16(data + 4);
    const std::uint16_t reqId = getBe16(data + 6);
    if (viaBroadcast && command != eDiscoveryCmd)
        return std::nullopt;
    if (m_ccp != 0 && from == m_primary)
        m_lastHeardNs = m_clock.nowNs();

    const bool cached = command != eDiscoveryCmd && command != ePacketResendCmd;
    if (cached && m_last.valid && m_last.from == from && m_last.reqId == reqId && m_last.command == command)
        return m_last.reply;

    if (cached)
        m_registers.countCommand();
    std::optional<SGvcpReply> reply;
    if (length > size - kGvcpHeaderSize) {
        if (flags & kFlagAckRequired)
            reply = SGvcpReply{ack(eInvalidHeader, command, reqId, {}), from};
    } else {
        reply = execute(command, flags, data + kGvcpHeaderSize, length, reqId, from);
    }
    if (cached)
        m_last = SLastCommand{from, reqId, command, reply, true};
    return reply;
}

EStatus CGvcpHandler::readWord(std::uint32_t address, std::uint32_t& value, SPeer from) const
{
    if ((m_ccp & kExclusive) && !(from == m_primary))
        return eAccessDenied;
    switch (address) {
    case kCcpAddress: value = m_ccp; return eSuccess;
    case kPrimaryPortAddress: value = m_primary.port; return eSuccess;
    case kPrimaryIpAddress: value = m_primary.ip; return eSuccess;
    default: return m_registers.read(address, value);
    }
}

EStatus CGvcpHandler::writeWord(std::uint32_t address, std::uint32_t value, SPeer from)
{
    if (address == kCcpAddress)
        return writeControl(value, from);
    if (m_ccp == 0 || !(from == m_primary))
        return eAccessDenied;
    if (address == kPrimaryPortAddress || address == kPrimaryIpAddress)
        return eWriteProtect;
    return m_registers.write(address, value);
}

EStatus CGvcpHandler::writeControl(std::uint32_t value, SPeer from)
{
    const std::uint32_t bits = value & (kExclusive | kControl);
    if (m_ccp != 0 && !(from == m_primary))
        return eAccessDenied;
    if (bits == 0) {
        if (m_ccp != 0)
            release();
        return eSuccess;
    }
    if (m_ccp == 0) {
        m_primary = from;
        m_lastHeardNs = m_clock.nowNs();
    }
    m_ccp = bits;
    return eSuccess;
}

std::optional<SGvcpReply> CGvcpHandler::execute(std::uint16_t command, std::uint8_t flags, const std::uint8_t* body,
                                                std::size_t length, std::uint16_t reqId, SPeer from)
{
    std::vector<std::uint8_t> out;
    EStatus status = eSuccess;
    switch (command) {
    case eDiscoveryCmd: {
        SGvcpReply r{ack(eSuccess, command, reqId, discoveryBody()), from};
        if (flags & kFlagBroadcastAck)
            r.to = SPeer{0xFFFFFFFF, from.port};
        return r;
    }
    case ePacketResendCmd:
        handleResend(flags, body, length);
        return std::nullopt;
    case eReadRegCmd: {
        if (length == 0 || length % 4 != 0 || length / 4 > kMaxReadRegs) {
            status = eInvalidParameter;
            break;
        }
        for (std::size_t i = 0; i < length && status == eSuccess; i += 4) {
            std::uint32_t v = 0;
            status = readWord(getBe32(body + i), v, from);
            if (status == eSuccess) {
                out.resize(out.size() + 4);
                putBe32(&out[out.size() - 4], v);
            }
        }
        break;
    }
    case eWriteRegCmd: {
        if (length == 0 || length % 8 != 0 || length / 8 > kMaxWriteRegs) {
            status = eInvalidParameter;
            break;
        }
        std::uint16_t written = 0;
        for (std::size_t i = 0; i < length && status == eSuccess; i += 8) {
            status = writeWord(getBe32(body + i), getBe32(body + i + 4), from);
            if (status == eSuccess)
                ++written;
        }
        out.assign(4, 0);
        putBe16(&out[2], written);
        break;
    }
    case eReadMemCmd: {
        if (length != 8) {
            status = eInvalidParameter;
            break;
        }
        const std::uint32_t address = getBe32(body);
        const std::uint32_t count = getBe16(body + 6);
        out.assign(4, 0);
        putBe32(&out[0], address);
        if (address % 4 != 0 || count % 4 != 0)
            status = eBadAlignment;
        else if (count == 0 || count > kMaxMemCount)
            status = eInvalidParameter;
        for (std::uint32_t i = 0; i < count && status == eSuccess; i += 4) {
            std::uint32_t v = 0;
            status = readWord(address + i, v, from);
            out.resize(out.size() + 4);
            putBe32(&out[out.size() - 4], v);
        }
        if (status != eSuccess)
            out.resize(4);
        break;
    }
    case eWriteMemCmd: {
        if (length < 8 || length - 4 > kMaxMemCount) {
            status = eInvalidParameter;
            break;
        }
        const std::uint32_t address = getBe32(body);
        std::uint16_t written = 0;
        if (address % 4 != 0 || length % 4 != 0)
            status = eBadAlignment;
        for (std::size_t i = 4; i < length && status == eSuccess; i += 4) {
            status = writeWord(address + std::uint32_t(i - 4), getBe32(body + i), from);
            if (status == eSuccess)
                written = std::uint16_t(written + 4);
        }
        out.assign(4, 0);
        putBe16(&out[2], written);
        break;
    }
    default:
        status = eNotImplemented;
        break;
    }
    if (!(flags & kFlagAckRequired))
        return std::nullopt;
    return SGvcpReply{ack(status, command, reqId, out), from};
}

void CGvcpHandler::handleResend(std::uint8_t flags, const std::uint8_t* body, std::size_t length)
{
    if (flags & 0x10) {
        if (length < 20)
            return;
        // 64-bit block id; this device never numbers blocks beyond 16 bits.
        m_stream.resend(getBe32(body + 16) & 0xFFFF, getBe32(body + 4), getBe32(body + 8));
        return;
    }
    if (length < 12)
        return;
    m_stream.resend(getBe32(body) & 0xFFFF, getBe32(body + 4) & 0xFFFFFF, getBe32(body + 8) & 0xFFFFFF);
}

} // namespace gigeemu
