#pragma once

#include <QString>

namespace Plugin::BandwidthManager {

// The wording of a caught camera-access failure, for the exception in flight;
// call it only from a catch block. activity completes "... caught while %1".
QString describeCurrentException(const QString& activity);

} // namespace Plugin::BandwidthManager
