#pragma once

#include <QtGlobal>

#include <atomic>

namespace CameraPool {

// Frames that never reached a buffer, told by the gaps in the block ids of the
// buffers that did. Aravis counts an underrun for every packet that finds no
// buffer and a missed frame once per gap, however long; a row counts frames.
// Buffers arrive on the stream thread, in block id order; the counts are read
// anywhere.
class CFrameGapCounter
{
public:
    // GigE Vision block ids without the extended mode run 1..65535, then 1 again.
    explicit CFrameGapCounter(bool sixteenBitIds) : m_sixteenBitIds(sixteenBitIds) {}

    // underrunPackets: the stream's own running count of packets that found no buffer.
    void onBuffer(quint64 blockId, quint64 underrunPackets);
    // A new stream: its first id is no gap, its underrun count starts at 0.
    void restart()
    {
        m_started = false;
        m_lastUnderrunPackets = 0;
        m_underranBefore = false;
    }

    quint64 missedFrames() const { return m_missed.load(std::memory_order_relaxed); }
    // Those of the missed frames whose packets found no buffer.
    quint64 underrunFrames() const { return m_underrun.load(std::memory_order_relaxed); }

private:
    qint64 distance(quint64 blockId) const;

    const bool m_sixteenBitIds;
    bool m_started = false;
    quint64 m_lastId = 0;
    quint64 m_lastUnderrunPackets = 0;
    bool m_underranBefore = false;
    std::atomic<quint64> m_missed{0};
    std::atomic<quint64> m_underrun{0};
};

} // namespace CameraPool
