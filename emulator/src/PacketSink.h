#pragma once

#include <cstddef>
#include <cstdint>

namespace gigeemu {

struct SOutPacket {
    const std::uint8_t* data = nullptr;
    std::size_t size = 0;
    std::uint32_t ip = 0;
    std::uint16_t port = 0;
    int error = 0; // errno of a failed send, 0 when sent
};

// Where stream datagrams go: a UDP socket, or a recorder in tests.
class IPacketSink {
public:
    virtual ~IPacketSink() = default;
    // Must be safe to call from the control and the stream thread.
    virtual void send(SOutPacket* packets, std::size_t count, bool allowFragmentation) = 0;
    virtual std::uint16_t localPort() const = 0;
};

} // namespace gigeemu
