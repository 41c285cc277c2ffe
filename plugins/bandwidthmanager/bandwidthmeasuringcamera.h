#pragma once

#include "sbandwidthsample.h"

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <ParameterCollection/IParameterCollection.h>
#include <Plugin/CameraPool/ICamera.h>
#include <Plugin/CameraPool/ICameraControlService.h>
#include <Plugin/CameraPool/ICameraStatusService.h>
#include <Utilities/FpsStatistic.h>
#include <Zenta/CGrabResultPtr.h>

#include <QDateTime>
#include <QObject>
#include <QSharedPointer>

#include <atomic>

namespace Plugin::BandwidthManager {

// Counts what arrives from one camera and reads what the camera says it sends.
//
// onImageGrabbed runs on the camera's grab thread; everything else on the GUI
// thread. The grab thread is the only writer of m_grabbedImages,
// m_failedGrabs and m_fpsStatistic. The GUI thread never writes them:
// resetStatistics moves its own baselines instead, so a reset while grabbing
// loses no increment and takes no lock.
class CBandwidthMeasuringCamera : public QObject
{
    Q_OBJECT
public:
    CBandwidthMeasuringCamera(ParameterCollection::ParameterCollectionPtr ptrParameters,
                              Core::CameraPoolComponents::CameraInfoPtr ptrCameraInfo,
                              QSharedPointer<Plugin::CameraPool::ICameraStatusService> ptrStatusService,
                              QSharedPointer<Plugin::CameraPool::ICameraControlService> ptrControlService);
    ~CBandwidthMeasuringCamera() override;

    virtual void initParameters();
    virtual bool openCamera();

    // May raise what the parameter layer raises.
    SBandwidthSample getSample();
    void resetStatistics();
    void startMeasuring();
    void stopMeasuring();
    bool isMeasuring() const;
    bool isConnectionLost() const;
    bool isGigE() const;
    bool hasStreamGrabber() const;
    void releaseCamera();

    ParameterCollection::ParameterCollectionPtr getParameters() const;
    Core::CameraPoolComponents::CameraInfoPtr getCameraInfo() const;

    double getResultingFrameRate() const;
    quint64 getEstimatedBandwidth() const;
    qint64 getDeviceLinkThroughputLimit() const;
    bool isTriggerEnabled() const;
    bool isSoftwareTriggered() const;

public slots:
    void onImageGrabbed(const Core::CameraPoolComponents::CameraInfoPtr& ptrCameraInfo,
                        const Zenta::CGrabResultPtr& ptrGrabResult);

protected slots:
    void onParameterPayloadSizeChanged(QSharedPointer<const ParameterCollection::ParameterData> ptrData);
    void onParameterDeviceLinkThroughputLimitChanged(QSharedPointer<const ParameterCollection::ParameterData> ptrData);
    void onCameraRemoved();

private:
    bool isGrabbing() const;
    quint64 estimateBandwidth(double frameRate) const;
    void readCamera();

    FpsStatistic m_fpsStatistic;
    // Written by the grab thread only; relaxed is enough for a single writer.
    std::atomic<quint64> m_grabbedImages{0};
    std::atomic<quint64> m_failedGrabs{0};

    // GUI thread only.
    quint64 m_imageBase = 0;
    quint64 m_errorBase = 0;
    quint64 m_lostFrames = 0;
    bool m_measuring = false;
    double m_frameRate = 0.0;
    quint64 m_estimatedBandwidth = 0;
    qint64 m_payloadSize = 0;
    bool m_connectionLost = false;
    // Nothing sets it; it is copied into every sample all the same, deliberately.
    bool m_spareFlag = false;
    bool m_frameRateDirty = false;
    QDateTime m_resetTime;
    qint64 m_lastErrorCounterValue = 0;
    ParameterCollection::IntegerParameterPtr m_ptrErrorCounter;
    qint64 m_throughputLimit = -1;
    bool m_cameraIsAcquired = true;
    ParameterCollection::ParameterCollectionPtr m_ptrParameters;
    Core::CameraPoolComponents::CameraInfoPtr m_ptrCameraInfo;
    QSharedPointer<Plugin::CameraPool::ICameraStatusService> m_ptrStatusService;
    QSharedPointer<Plugin::CameraPool::ICameraControlService> m_ptrControlService;
    ParameterCollection::IntegerParameterPtr m_ptrPayloadParameter;
    ParameterCollection::IntegerParameterPtr m_ptrLimitParameter;
    // Held so that their change notifications keep coming.
    QList<ParameterCollection::IntegerParameterPtr> m_transportLayerParameters;
    Plugin::CameraPool::ICameraPtr m_ptrCamera;
};

} // namespace Plugin::BandwidthManager
