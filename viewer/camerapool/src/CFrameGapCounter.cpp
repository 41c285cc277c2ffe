#include "camerapool/CFrameGapCounter.h"

namespace CameraPool {

namespace {

constexpr qint64 SixteenBitIds = 0xFFFF;
// A jump further than half the 16-bit id space is a camera that started over,
// not tens of thousands of lost frames.
constexpr qint64 MaxGap = 0x7FFF;

} // namespace

// Positive ahead of the last id, negative behind it.
qint64 CFrameGapCounter::distance(quint64 blockId) const
{
    qint64 d = qint64(blockId - m_lastId);
    if (m_sixteenBitIds && blockId <= quint64(SixteenBitIds) && m_lastId <= quint64(SixteenBitIds)) {
        // Id 0 is never sent: 65535 is followed by 1.
        d %= SixteenBitIds;
        if (d > SixteenBitIds / 2)
            d -= SixteenBitIds;
        else if (d < -SixteenBitIds / 2)
            d += SixteenBitIds;
    }
    return d;
}

void CFrameGapCounter::onBuffer(quint64 blockId, quint64 underrunPackets)
{
    // Packets that find no buffer while the buffers are held by frames that wait
    // out their retention belong to frames after those: the gap that the next
    // buffer shows, unless this one shows it already.
    const bool underranNow = underrunPackets > m_lastUnderrunPackets;
    const bool underran = underranNow || m_underranBefore;
    m_lastUnderrunPackets = underrunPackets;
    m_underranBefore = underranNow;
    if (!m_started) {
        m_started = true;
        m_lastId = blockId;
        return;
    }
    const qint64 d = distance(blockId);
    // Aravis closes frames in order: an id at or shortly behind the last is no news.
    if (d <= 0 && d >= -MaxGap)
        return;
    m_lastId = blockId;
    if (d < 2 || d - 1 > MaxGap)
        return;
    m_underranBefore = false;
    m_missed.fetch_add(quint64(d - 1), std::memory_order_relaxed);
    if (underran)
        m_underrun.fetch_add(quint64(d - 1), std::memory_order_relaxed);
}

} // namespace CameraPool
