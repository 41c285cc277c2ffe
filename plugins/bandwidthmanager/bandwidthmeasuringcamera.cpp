#include "bandwidthmeasuringcamera.h"

#include <ParameterCollection/IntegerParameterData.h>

#include <cmath>
#include <limits>

namespace Plugin::BandwidthManager {

using namespace ParameterCollection;
using Core::CameraPoolComponents::CameraInfoPtr;
using GenICam_3_1_Dorvik_zenta::gcstring;
using GenICam_3_1_Dorvik_zenta::gcstring_vector;

namespace {

const QString kStreamGrabber = QStringLiteral("@StreamGrabber0");

template <class TParameter>
bool isReadable(const QSharedPointer<TParameter>& ptrParameter)
{
    return ptrParameter && !ptrParameter->isNull() && ptrParameter->isReadable();
}

// Cuts the fraction; negative and NaN give 0, too large gives the maximum.
quint64 toUnsigned(double value)
{
    if (!(value > 0.0))
        return 0;
    if (value >= 18446744073709551616.0)
        return std::numeric_limits<quint64>::max();
    return quint64(value);
}

// Puts the selector back on every path out of a trigger walk.
class CSelectorRestorer
{
public:
    CSelectorRestorer(EnumerationParameterPtr ptrSelector, gcstring strSaved)
        : m_ptrSelector(std::move(ptrSelector)), m_strSaved(std::move(strSaved)) {}
    ~CSelectorRestorer()
    {
        try {
            m_ptrSelector->setValue(m_strSaved);
        } catch (...) {
        }
    }
    CSelectorRestorer(const CSelectorRestorer&) = delete;
    CSelectorRestorer& operator=(const CSelectorRestorer&) = delete;

private:
    EnumerationParameterPtr m_ptrSelector;
    gcstring m_strSaved;
};

} // namespace

CBandwidthMeasuringCamera::CBandwidthMeasuringCamera(
    ParameterCollectionPtr ptrParameters, CameraInfoPtr ptrCameraInfo,
    QSharedPointer<Plugin::CameraPool::ICameraStatusService> ptrStatusService,
    QSharedPointer<Plugin::CameraPool::ICameraControlService> ptrControlService)
    : m_ptrParameters(std::move(ptrParameters)),
      m_ptrCameraInfo(std::move(ptrCameraInfo)),
      m_ptrStatusService(std::move(ptrStatusService)),
      m_ptrControlService(std::move(ptrControlService))
{
}

CBandwidthMeasuringCamera::~CBandwidthMeasuringCamera()
{
    // The grab thread must be out of onImageGrabbed before this object goes.
    if (m_measuring)
        stopMeasuring();
    releaseCamera();
}

bool CBandwidthMeasuringCamera::openCamera()
{
    if (!m_ptrControlService)
        return false;
    m_ptrCamera = m_ptrControlService->acquireCamera(m_ptrCameraInfo);
    if (!m_ptrCamera) {
        m_cameraIsAcquired = false;
        m_ptrCamera = m_ptrControlService->openCamera(m_ptrCameraInfo);
    }
    if (!m_ptrCamera)
        return false;
    connect(m_ptrCamera.data(), &Plugin::CameraPool::ICamera::cameraImageGrabbed, this,
            &CBandwidthMeasuringCamera::onImageGrabbed, Qt::DirectConnection);
    connect(m_ptrCamera.data(), &Plugin::CameraPool::ICamera::cameraConnectionLost, this,
            &CBandwidthMeasuringCamera::onCameraRemoved);
    return true;
}

void CBandwidthMeasuringCamera::initParameters()
{
    if (!m_ptrParameters)
        return;
    m_ptrErrorCounter = m_ptrParameters->getIntegerParameter(kStreamGrabber + "/Statistic_Buffer_Underrun_Count");
    if (!m_ptrErrorCounter || m_ptrErrorCounter->isNull())
        m_ptrErrorCounter = m_ptrParameters->getIntegerParameter(kStreamGrabber + "/Statistic_Missed_Frame_Count");
    m_lastErrorCounterValue = 0;

    // Whoever changes how the camera sends (an optimisation, an editor, another
    // program) changes the frame rate it can keep: the next sample reads it again.
    m_transportLayerParameters.clear();
    for (const char* name : {"GevSCPSPacketSize", "GevSCPD", "GevSCFTD"}) {
        const IntegerParameterPtr ptrNode = m_ptrParameters->getIntegerParameter(QString::fromLatin1(name));
        if (!ptrNode || ptrNode->isNull())
            continue;
        connect(ptrNode.data(), &IParameter::parameterDataChangedDecoupled, this,
                &CBandwidthMeasuringCamera::onParameterDeviceLinkThroughputLimitChanged);
        m_transportLayerParameters.append(ptrNode);
    }

    m_ptrPayloadParameter = m_ptrParameters->getIntegerParameter(QStringLiteral("PayloadSize"));
    if (!m_ptrPayloadParameter)
        return;
    m_ptrLimitParameter = m_ptrParameters->getIntegerParameter(QStringLiteral("DeviceLinkThroughputLimit"));
    if (!m_ptrLimitParameter)
        return;
    if (isReadable(m_ptrPayloadParameter))
        m_payloadSize = m_ptrPayloadParameter->getValue();
    connect(m_ptrPayloadParameter.data(), &IParameter::parameterDataChangedDecoupled, this,
            &CBandwidthMeasuringCamera::onParameterPayloadSizeChanged);
    connect(m_ptrLimitParameter.data(), &IParameter::parameterDataChangedDecoupled, this,
            &CBandwidthMeasuringCamera::onParameterDeviceLinkThroughputLimitChanged);
}

void CBandwidthMeasuringCamera::onImageGrabbed(const CameraInfoPtr&, const Zenta::CGrabResultPtr& ptrGrabResult)
{
    if (!ptrGrabResult->GrabSucceeded()) {
        m_failedGrabs.store(m_failedGrabs.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
        return;
    }
    m_fpsStatistic.addSample(ptrGrabResult->GetPayloadSize());
    m_grabbedImages.store(m_grabbedImages.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
}

void CBandwidthMeasuringCamera::onParameterPayloadSizeChanged(QSharedPointer<const ParameterData> ptrData)
{
    if (const auto ptrInteger = ptrData.dynamicCast<const IntegerParameterData>())
        m_payloadSize = ptrInteger->value;
}

void CBandwidthMeasuringCamera::onParameterDeviceLinkThroughputLimitChanged(QSharedPointer<const ParameterData> ptrData)
{
    if (ptrData)
        m_frameRateDirty = true;
}

void CBandwidthMeasuringCamera::onCameraRemoved()
{
    if (m_ptrCamera) {
        m_ptrCamera->stopGrabbing();
        m_measuring = false;
    }
    m_connectionLost = true;
}

bool CBandwidthMeasuringCamera::isGrabbing() const
{
    return m_ptrStatusService && m_ptrStatusService->isCameraGrabbing(m_ptrCameraInfo);
}

quint64 CBandwidthMeasuringCamera::estimateBandwidth(double frameRate) const
{
    if (!isReadable(m_ptrPayloadParameter))
        return 0;
    return toUnsigned(double(m_ptrPayloadParameter->getValue()) * frameRate);
}

void CBandwidthMeasuringCamera::readCamera()
{
    const bool grabbing = isGrabbing();
    if (grabbing && m_frameRateDirty) {
        try {
            m_fpsStatistic.reset();
            m_frameRate = getResultingFrameRate();
        } catch (...) {
            // A frame rate that cannot be read keeps the last one.
        }
        m_frameRateDirty = false;
    }
    if (grabbing) {
        const IntegerParameterPtr ptrLimit =
            m_ptrParameters ? m_ptrParameters->getIntegerParameter(QStringLiteral("DeviceLinkThroughputLimit"))
                            : IntegerParameterPtr();
        m_throughputLimit = isReadable(ptrLimit) ? ptrLimit->getValue() : -1;
    } else {
        m_frameRate = getResultingFrameRate();
        m_estimatedBandwidth = estimateBandwidth(m_frameRate);
    }

    quint64 delta = 0;
    if (isReadable(m_ptrErrorCounter)) {
        const qint64 value = m_ptrErrorCounter->getValue();
        if (m_lastErrorCounterValue < value)
            delta = quint64(value - m_lastErrorCounterValue);
        // A counter that fell (the stream was rebuilt) adds nothing and becomes the new base.
        m_lastErrorCounterValue = value;
    }
    m_lostFrames += delta;
}

SBandwidthSample CBandwidthMeasuringCamera::getSample()
{
    SBandwidthSample sample;
    // A lost camera raises on every node access; the counts so far still stand.
    if (!m_connectionLost)
        readCamera();

    sample.images = m_grabbedImages.load(std::memory_order_relaxed) - m_imageBase + m_lostFrames;
    sample.errors = m_failedGrabs.load(std::memory_order_relaxed) - m_errorBase + m_lostFrames;
    size_t bytesPerSecond = 0;
    m_fpsStatistic.computeResult(sample.fpsReceived, bytesPerSecond);
    sample.payloadReceived = bytesPerSecond;
    sample.fpsSent = m_frameRate;
    sample.bandwidth = m_estimatedBandwidth;
    sample.connectionLost = m_connectionLost;
    sample.spareFlag = m_spareFlag;
    sample.timestamp = m_resetTime;
    sample.deviceLinkThroughputLimit = m_throughputLimit;
    return sample;
}

void CBandwidthMeasuringCamera::resetStatistics()
{
    m_fpsStatistic.reset();
    m_imageBase = m_grabbedImages.load(std::memory_order_relaxed);
    m_errorBase = m_failedGrabs.load(std::memory_order_relaxed);
    m_lostFrames = 0;
    if (isReadable(m_ptrErrorCounter))
        m_lastErrorCounterValue = m_ptrErrorCounter->getValue();
    m_resetTime = isGrabbing() ? QDateTime::currentDateTime() : QDateTime();
    m_throughputLimit = -1;
}

void CBandwidthMeasuringCamera::startMeasuring()
{
    if (!m_ptrCamera)
        return;
    // A camera that refuses to grab is not measuring: the row says so.
    m_measuring = m_ptrCamera->startGrabbing();
    m_frameRateDirty = true;
    m_throughputLimit = -1;
}

void CBandwidthMeasuringCamera::stopMeasuring()
{
    if (!m_ptrCamera)
        return;
    m_ptrCamera->stopGrabbing();
    m_measuring = false;
}

bool CBandwidthMeasuringCamera::isMeasuring() const
{
    return m_measuring;
}

bool CBandwidthMeasuringCamera::isConnectionLost() const
{
    return m_connectionLost;
}

bool CBandwidthMeasuringCamera::isGigE() const
{
    return m_ptrCameraInfo && m_ptrCameraInfo->deviceClass() == QLatin1String("GEV");
}

bool CBandwidthMeasuringCamera::hasStreamGrabber() const
{
    return m_ptrParameters && m_ptrParameters->contains(kStreamGrabber + "/MaxNumBuffer");
}

void CBandwidthMeasuringCamera::releaseCamera()
{
    if (!m_ptrCamera)
        return;
    disconnect(m_ptrCamera.data(), nullptr, this, nullptr);
    if (m_ptrControlService) {
        if (m_cameraIsAcquired)
            m_ptrControlService->releaseCamera(m_ptrCamera);
        else
            m_ptrControlService->closeCamera(m_ptrCamera->cameraInfo());
    }
    m_ptrCamera.reset();
}

ParameterCollectionPtr CBandwidthMeasuringCamera::getParameters() const
{
    return m_ptrParameters;
}

CameraInfoPtr CBandwidthMeasuringCamera::getCameraInfo() const
{
    return m_ptrCameraInfo;
}

double CBandwidthMeasuringCamera::getResultingFrameRate() const
{
    if (!m_ptrParameters)
        return 0.0;
    const FloatParameterPtr ptrRate = m_ptrParameters->getFloatParameter(
        QStringLiteral("%1|%2").arg(QStringLiteral("@CameraDevice/ResultingFrameRate"),
                                    QStringLiteral("@CameraDevice/ResultingFrameRateAbs")));
    if (!ptrRate || ptrRate->isNull())
        return 0.0;
    return ptrRate->getValueOrDefault(0.0);
}

quint64 CBandwidthMeasuringCamera::getEstimatedBandwidth() const
{
    return estimateBandwidth(getResultingFrameRate());
}

qint64 CBandwidthMeasuringCamera::getDeviceLinkThroughputLimit() const
{
    if (!m_ptrParameters)
        return -1;
    const IntegerParameterPtr ptrLimit = m_ptrParameters->getIntegerParameter(QStringLiteral("DeviceLinkThroughputLimit"));
    return isReadable(ptrLimit) ? ptrLimit->getValue() : -1;
}

bool CBandwidthMeasuringCamera::isTriggerEnabled() const
{
    if (!m_ptrParameters)
        return false;
    const EnumerationParameterPtr ptrSelector = m_ptrParameters->getEnumerationParameter(QStringLiteral("TriggerSelector"));
    const EnumerationParameterPtr ptrMode = m_ptrParameters->getEnumerationParameter(QStringLiteral("TriggerMode"));
    try {
        if (!isReadable(ptrSelector))
            return false;
        const CSelectorRestorer restorer(ptrSelector, ptrSelector->getValue());
        for (const gcstring& strEntry : ptrSelector->getSettableValues()) {
            ptrSelector->setValue(strEntry);
            if (isReadable(ptrMode) && ptrMode->getValue() == "On")
                return true;
        }
    } catch (...) {
    }
    return false;
}

bool CBandwidthMeasuringCamera::isSoftwareTriggered() const
{
    if (!m_ptrParameters)
        return false;
    const EnumerationParameterPtr ptrSelector = m_ptrParameters->getEnumerationParameter(QStringLiteral("TriggerSelector"));
    const EnumerationParameterPtr ptrMode = m_ptrParameters->getEnumerationParameter(QStringLiteral("TriggerMode"));
    const EnumerationParameterPtr ptrSource = m_ptrParameters->getEnumerationParameter(QStringLiteral("TriggerSource"));
    try {
        if (!isReadable(ptrSelector))
            return false;
        const CSelectorRestorer restorer(ptrSelector, ptrSelector->getValue());
        for (const gcstring& strEntry : ptrSelector->getSettableValues()) {
            ptrSelector->setValue(strEntry);
            if (isReadable(ptrSource) && isReadable(ptrMode) && ptrMode->getValue() == "On"
                && ptrSource->getValue() == "Software")
                return true;
        }
    } catch (...) {
    }
    return false;
}

} // namespace Plugin::BandwidthManager
