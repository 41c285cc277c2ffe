#include <camerapool/CSyntheticIntegerParameter.h>

#include <camerapool/AravisError.h>
#include <camerapool/IntegerCorrection.h>

namespace CameraPool {

CSyntheticIntegerParameter::CSyntheticIntegerParameter(const CAravisCameraPtr& camera, const QString& name,
                                                       SSource source)
    : TParameterBase(camera, name), m_source(std::move(source))
{
}

void CSyntheticIntegerParameter::checkCamera() const
{
    if (m_source.hostOnly)
        m_camera->checkReachable();
    else
        m_camera->access([](ArvCamera*, ArvDevice*, ArvGc*) { return 0; });
}

bool CSyntheticIntegerParameter::isReadable() const
{
    checkCamera();
    return true;
}

bool CSyntheticIntegerParameter::isWritable() const
{
    checkCamera();
    return bool(m_source.set);
}

ParameterCollection::CParameterMetaData CSyntheticIntegerParameter::metaData() const
{
    return ParameterCollection::CParameterMetaData(
        {{QStringLiteral("AccessMode"), m_source.set ? QStringLiteral("RW") : QStringLiteral("RO")},
         {QStringLiteral("Name"), m_name},
         {QStringLiteral("DisplayName"), m_name}});
}

ParameterCollection::ParameterDataConstPtr CSyntheticIntegerParameter::parameterData() const
{
    return ParameterCollection::ParameterDataConstPtr(new ParameterCollection::IntegerParameterData(
        m_name, getValue(), m_source.minimum, m_source.maximum, m_source.increment));
}

void CSyntheticIntegerParameter::setValue(qint64 value, int correction)
{
    if (!isWritable())
        throwGenICam(QStringLiteral("The node %1 is not writable").arg(m_name));
    const qint64 target = correctInteger(value, m_source.minimum, m_source.maximum, m_source.increment, correction);
    if (target < m_source.minimum || target > m_source.maximum)
        throwGenICam(QStringLiteral("[%1] Value '%2' outside [%3, %4]").arg(m_name).arg(target).arg(m_source.minimum).arg(m_source.maximum));
    m_source.set(target);
    notifyWritten();
}

void CSyntheticIntegerParameter::setValueVerified(qint64 value, bool verify)
{
    setValue(value, ParameterCollection::CorrectionNone);
    if (verify && getValue() != value)
        throwGenICam(QStringLiteral("[%1] Wrote '%2' but read back '%3'").arg(m_name).arg(value).arg(getValue()));
}

qint64 CSyntheticIntegerParameter::getValue() const
{
    checkCamera();
    return m_source.get();
}

qint64 CSyntheticIntegerParameter::getMin() const
{
    return m_source.minimum;
}

qint64 CSyntheticIntegerParameter::getMax() const
{
    return m_source.maximum;
}

qint64 CSyntheticIntegerParameter::getInc() const
{
    return m_source.increment;
}

bool CSyntheticIntegerParameter::trySetValue(qint64 value)
{
    try {
        setValue(value, ParameterCollection::CorrectionNone);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

qint64 CSyntheticIntegerParameter::getValueOrDefault(qint64 defaultValue) const
{
    try {
        return getValue();
    } catch (const std::exception&) {
        return defaultValue;
    }
}

void CSyntheticIntegerParameter::setToMinimum()
{
    setValue(m_source.minimum, ParameterCollection::CorrectionNone);
}

bool CSyntheticIntegerParameter::trySetToMaximum()
{
    try {
        setValue(m_source.maximum, ParameterCollection::CorrectionDown);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool CSyntheticIntegerParameter::trySetToMinimum()
{
    return trySetValue(m_source.minimum);
}

} // namespace CameraPool
