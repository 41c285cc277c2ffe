#pragma once

#include "PacketSink.h"

#include <mutex>
#include <string>

namespace gigeemu {

// The stream channel's socket. Datagrams above the path MTU fail instead of being fragmented.
class CUdpPacketSink : public IPacketSink {
public:
    CUdpPacketSink() = default;
    ~CUdpPacketSink() override;
    CUdpPacketSink(const CUdpPacketSink&) = delete;
    CUdpPacketSink& operator=(const CUdpPacketSink&) = delete;

    bool open(std::uint32_t ip, std::string& error);
    void send(SOutPacket* packets, std::size_t count, bool allowFragmentation) override;
    std::uint16_t localPort() const override { return m_port; }

private:
    void setFragmentation(bool allow);

    int m_fd = -1;
    std::uint16_t m_port = 0;
    bool m_fragmenting = false;
    std::mutex m_mutex;
};

} // namespace gigeemu
