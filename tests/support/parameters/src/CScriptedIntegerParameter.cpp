#include <parameters/fakes/CScriptedIntegerParameter.h>

#include <ParameterCollection/ECorrection.h>
#include <ParameterCollection/IntegerParameterData.h>

#include <algorithm>

namespace ParameterFakes {

using namespace ParameterCollection;

ParameterDataConstPtr CScriptedIntegerParameter::parameterData() const
{
    const SScriptedNode& n = node();
    return ParameterDataConstPtr(new IntegerParameterData(n.name, current().toLongLong(), n.minimum.toLongLong(),
                                                          n.maximum.toLongLong(), n.increment));
}

bool CScriptedIntegerParameter::isValid(qint64 value) const
{
    const SScriptedNode& n = node();
    const qint64 min = n.minimum.toLongLong();
    return value >= min && value <= n.maximum.toLongLong() && (n.increment <= 1 || (value - min) % n.increment == 0);
}

qint64 CScriptedIntegerParameter::corrected(qint64 value, int correction) const
{
    const SScriptedNode& n = node();
    const qint64 min = n.minimum.toLongLong();
    const qint64 max = n.maximum.toLongLong();
    const qint64 inc = std::max<qint64>(1, n.increment);
    value = std::clamp(value, min, max);
    const qint64 below = min + (value - min) / inc * inc;
    const qint64 above = below == value ? value : below + inc;
    switch (correction) {
    case CorrectionUp:
        return above <= max ? above : below;
    case CorrectionDown:
        return below;
    default:
        return (value - below <= above - value || above > max) ? below : above;
    }
}

void CScriptedIntegerParameter::setValue(qint64 value, int correction)
{
    beginWrite();
    if (correction == CorrectionNone) {
        if (!isValid(value))
            fail("value out of range or off increment");
    } else {
        value = corrected(value, correction);
    }
    store(value);
}

void CScriptedIntegerParameter::setValueVerified(qint64 value, bool verify)
{
    beginWrite();
    if (verify && !isValid(value))
        fail("value out of range or off increment");
    store(verify ? value : corrected(value, CorrectionNearest));
}

qint64 CScriptedIntegerParameter::getValue() const
{
    return readValue().toLongLong();
}

qint64 CScriptedIntegerParameter::getMin() const
{
    readMeta();
    return node().minimum.toLongLong();
}

qint64 CScriptedIntegerParameter::getMax() const
{
    readMeta();
    return node().maximum.toLongLong();
}

qint64 CScriptedIntegerParameter::getInc() const
{
    readMeta();
    return node().increment;
}

bool CScriptedIntegerParameter::trySetValue(qint64 value)
{
    if (!writable() || !isValid(value))
        return false;
    setValue(value, CorrectionNone);
    return true;
}

qint64 CScriptedIntegerParameter::getValueOrDefault(qint64 defaultValue) const
{
    return readable() ? getValue() : defaultValue;
}

void CScriptedIntegerParameter::setToMinimum()
{
    setValue(getMin(), CorrectionNone);
}

bool CScriptedIntegerParameter::trySetToMaximum()
{
    return trySetValue(node().maximum.toLongLong());
}

bool CScriptedIntegerParameter::trySetToMinimum()
{
    return trySetValue(node().minimum.toLongLong());
}

} // namespace ParameterFakes
