#pragma once

#include <QDateTime>
#include <QtGlobal>

namespace Plugin::BandwidthManager {

// One reading of a measuring camera, as the tree stores it per camera.
struct SBandwidthSample
{
    quint64 images = 0;
    quint64 errors = 0;
    // -1.0 tells "not measured" from a measured 0.
    double fpsReceived = -1.0;
    double fpsSent = 0.0;
    // Bytes per second.
    quint64 payloadReceived = 0;
    quint64 bandwidth = 0;
    bool connectionLost = false;
    bool spareFlag = false;
    // Set only when the statistics were reset while the camera was grabbing.
    QDateTime timestamp;
    qint64 deviceLinkThroughputLimit = -1;
};

} // namespace Plugin::BandwidthManager
