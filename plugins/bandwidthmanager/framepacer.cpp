#include "framepacer.h"

#include <algorithm>
#include <cmath>

namespace Plugin::BandwidthManager {

using namespace ParameterCollection;

namespace {

constexpr int MaxSearchRounds = 40;
constexpr int MaxBackoffs = 6;
// Devices round their throughput: within 0.5 % of the need the frame rate still sets it.
constexpr qint64 ToleranceDivisor = 200;

bool isReadable(const IntegerParameterPtr& ptrParameter)
{
    return ptrParameter && !ptrParameter->isNull() && ptrParameter->isReadable();
}

} // namespace

CFramePacer::CFramePacer(ParameterCollectionPtr ptrParameters)
{
    if (ptrParameters) {
        m_ptrDelay = ptrParameters->getIntegerParameter(QStringLiteral("GevSCPD"));
        m_ptrThroughput = ptrParameters->getIntegerParameter(QStringLiteral("GevSCDCT"));
    }
}

qint64 CFramePacer::pace(qint64 shareBytesPerSecond)
{
    if (!isReadable(m_ptrDelay) || !m_ptrDelay->isWritable() || !isReadable(m_ptrThroughput))
        return -1;
    m_minimum = m_ptrDelay->getMin();
    m_maximum = m_ptrDelay->getMax();
    if (m_maximum <= m_minimum || m_ptrDelay->getValue() != m_minimum)
        return -1;
    m_need = m_ptrThroughput->getValue();
    if (m_need <= 0 || m_need >= shareBytesPerSecond)
        return -1;
    const qint64 target = std::min<qint64>(shareBytesPerSecond, qint64(double(m_need) / FramePeriodUse));

    SPoint near;
    SPoint far;
    if (!findLinkBoundPoints(near, far)) {
        // Even the largest delay lets a frame out within its period: that is the gentlest pacing there is.
        if (linkBound(far.throughput))
            fittingDelay(m_maximum - 1);
        else
            m_ptrDelay->setValue(m_maximum, CorrectionNearest);
        return target;
    }
    // 1 / throughput is linear in the delay where the link sets it.
    const double nearInverse = 1.0 / double(near.throughput);
    const double slope = (1.0 / double(far.throughput) - nearInverse) / double(far.delay - near.delay);
    if (!(slope > 0.0)) {
        m_ptrDelay->setValue(m_minimum, CorrectionNearest);
        return -1;
    }
    const double exact = double(near.delay) + (1.0 / double(target) - nearInverse) / slope;
    const qint64 delay = fittingDelay(std::clamp<qint64>(qint64(std::ceil(exact)), m_minimum, near.delay));
    return qint64(1.0 / (nearInverse + double(delay - near.delay) * slope));
}

qint64 CFramePacer::throughputAt(qint64 delay)
{
    m_ptrDelay->setValue(delay, CorrectionNearest);
    return m_ptrThroughput->getValue();
}

bool CFramePacer::linkBound(qint64 throughput) const
{
    return throughput > 0 && throughput < m_need - m_need / ToleranceDivisor;
}

// Two delays at which the link, not the frame rate, sets the throughput; near
// is the smaller one. Bisects from the largest delay towards the smallest.
bool CFramePacer::findLinkBoundPoints(SPoint& near, SPoint& far)
{
    far = SPoint{m_maximum, throughputAt(m_maximum)};
    if (!linkBound(far.throughput))
        return false;
    near = far;
    qint64 frameBound = m_minimum;
    for (int round = 0; round < MaxSearchRounds && near.delay - frameBound > 1; ++round) {
        const qint64 middle = frameBound + (near.delay - frameBound) / 2;
        const qint64 throughput = throughputAt(middle);
        if (!linkBound(throughput)) {
            frameBound = middle;
            continue;
        }
        near = SPoint{middle, throughput};
        return true;
    }
    return false;
}

// The delay, or a smaller one, at which the frame still leaves within its period.
qint64 CFramePacer::fittingDelay(qint64 delay)
{
    for (int round = 0; round < MaxBackoffs && delay > m_minimum; ++round) {
        m_ptrDelay->setValue(delay, CorrectionUp);
        if (!linkBound(m_ptrThroughput->getValue()))
            return m_ptrDelay->getValue();
        delay = m_minimum + (delay - m_minimum) / 2;
    }
    m_ptrDelay->setValue(m_minimum, CorrectionNearest);
    return m_minimum;
}

} // namespace Plugin::BandwidthManager
