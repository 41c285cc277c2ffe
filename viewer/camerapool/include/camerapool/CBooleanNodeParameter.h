#pragma once

#include <camerapool/TNodeParameter.h>

#include <ParameterCollection/IBooleanParameter.h>

namespace CameraPool {

class CBooleanNodeParameter : public TNodeParameter<ParameterCollection::IBooleanParameter>
{
public:
    using TNodeParameter::TNodeParameter;

    ParameterCollection::EParameterKind kind() const override { return ParameterCollection::EParameterKind::Boolean; }
    ParameterCollection::ParameterDataConstPtr parameterData() const override;

    void setValue(bool value) override;
    bool getValue() const override;
};

} // namespace CameraPool
