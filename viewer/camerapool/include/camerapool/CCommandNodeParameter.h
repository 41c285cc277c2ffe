#pragma once

#include <camerapool/TNodeParameter.h>

#include <ParameterCollection/ICommandParameter.h>

namespace CameraPool {

class CCommandNodeParameter : public TNodeParameter<ParameterCollection::ICommandParameter>
{
public:
    using TNodeParameter::TNodeParameter;

    ParameterCollection::EParameterKind kind() const override { return ParameterCollection::EParameterKind::Command; }
    ParameterCollection::ParameterDataConstPtr parameterData() const override;

    void execute(bool verify) override;
    // Aravis 0.8 cannot ask a command whether it has finished.
    bool isDone() const override { return true; }
};

} // namespace CameraPool
