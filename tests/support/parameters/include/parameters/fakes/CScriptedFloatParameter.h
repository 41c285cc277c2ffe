#pragma once

#include <parameters/fakes/TScriptedParameter.h>

#include <ParameterCollection/IFloatParameter.h>

#include <algorithm>

namespace ParameterFakes {

class CScriptedFloatParameter : public TScriptedParameter<ParameterCollection::IFloatParameter>
{
public:
    using TScriptedParameter::TScriptedParameter;

    double getValueOrDefault(double defaultValue) const override { return readable() ? getValue() : defaultValue; }
    double getValue() const override { return readValue().toDouble(); }
    double getMin() const override
    {
        readMeta();
        return node().minimum.toDouble();
    }
    double getMax() const override
    {
        readMeta();
        return node().maximum.toDouble();
    }
    void setValue(double value, int correction) override
    {
        beginWrite();
        const double min = node().minimum.toDouble();
        const double max = node().maximum.toDouble();
        if (correction == ParameterCollection::CorrectionNone && (value < min || value > max))
            fail("value out of range");
        store(std::clamp(value, min, max));
    }
    QString unit() const override { return node().unit; }
};

} // namespace ParameterFakes
