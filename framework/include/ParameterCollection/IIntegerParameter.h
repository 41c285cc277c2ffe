#pragma once

#include <ParameterCollection/ECorrection.h>
#include <ParameterCollection/IParameter.h>

namespace ParameterCollection {

class IIntegerParameter : public IParameter
{
    Q_OBJECT
public:
    using IParameter::IParameter;

    // correction is an ECorrection; values outside the range are clamped
    // unless it is CorrectionNone.
    virtual void setValue(qint64 value, int correction) = 0;
    // With verify, reads the value back and raises if the camera changed it.
    virtual void setValueVerified(qint64 value, bool verify) = 0;
    virtual qint64 getValue() const = 0;
    virtual qint64 getMin() const = 0;
    virtual qint64 getMax() const = 0;
    virtual qint64 getInc() const = 0;
    virtual bool trySetValue(qint64 value) = 0;
    virtual qint64 getValueOrDefault(qint64 defaultValue) const = 0;
    virtual void setToMinimum() = 0;
    virtual bool trySetToMaximum() = 0;
    virtual bool trySetToMinimum() = 0;
};

using IntegerParameterPtr = QSharedPointer<IIntegerParameter>;

} // namespace ParameterCollection
