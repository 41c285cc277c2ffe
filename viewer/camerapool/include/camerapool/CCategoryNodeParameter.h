#pragma once

#include <camerapool/TNodeParameter.h>

namespace CameraPool {

// A category of the camera's node map: a feature tree shows its features below it.
class CCategoryNodeParameter : public TNodeParameter<ParameterCollection::IParameter>
{
public:
    using TNodeParameter::TNodeParameter;

    ParameterCollection::EParameterKind kind() const override { return ParameterCollection::EParameterKind::Category; }
    ParameterCollection::ParameterDataConstPtr parameterData() const override
    {
        return ParameterCollection::ParameterDataConstPtr(new ParameterCollection::ParameterData(m_name, QVariant()));
    }
};

} // namespace CameraPool
