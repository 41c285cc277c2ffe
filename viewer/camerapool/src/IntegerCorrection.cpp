#include <camerapool/IntegerCorrection.h>

#include <ParameterCollection/ECorrection.h>

namespace CameraPool {

qint64 correctInteger(qint64 value, qint64 minimum, qint64 maximum, qint64 increment, int correction)
{
    using namespace ParameterCollection;
    if (correction == CorrectionNone || minimum > maximum)
        return value;
    if (increment < 1)
        increment = 1;
    // The largest value on the grid that is still within range.
    const qint64 top = minimum + ((maximum - minimum) / increment) * increment;
    if (value <= minimum)
        return minimum;
    if (value >= top)
        return top;
    const qint64 offset = value - minimum;
    const qint64 below = minimum + (offset / increment) * increment;
    if (below == value)
        return value;
    const qint64 above = below + increment;
    switch (correction) {
    case CorrectionUp:
        return above;
    case CorrectionDown:
        return below;
    default:
        return (value - below) < (above - value) ? below : above;
    }
}

} // namespace CameraPool
