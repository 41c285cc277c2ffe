#pragma once

#include <ParameterCollection/ECorrection.h>
#include <ParameterCollection/IParameter.h>

namespace ParameterCollection {

class IFloatParameter : public IParameter
{
    Q_OBJECT
public:
    using IParameter::IParameter;

    virtual double getValueOrDefault(double defaultValue) const = 0;
    virtual double getValue() const = 0;
    virtual double getMin() const = 0;
    virtual double getMax() const = 0;
    virtual void setValue(double value, int correction) = 0;
    virtual QString unit() const = 0;
};

using FloatParameterPtr = QSharedPointer<IFloatParameter>;

} // namespace ParameterCollection
