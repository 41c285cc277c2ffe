#pragma once

#include <camerapool/CAravisCamera.h>
#include <camerapool/CParameterFactory.h>

#include <ParameterCollection/IParameterCollection.h>

#include <functional>

namespace CameraPool {

// One user's view of a camera's nodes; the nodes themselves are shared per camera.
class CParameterCollection : public ParameterCollection::IParameterCollection
{
public:
    // release runs when the collection goes, to give the camera back to the pool.
    CParameterCollection(const CAravisCameraPtr& camera, std::function<void()> release);
    ~CParameterCollection() override;

    ParameterCollection::CommandParameterPtr getCommandParameter(const QString& name) const override;
    ParameterCollection::FloatParameterPtr getFloatParameter(const QString& name) const override;
    ParameterCollection::EnumerationParameterPtr getEnumerationParameter(const QString& name) const override;
    ParameterCollection::BooleanParameterPtr getBooleanParameter(const QString& name) const override;
    ParameterCollection::IntegerParameterPtr getIntegerParameter(const QString& name) const override;
    ParameterCollection::ParameterPtr getParameter(const QString& name) const override;
    bool contains(const QString& name) const override;
    ParameterCollection::StringParameterPtr getStringParameter(const QString& name) const override;
    QStringList getCategoryFeatures(const QString& category) const override;

    CAravisCameraPtr camera() const { return m_camera; }

private:
    ParameterCollection::ParameterPtr lookup(const QString& name) const;

    CAravisCameraPtr m_camera;
    std::function<void()> m_release;
};

} // namespace CameraPool
