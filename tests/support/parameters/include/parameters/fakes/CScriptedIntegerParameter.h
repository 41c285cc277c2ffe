#pragma once

#include <parameters/fakes/TScriptedParameter.h>

#include <ParameterCollection/IIntegerParameter.h>

namespace ParameterFakes {

// Range and increment as scripted; a write outside them raises unless a
// correction is asked for. A device that keeps another value than the one
// written (SScriptedNode::writeLaw) is not caught by verification, only by
// reading back.
class CScriptedIntegerParameter : public TScriptedParameter<ParameterCollection::IIntegerParameter>
{
public:
    using TScriptedParameter::TScriptedParameter;

    ParameterCollection::ParameterDataConstPtr parameterData() const override;

    void setValue(qint64 value, int correction) override;
    void setValueVerified(qint64 value, bool verify) override;
    qint64 getValue() const override;
    qint64 getMin() const override;
    qint64 getMax() const override;
    qint64 getInc() const override;
    bool trySetValue(qint64 value) override;
    qint64 getValueOrDefault(qint64 defaultValue) const override;
    void setToMinimum() override;
    bool trySetToMaximum() override;
    bool trySetToMinimum() override;

private:
    bool isValid(qint64 value) const;
    qint64 corrected(qint64 value, int correction) const;
};

} // namespace ParameterFakes
