#include "Packetiser.h"

#include "Bytes.h"
#include "PixelFormats.h"
#include "Protocol.h"

#include <algorithm>
#include <cstring>

namespace gigeemu {

namespace {
constexpr std::uint32_t kGvspHeader = 8;
constexpr std::uint16_t kPayloadTypeImage = 0x0001;

std::uint32_t pixelBytes(std::uint32_t pixelFormat)
{
    return std::max<std::uint32_t>(1, bitsPerPixel(pixelFormat) / 8);
}

std::uint32_t payloadPerPacket(const SFrameInfo& f)
{
    return f.packetSize - kGvspOverhead;
}
} // namespace

std::uint32_t CPacketiser::packetCount(const SFrameInfo& f)
{
    const std::uint32_t d = payloadPerPacket(f);
    return (f.payloadSize + d - 1) / d + 2;
}

std::uint32_t CPacketiser::datagramSize(const SFrameInfo& f, std::uint32_t packetId)
{
    const std::uint32_t n = packetCount(f) - 2;
    if (packetId == 0)
        return kLeaderIpSize - kIpUdpOverhead;
    if (packetId > n)
        return kTrailerIpSize - kIpUdpOverhead;
    const std::uint32_t d = payloadPerPacket(f);
    const std::uint32_t size = packetId < n ? d : f.payloadSize - (n - 1) * d;
    return kGvspHeader + size;
}

std::uint8_t CPacketiser::imageByte(const SFrameInfo& f, std::uint32_t offset)
{
    const std::uint32_t rowBytes = f.width * pixelBytes(f.pixelFormat);
    const std::uint32_t y = offset / rowBytes;
    const std::uint32_t x = (offset % rowBytes) / pixelBytes(f.pixelFormat);
    return std::uint8_t(x + y + f.blockId);
}

void CPacketiser::putHeader(std::uint8_t* out, std::uint16_t status, std::uint16_t blockId, std::uint8_t format,
                            std::uint32_t packetId)
{
    putBe16(out, status);
    putBe16(out + 2, blockId);
    putBe32(out + 4, (std::uint32_t(format) << 24) | (packetId & 0xFFFFFF));
}

std::size_t CPacketiser::build(const SFrameInfo& f, std::uint32_t packetId, std::uint8_t* out)
{
    const std::uint32_t n = packetCount(f) - 2;
    if (packetId == 0) {
        putHeader(out, 0, f.blockId, eLeader, 0);
        std::uint8_t* b = out + kGvspHeader;
        std::memset(b, 0, 36);
        putBe16(b + 2, kPayloadTypeImage);
        putBe32(b + 4, std::uint32_t(f.timestamp >> 32));
        putBe32(b + 8, std::uint32_t(f.timestamp));
        putBe32(b + 12, f.pixelFormat);
        putBe32(b + 16, f.width);
        putBe32(b + 20, f.height);
        return kGvspHeader + 36;
    }
    if (packetId > n) {
        putHeader(out, 0, f.blockId, eTrailer, n + 1);
        std::uint8_t* b = out + kGvspHeader;
        putBe16(b, 0);
        putBe16(b + 2, kPayloadTypeImage);
        putBe32(b + 4, f.height);
        return kGvspHeader + 8;
    }
    putHeader(out, 0, f.blockId, ePayload, packetId);
    const std::uint32_t size = datagramSize(f, packetId) - kGvspHeader;
    fillPayload(f, (packetId - 1) * payloadPerPacket(f), size, out + kGvspHeader);
    return kGvspHeader + size;
}

void CPacketiser::fillPayload(const SFrameInfo& f, std::uint32_t offset, std::uint32_t size, std::uint8_t* out)
{
    const std::uint32_t px = pixelBytes(f.pixelFormat);
    if (m_rampWidth != f.width || m_rampPixelBytes != px) {
        // One row long enough for any start value, so each row is a single copy.
        m_ramp.resize(std::size_t(f.width + 256) * px);
        for (std::size_t i = 0; i < m_ramp.size(); ++i)
            m_ramp[i] = std::uint8_t(i / px);
        m_rampWidth = f.width;
        m_rampPixelBytes = px;
    }
    const std::uint32_t rowBytes = f.width * px;
    while (size > 0) {
        const std::uint32_t y = offset / rowBytes;
        const std::uint32_t inRow = offset % rowBytes;
        const std::uint32_t chunk = std::min(size, rowBytes - inRow);
        const std::uint32_t start = ((y + f.blockId) & 0xFF) * px;
        std::memcpy(out, &m_ramp[start + inRow], chunk);
        out += chunk;
        offset += chunk;
        size -= chunk;
    }
}

std::size_t CPacketiser::buildTestPacket(std::uint32_t packetSize, std::uint8_t* out)
{
    const std::size_t size = packetSize - kIpUdpOverhead;
    std::memset(out, 0, size);
    putHeader(out, 0, 0, ePayload, 0);
    return size;
}

std::size_t CPacketiser::buildUnavailable(std::uint16_t blockId, std::uint32_t packetId, std::uint8_t* out)
{
    putHeader(out, ePacketUnavailable, blockId, ePayload, packetId);
    return kGvspHeader;
}

} // namespace gigeemu
