#pragma once

#include <camerapool/TNodeParameter.h>

#include <ParameterCollection/IFloatParameter.h>

namespace CameraPool {

class CFloatNodeParameter : public TNodeParameter<ParameterCollection::IFloatParameter>
{
public:
    using TNodeParameter::TNodeParameter;

    ParameterCollection::EParameterKind kind() const override { return ParameterCollection::EParameterKind::Float; }
    ParameterCollection::ParameterDataConstPtr parameterData() const override;

    double getValueOrDefault(double defaultValue) const override;
    double getValue() const override;
    double getMin() const override;
    double getMax() const override;
    // Any correction other than none clamps into the range.
    void setValue(double value, int correction) override;
    QString unit() const override;
};

} // namespace CameraPool
