#pragma once

#include <camerapool/TParameterBase.h>

#include <ParameterCollection/ICommandParameter.h>

#include <functional>

namespace CameraPool {

class CSyntheticCommandParameter : public TParameterBase<ParameterCollection::ICommandParameter>
{
public:
    CSyntheticCommandParameter(const CAravisCameraPtr& camera, const QString& name, std::function<void()> run);

    bool isNull() const override { return false; }
    bool isReadable() const override { return false; }
    bool isWritable() const override;
    ParameterCollection::CParameterMetaData metaData() const override;
    ParameterCollection::ParameterDataConstPtr parameterData() const override;
    ParameterCollection::EParameterKind kind() const override { return ParameterCollection::EParameterKind::Command; }
    QString valueAsString() const override { return {}; }

    void execute(bool verify) override;
    bool isDone() const override { return true; }

private:
    std::function<void()> m_run;
};

} // namespace CameraPool
