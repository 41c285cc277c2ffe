#include "devicelinkthroughputlimiteditor.h"

#include "exceptiontext.h"

#include <Core/Exception/BaseException.h>
#include <Core/Logging/Logging.h>
#include <ParameterCollection/IntegerParameterData.h>

#include <algorithm>

using namespace ParameterCollection;

namespace {

quint64 logCategory()
{
    static const quint64 id = Core::Logging::getCatId("zenta.viewer.plugins.bandwidthManager.deviceLink");
    return id;
}

// Call from a catch block: logs the exception in flight at level 2.
void logCurrentException(const QString& activity)
{
    Core::Logging::createLogEntry(Core::Logging::LogLevelWarning, logCategory(),
                                  Plugin::BandwidthManager::describeCurrentException(activity));
}

// 32-bit signed arithmetic that wraps instead of being undefined.
qint32 add32(qint32 a, qint32 b)
{
    return qint32(quint32(a) + quint32(b));
}

qint32 multiply32(qint32 a, qint32 b)
{
    return qint32(quint32(a) * quint32(b));
}

} // namespace

DeviceLinkThroughputLimitEditor::DeviceLinkThroughputLimitEditor(ParameterCollectionPtr ptrParameters, QWidget* parent)
    : ComboSlider(parent), m_ptrParameters(std::move(ptrParameters))
{
    try {
        if (m_ptrParameters) {
            m_ptrSelector = m_ptrParameters->getIntegerParameter(QStringLiteral("DeviceLinkSelector"));
            m_ptrMode = m_ptrParameters->getEnumerationParameter(QStringLiteral("DeviceLinkThroughputLimitMode"));
            m_ptrLimit = m_ptrParameters->getIntegerParameter(QStringLiteral("DeviceLinkThroughputLimit"));
            m_ptrDelay = m_ptrParameters->getIntegerParameter(QStringLiteral("GevSCPD"));
        }
        if (m_ptrSelector && !m_ptrSelector->isNull() && m_ptrSelector->isReadable() && m_ptrSelector->isWritable())
            m_ptrSelector->trySetToMinimum();
        // Opening the editor turns the limit on.
        if (m_ptrMode && !m_ptrMode->isNull() && m_ptrMode->isWritable()) {
            const GenICam_3_1_Dorvik_zenta::gcstring_vector entries = m_ptrMode->getSettableValues();
            if (std::find(entries.begin(), entries.end(), GenICam_3_1_Dorvik_zenta::gcstring("On")) != entries.end()) {
                m_ptrMode->setValue("On");
                m_modeAccess = m_ptrMode->metaData().property(QStringLiteral("AccessMode"));
            }
        }
    } catch (...) {
        logCurrentException(QStringLiteral("setting value: DeviceLinkThroughputLimitMode."));
    }
    if (m_ptrLimit) {
        connect(m_ptrLimit.data(),
                SIGNAL(parameterDataChangedDecoupled(QSharedPointer<const ParameterCollection::ParameterData>)), this,
                SLOT(onParameterDataChanged(QSharedPointer<const ParameterCollection::ParameterData>)));
        try {
            if (!m_ptrLimit->isNull() && m_ptrLimit->isReadable())
                onParameterDataChanged(m_ptrLimit->parameterData());
        } catch (...) {
            logCurrentException(QStringLiteral("getting value: DeviceLinkThroughputLimit for setting slider value."));
        }
    }
    connect(this, SIGNAL(valueChanged(int)), this, SLOT(onValueChanged(int)));
}

DeviceLinkThroughputLimitEditor::~DeviceLinkThroughputLimitEditor()
{
    disconnectOwnSlots();
}

void DeviceLinkThroughputLimitEditor::disconnectOwnSlots()
{
    disconnect(this, nullptr, this, SLOT(onValueChanged(int)));
    // Names no slot of this class and so disconnects nothing; kept deliberately.
    disconnect(this, nullptr, this, SLOT(onNodeCallback()));
}

bool DeviceLinkThroughputLimitEditor::isPossible(const ParameterCollectionPtr& ptrParameters)
{
    if (!ptrParameters || !ptrParameters->contains(QStringLiteral("DeviceLinkThroughputLimit")))
        return false;
    const IntegerParameterPtr ptrLimit = ptrParameters->getIntegerParameter(QStringLiteral("DeviceLinkThroughputLimit"));
    return ptrLimit && ptrLimit->isWritable();
}

void DeviceLinkThroughputLimitEditor::setRangeAndStep(int minVal, int maxVal, int incVal)
{
    const qint32 divisor = m_unitDivisor;
    const int minimum = qMax(1, add32(divisor / 2, minVal) / divisor);
    // Cut, not rounded: the slider never goes above the node's maximum.
    const int maximum = maxVal / divisor;
    const int step = qMax(1, incVal / divisor);
    ComboSlider::setRangeAndStep(minimum, maximum, step);
}

void DeviceLinkThroughputLimitEditor::onParameterDataChanged(QSharedPointer<const ParameterData> ptrParameterData)
{
    try {
        const auto* pData = dynamic_cast<const IntegerParameterData*>(ptrParameterData.data());
        if (!pData)
            throw Core::Exception::BaseException(QStringLiteral("No integer data for DeviceLinkThroughputLimit."));
        setRangeAndStep(int(pData->minimum), int(pData->maximum), int(pData->increment));
        // The base's setValue sends no valueChanged(int), so nothing is written back.
        ComboSlider::setValue(add32(m_unitDivisor / 2, int(pData->value)) / m_unitDivisor);
    } catch (...) {
        logCurrentException(QStringLiteral("getting value: DeviceLinkThroughputLimit for setting slider value."));
    }
}

void DeviceLinkThroughputLimitEditor::onValueChanged(int)
{
    writeSliderValue();
}

void DeviceLinkThroughputLimitEditor::setValue(int value)
{
    ComboSlider::setValue(add32(m_unitDivisor / 2, value) / m_unitDivisor);
    writeSliderValue();
}

void DeviceLinkThroughputLimitEditor::writeSliderValue()
{
    try {
        if (!m_ptrLimit)
            throw Core::Exception::BaseException(QStringLiteral("The camera has no node DeviceLinkThroughputLimit."));
        // The product is 32-bit and wraps above 2147 MB/s; deliberate.
        const qint64 bytesPerSecond = multiply32(value(), m_unitDivisor);
        m_ptrLimit->setValue(bytesPerSecond, CorrectionNearest);
    } catch (...) {
        logCurrentException(QStringLiteral("setting value: DeviceLinkThroughputLimit according to slider value."));
    }
}

bool DeviceLinkThroughputLimitEditor::isAtMaximum()
{
    try {
        if (!m_ptrDelay)
            throw Core::Exception::BaseException(QStringLiteral("The camera has no node GevSCPD."));
        // Reads the delay although the words below name the limit; deliberate.
        return m_ptrDelay->getValue() >= m_ptrDelay->getMax() - 1;
    } catch (...) {
        logCurrentException(QStringLiteral("getting value: DeviceLinkThroughputLimit and/or its maximum."));
        return false;
    }
}
