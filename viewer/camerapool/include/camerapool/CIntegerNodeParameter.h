#pragma once

#include <camerapool/TNodeParameter.h>

#include <ParameterCollection/IIntegerParameter.h>

namespace CameraPool {

class CIntegerNodeParameter : public TNodeParameter<ParameterCollection::IIntegerParameter>
{
public:
    using TNodeParameter::TNodeParameter;

    ParameterCollection::EParameterKind kind() const override { return ParameterCollection::EParameterKind::Integer; }
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
};

} // namespace CameraPool
