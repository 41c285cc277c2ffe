#include "interpacketdelaysearch.h"

#include <algorithm>
#include <cmath>

namespace {

// Within this below the target the rounded MB/s is the wish.
constexpr qint64 HalfMegabyte = 500000;

} // namespace

CInterPacketDelaySearch::CInterPacketDelaySearch(qint64 minDelay, qint64 maxDelay, qint64 increment,
                                                 qint64 targetBytesPerSecond, double packetWireTicks)
    : m_min(minDelay)
    , m_increment(std::max<qint64>(1, increment))
    , m_target(targetBytesPerSecond)
    , m_wireTicks(packetWireTicks)
    , m_low(minDelay)
    , m_high(maxDelay)
{
}

qint64 CInterPacketDelaySearch::onGrid(qint64 delay) const
{
    const qint64 steps = (delay - m_min + m_increment - 1) / m_increment;
    return m_min + std::max<qint64>(0, steps) * m_increment;
}

std::optional<qint64> CInterPacketDelaySearch::next(qint64 delay, qint64 throughput)
{
    // Not above the target: an Optimize share must not be overrun by rounding.
    if (throughput <= m_target && throughput >= m_target - HalfMegabyte)
        return std::nullopt;
    const qint64 miss = std::abs(throughput - m_target);
    if (m_bestDelay < 0 || miss < m_bestMiss) {
        m_bestDelay = delay;
        m_bestMiss = miss;
    }
    if (throughput > m_target)
        m_low = std::max(m_low, onGrid(delay + 1));
    else
        m_high = std::min(m_high, delay - 1);
    // Every delay tried: where one tick moves the rate by more than a MB/s, the
    // closest one it was.
    if (m_low > m_high)
        return m_bestDelay == delay ? std::nullopt : std::optional<qint64>(m_bestDelay);
    qint64 candidate = predicted(delay, throughput);
    m_hasPrevious = true;
    m_previousDelay = delay;
    m_previousThroughput = throughput;
    candidate = candidate < 0 ? candidate : onGrid(candidate);
    // A prediction a step beyond the bracket is rounding: take the bracket's
    // end. One far beyond it is a wrong line: bisect.
    if (candidate >= 0 && candidate < m_low && m_low - candidate <= m_increment)
        candidate = m_low;
    else if (candidate > m_high && candidate - m_high <= m_increment)
        candidate = m_high;
    else if (candidate < m_low || candidate > m_high)
        candidate = onGrid(m_low + (m_high - m_low) / 2);
    if (candidate > m_high)
        return std::nullopt;
    return candidate;
}

qint64 CInterPacketDelaySearch::predicted(qint64 delay, qint64 throughput) const
{
    if (throughput <= 0)
        return -1;
    const double inverseTarget = 1.0 / double(m_target);
    const double inverse = 1.0 / double(throughput);
    double slope = 0.0;
    if (m_hasPrevious && m_previousDelay != delay && m_previousThroughput > 0)
        slope = (inverse - 1.0 / double(m_previousThroughput)) / double(delay - m_previousDelay);
    // A flat stretch (the frame rate rules) or noise gives no slope: the wire time does.
    if (!(slope > 0.0) && m_wireTicks > 0.0)
        slope = inverse / (m_wireTicks + double(delay));
    if (!(slope > 0.0))
        return -1;
    // Rounded up: a tick more delay sends a little less, never more.
    return qint64(std::ceil(double(delay) + (inverseTarget - inverse) / slope - 1e-9));
}
