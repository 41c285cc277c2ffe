#pragma once

#include <QtGlobal>

#include <atomic>
#include <vector>

namespace CameraPool {

// Hands the newest frame from the stream thread to the GUI thread without a
// lock or an allocation: three preallocated slots, one written, one ready,
// one read, swapped by an atomic index.
class CFrameExchange
{
public:
    struct SFrame
    {
        std::vector<quint8> data;
        size_t size = 0;
        int width = 0;
        int height = 0;
        quint32 pixelFormat = 0;
    };

    // Not while a writer runs.
    void reset(size_t capacity);
    // Stream thread only.
    void publish(const void* data, size_t size, int width, int height, quint32 pixelFormat);
    // Reader thread only; null when nothing new has come since the last call.
    const SFrame* takeLatest();

private:
    static constexpr int FreshBit = 4;
    SFrame m_slots[3];
    int m_writeSlot = 0;
    int m_readSlot = 1;
    std::atomic<int> m_middle{2};
};

} // namespace CameraPool
