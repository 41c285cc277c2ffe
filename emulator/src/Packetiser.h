#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace gigeemu {

struct SFrameInfo {
    std::uint16_t blockId = 0;
    std::uint64_t timestamp = 0;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t pixelFormat = 0;
    std::uint32_t payloadSize = 0;
    std::uint32_t packetSize = 0;
};

// Cuts a frame into GVSP datagrams (UDP payloads); the image is a ramp x + y + block id.
class CPacketiser {
public:
    static constexpr std::size_t kMaxDatagram = 65536;

    static std::uint32_t packetCount(const SFrameInfo& frame);
    static std::uint32_t datagramSize(const SFrameInfo& frame, std::uint32_t packetId);
    // Byte at offset in the payload of a frame, for checking received images.
    static std::uint8_t imageByte(const SFrameInfo& frame, std::uint32_t offset);

    // Writes packet packetId of the frame into out (kMaxDatagram bytes) and returns its size.
    std::size_t build(const SFrameInfo& frame, std::uint32_t packetId, std::uint8_t* out);
    static std::size_t buildTestPacket(std::uint32_t packetSize, std::uint8_t* out);
    static std::size_t buildUnavailable(std::uint16_t blockId, std::uint32_t packetId, std::uint8_t* out);

private:
    static void putHeader(std::uint8_t* out, std::uint16_t status, std::uint16_t blockId, std::uint8_t format,
                          std::uint32_t packetId);
    void fillPayload(const SFrameInfo& frame, std::uint32_t offset, std::uint32_t size, std::uint8_t* out);

    std::vector<std::uint8_t> m_ramp;
    std::uint32_t m_rampWidth = 0;
    std::uint32_t m_rampPixelBytes = 0;
};

} // namespace gigeemu
