#include <camerapool/CSyntheticCommandParameter.h>

namespace CameraPool {

CSyntheticCommandParameter::CSyntheticCommandParameter(const CAravisCameraPtr& camera, const QString& name,
                                                       std::function<void()> run)
    : TParameterBase(camera, name), m_run(std::move(run))
{
}

bool CSyntheticCommandParameter::isWritable() const
{
    m_camera->access([](ArvCamera*, ArvDevice*, ArvGc*) { return 0; });
    return true;
}

ParameterCollection::CParameterMetaData CSyntheticCommandParameter::metaData() const
{
    return ParameterCollection::CParameterMetaData({{QStringLiteral("AccessMode"), QStringLiteral("WO")},
                                                    {QStringLiteral("Name"), m_name},
                                                    {QStringLiteral("DisplayName"), m_name}});
}

ParameterCollection::ParameterDataConstPtr CSyntheticCommandParameter::parameterData() const
{
    return ParameterCollection::ParameterDataConstPtr(new ParameterCollection::ParameterData(m_name, QVariant()));
}

void CSyntheticCommandParameter::execute(bool)
{
    isWritable();
    m_run();
    notifyWritten();
}

} // namespace CameraPool
