#pragma once

#include <QtGlobal>

namespace CameraPool {

// The valid value for a requested one under an ECorrection: clamped into
// [minimum, maximum] and moved onto minimum + k * increment, up, down or to
// the nearest (ties go up). CorrectionNone gives the value unchanged.
qint64 correctInteger(qint64 value, qint64 minimum, qint64 maximum, qint64 increment, int correction);

} // namespace CameraPool
