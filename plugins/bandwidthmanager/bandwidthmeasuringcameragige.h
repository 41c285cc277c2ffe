#pragma once

#include "bandwidthmeasuringcamera.h"

namespace Plugin::BandwidthManager {

// The measuring camera of a GigE Vision camera: transport-layer settings at
// set-up, and the packet-size and delay operations of the optimisation run.
class CBandwidthMeasuringCameraGigE : public CBandwidthMeasuringCamera
{
    Q_OBJECT
public:
    CBandwidthMeasuringCameraGigE(ParameterCollection::ParameterCollectionPtr ptrParameters,
                                  Core::CameraPoolComponents::CameraInfoPtr ptrCameraInfo,
                                  QSharedPointer<Plugin::CameraPool::ICameraStatusService> ptrStatusService,
                                  QSharedPointer<Plugin::CameraPool::ICameraControlService> ptrControlService);
    ~CBandwidthMeasuringCameraGigE() override;

    void initParameters() override;

    bool isFrameTransmissionDelaySet() const;
    bool setFrameTransmissionDelay(quint64 value);
    // An exception from the write reaches the caller.
    bool setPacketSize(quint64 value);
    // True only if the probe command ran; both pointers may be null.
    bool probePacketSize(qint64* pSizeAfter, qint64* pSizeBefore);
    // Bytes per second; -1 for unknown. Works on any camera, GigE or not.
    qint64 getMaximumThroughput();
};

} // namespace Plugin::BandwidthManager
