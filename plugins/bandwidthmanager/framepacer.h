#pragma once

#include <ParameterCollection/IParameterCollection.h>

namespace Plugin::BandwidthManager {

// Paces a GigE camera whose frame rate, not its link, keeps it below its share.
//
// At its smallest inter-packet delay such a camera sends each frame at the
// full line rate and then falls silent until the next one: on average it fits,
// but its bursts land on top of the paced traffic of the other cameras and
// overflow the switch. Its "GevSCDCT" stays at the frame-rate-bound average
// for every delay that still lets a frame leave within its frame period, so the
// limiter's search cannot see the bursts. The pacer measures the device
// throughput at delays where the link sets it (1 / throughput grows linearly
// with the delay there), extrapolates the delay at which the frame is spread
// over FramePeriodUse of its period, and never paces faster than the share.
class CFramePacer
{
public:
    // 80 %: a frame must be out before the next one starts, or the camera's
    // frame rate drops; a fifth of the period absorbs the camera's own timing
    // jitter, whole-tick rounding and a camera port slower than assumed. The
    // paced rate (need / 0.8) is what the run charges against the link, so a
    // wider margin would take that much budget from the other cameras.
    static constexpr double FramePeriodUse = 0.8;

    explicit CFramePacer(ParameterCollection::ParameterCollectionPtr ptrParameters);

    // For a camera left at its smallest delay that sends less than
    // shareBytesPerSecond: sets the pacing delay and returns the rate at which
    // it now sends while it sends, in bytes per second. Returns -1 and changes
    // nothing for any other camera. Raises what the parameter layer raises.
    qint64 pace(qint64 shareBytesPerSecond);

private:
    struct SPoint
    {
        qint64 delay = 0;
        qint64 throughput = 0;
    };

    qint64 throughputAt(qint64 delay);
    bool linkBound(qint64 throughput) const;
    bool findLinkBoundPoints(SPoint& near, SPoint& far);
    qint64 fittingDelay(qint64 delay);

    ParameterCollection::IntegerParameterPtr m_ptrDelay;
    ParameterCollection::IntegerParameterPtr m_ptrThroughput;
    qint64 m_minimum = 0;
    qint64 m_maximum = 0;
    qint64 m_need = 0;
};

} // namespace Plugin::BandwidthManager
