#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace bwm::link {

struct SCapturedFrame
{
    const std::uint8_t* data;
    std::size_t size;       // bytes captured
    std::size_t wireSize;   // bytes the frame had
    std::int64_t stampNs;   // CLOCK_REALTIME of arrival
};

// The camera side of the link: a packet socket on one veth end with a
// memory-mapped receive ring, so one wake-up takes every frame that arrived
// meanwhile instead of one frame per system call.
class CPacketRing
{
public:
    CPacketRing(const std::string& interfaceName, std::size_t maxFrameBytes,
                std::size_t ringBytes);
    ~CPacketRing();
    CPacketRing(const CPacketRing&) = delete;
    CPacketRing& operator=(const CPacketRing&) = delete;

    int fd() const { return m_fd; }

    // Calls sink(const SCapturedFrame&) for each frame that is ready, at most
    // limit of them, and hands their slots back. Returns the count.
    template <typename Sink>
    std::size_t drain(Sink&& sink, std::size_t limit);

    bool send(const std::uint8_t* frame, std::size_t size);
    // Frames the kernel dropped because the ring was full, since the last call.
    std::uint64_t takeDrops();

private:
    bool next(SCapturedFrame& frame);
    void release();

    int m_fd = -1;
    int m_ifindex = 0;
    std::uint8_t* m_ring = nullptr;
    std::size_t m_ringBytes = 0;
    std::size_t m_frameBytes = 0;
    std::size_t m_frameCount = 0;
    std::size_t m_index = 0;
};

template <typename Sink>
std::size_t CPacketRing::drain(Sink&& sink, std::size_t limit)
{
    std::size_t n = 0;
    SCapturedFrame frame{};
    while (n < limit && next(frame)) {
        sink(frame);
        release();
        ++n;
    }
    return n;
}

} // namespace bwm::link
