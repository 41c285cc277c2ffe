#pragma once

#include <QString>
#include <QtGlobal>

namespace Plugin::BandwidthManager {

// What an optimisation run set on one GigE camera; -1 where it did not read or write.
struct SCameraSettingsChange
{
    QString key;
    qint64 packetSizeBefore = -1;
    qint64 packetSizeAfter = -1;
    qint64 interPacketDelayBefore = -1;
    qint64 interPacketDelayAfter = -1;
    qint64 frameTransmissionDelay = -1;
    // The rate the run charged the camera with, bytes per second.
    qint64 usedBandwidth = -1;
};

} // namespace Plugin::BandwidthManager
