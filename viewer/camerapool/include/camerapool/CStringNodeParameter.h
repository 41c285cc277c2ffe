#pragma once

#include <camerapool/TNodeParameter.h>

#include <ParameterCollection/IStringParameter.h>

namespace CameraPool {

class CStringNodeParameter : public TNodeParameter<ParameterCollection::IStringParameter>
{
public:
    using TNodeParameter::TNodeParameter;

    ParameterCollection::EParameterKind kind() const override { return ParameterCollection::EParameterKind::String; }
    ParameterCollection::ParameterDataConstPtr parameterData() const override;

    void setValue(const QString& value) override;
    QString getValue() const override;
};

} // namespace CameraPool
