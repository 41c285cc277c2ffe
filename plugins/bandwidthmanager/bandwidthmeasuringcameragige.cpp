#include "bandwidthmeasuringcameragige.h"

#include <Core/Logging/Logging.h>

namespace Plugin::BandwidthManager {

using namespace ParameterCollection;

namespace {

const QString kTransportLayer = QStringLiteral("@DeviceTransportLayer");

quint64 logCategory()
{
    static const quint64 id = Core::Logging::getCatId("zenta.viewer.plugins.bandwidthManager.measuringCamera");
    return id;
}

template <class TParameter>
bool isReadable(const QSharedPointer<TParameter>& ptrParameter)
{
    return ptrParameter && !ptrParameter->isNull() && ptrParameter->isReadable();
}

template <class TParameter>
bool isWritable(const QSharedPointer<TParameter>& ptrParameter)
{
    return ptrParameter && !ptrParameter->isNull() && ptrParameter->isWritable();
}

} // namespace

CBandwidthMeasuringCameraGigE::CBandwidthMeasuringCameraGigE(
    ParameterCollectionPtr ptrParameters, Core::CameraPoolComponents::CameraInfoPtr ptrCameraInfo,
    QSharedPointer<Plugin::CameraPool::ICameraStatusService> ptrStatusService,
    QSharedPointer<Plugin::CameraPool::ICameraControlService> ptrControlService)
    : CBandwidthMeasuringCamera(std::move(ptrParameters), std::move(ptrCameraInfo), std::move(ptrStatusService),
                                std::move(ptrControlService))
{
}

CBandwidthMeasuringCameraGigE::~CBandwidthMeasuringCameraGigE()
{
    Core::Logging::createLogEntry(Core::Logging::LogLevelInfo, logCategory(),
                                  QStringLiteral("Destroying CBandwidthMeasuringCameraGigE"));
}

void CBandwidthMeasuringCameraGigE::initParameters()
{
    const ParameterCollectionPtr ptrParameters = getParameters();
    if (getCameraInfo() && ptrParameters) {
        // Written as they stand and never restored, deliberately: the camera keeps them.
        try {
            const IntegerParameterPtr ptrHeartbeat = ptrParameters->getIntegerParameter(kTransportLayer + "/HeartbeatTimeout");
            if (ptrHeartbeat && !ptrHeartbeat->isNull())
                ptrHeartbeat->setValue(10000, CorrectionNone);
            const IntegerParameterPtr ptrWriteTimeout = ptrParameters->getIntegerParameter(kTransportLayer + "/WriteTimeout");
            if (ptrWriteTimeout && !ptrWriteTimeout->isNull())
                ptrWriteTimeout->setValue(50, CorrectionNone);
            const BooleanParameterPtr ptrDuplication =
                ptrParameters->getBooleanParameter(kTransportLayer + "/CommandDuplicationEnable");
            if (isWritable(ptrDuplication))
                ptrDuplication->setValue(true);
            const IntegerParameterPtr ptrRetries = ptrParameters->getIntegerParameter(kTransportLayer + "/MaxRetryCountWrite");
            if (isWritable(ptrRetries))
                ptrRetries->setValue(ptrRetries->getMax(), CorrectionNone);
        } catch (...) {
            // A transport layer that refuses one setting keeps the ones already made.
        }
    }
    CBandwidthMeasuringCamera::initParameters();
}

bool CBandwidthMeasuringCameraGigE::isFrameTransmissionDelaySet() const
{
    const ParameterCollectionPtr ptrParameters = getParameters();
    if (!ptrParameters)
        return false;
    const IntegerParameterPtr ptrDelay = ptrParameters->getIntegerParameter(QStringLiteral("GevSCFTD"));
    return isReadable(ptrDelay) && ptrDelay->getValue() != 0;
}

bool CBandwidthMeasuringCameraGigE::setFrameTransmissionDelay(quint64 value)
{
    const ParameterCollectionPtr ptrParameters = getParameters();
    if (!ptrParameters)
        return false;
    const IntegerParameterPtr ptrDelay = ptrParameters->getIntegerParameter(QStringLiteral("GevSCFTD"));
    try {
        if (isWritable(ptrDelay))
            ptrDelay->setValueVerified(qint64(value), true);
    } catch (...) {
        // Refused values show in the read-back below.
    }
    return isReadable(ptrDelay) && ptrDelay->getValue() == qint64(value);
}

bool CBandwidthMeasuringCameraGigE::setPacketSize(quint64 value)
{
    const ParameterCollectionPtr ptrParameters = getParameters();
    if (!ptrParameters)
        return false;
    const IntegerParameterPtr ptrSize = ptrParameters->getIntegerParameter(QStringLiteral("GevSCPSPacketSize"));
    if (isWritable(ptrSize))
        ptrSize->setValueVerified(qint64(value), true);
    return isReadable(ptrSize) && ptrSize->getValue() == qint64(value);
}

bool CBandwidthMeasuringCameraGigE::probePacketSize(qint64* pSizeAfter, qint64* pSizeBefore)
{
    const ParameterCollectionPtr ptrParameters = getParameters();
    if (!ptrParameters)
        return false;
    const IntegerParameterPtr ptrSize = ptrParameters->getIntegerParameter(QStringLiteral("GevSCPSPacketSize"));
    if (pSizeBefore && isReadable(ptrSize))
        *pSizeBefore = ptrSize->getValue();

    bool probed = false;
    try {
        const CommandParameterPtr ptrProbe = ptrParameters->getCommandParameter(QStringLiteral("@StreamGrabber0/ProbePacketSize"));
        if (ptrProbe && !ptrProbe->isNull()) {
            ptrProbe->execute(true);
            probed = true;
        }
    } catch (...) {
    }

    if (pSizeAfter && isReadable(ptrSize))
        *pSizeAfter = ptrSize->getValue();
    return probed;
}

qint64 CBandwidthMeasuringCameraGigE::getMaximumThroughput()
{
    qint64 result = -1;
    const ParameterCollectionPtr ptrParameters = getParameters();
    if (!ptrParameters)
        return result;
    try {
        const IntegerParameterPtr ptrLimit =
            ptrParameters->getIntegerParameter(QStringLiteral("@CameraDevice/DeviceLinkThroughputLimit"));
        if (isReadable(ptrLimit))
            return ptrLimit->getMax();
        if (ptrLimit && !ptrLimit->isNull())
            return result;

        const IntegerParameterPtr ptrDelay = ptrParameters->getIntegerParameter(QStringLiteral("@CameraDevice/GevSCPD"));
        const IntegerParameterPtr ptrThroughput = ptrParameters->getIntegerParameter(QStringLiteral("@CameraDevice/GevSCDCT"));
        if (!isReadable(ptrDelay) || !ptrDelay->isWritable() || !isReadable(ptrThroughput))
            return result;
        // At the smallest delay the current throughput is the most the camera can send.
        const qint64 savedDelay = ptrDelay->getValue();
        ptrDelay->setToMinimum();
        result = ptrThroughput->getValue();
        ptrDelay->setValueVerified(savedDelay, true);
    } catch (...) {
        // The result stands as far as it was reached, even if the delay stayed at its minimum.
    }
    return result;
}

} // namespace Plugin::BandwidthManager
