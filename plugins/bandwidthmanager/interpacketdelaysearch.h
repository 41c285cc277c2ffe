#pragma once

#include <QtGlobal>

#include <optional>

// Finds the inter-packet delay at which a GigE camera's throughput meets a
// target, in few register round trips. Where the link sets the rate, a packet
// takes its wire time plus the delay, so 1/throughput is linear in the delay:
// one reading and the packet's wire time place the line, a second reading
// corrects it (secant). Where the frame rate sets the throughput it does not
// change with the delay; there the bracket is bisected.
class CInterPacketDelaySearch
{
public:
    // packetWireTicks: one packet's time on the wire in delay ticks, 0 when unknown.
    CInterPacketDelaySearch(qint64 minDelay, qint64 maxDelay, qint64 increment, qint64 targetBytesPerSecond,
                            double packetWireTicks);

    // A reading at a delay; the next delay to write, or none when the target is
    // met (rounded to MB/s, not above it) or no delay is left to try.
    std::optional<qint64> next(qint64 delay, qint64 throughput);

private:
    qint64 predicted(qint64 delay, qint64 throughput) const;
    // Up to the next delay the camera takes.
    qint64 onGrid(qint64 delay) const;

    qint64 m_min;
    qint64 m_increment;
    qint64 m_target;
    double m_wireTicks;
    // Delays still worth trying.
    qint64 m_low;
    qint64 m_high;
    // The closest reading yet, where no delay meets the target exactly enough.
    qint64 m_bestDelay = -1;
    qint64 m_bestMiss = 0;
    bool m_hasPrevious = false;
    qint64 m_previousDelay = 0;
    qint64 m_previousThroughput = 0;
};
