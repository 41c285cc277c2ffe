#pragma once

#include <camerapool/CAravisCamera.h>

#include <ParameterCollection/IParameter.h>

namespace CameraPool {

enum class ENodeMap
{
    CameraDevice,
    StreamGrabber,
    DeviceTransportLayer,
};

// Makes the parameter object for a node, or null when there is no such node.
class CParameterFactory
{
public:
    static ParameterCollection::ParameterPtr create(const CAravisCameraPtr& camera, ENodeMap map, const QString& name);

private:
    static ParameterCollection::ParameterPtr createDeviceNode(const CAravisCameraPtr& camera, const QString& name);
    static ParameterCollection::ParameterPtr createStreamNode(const CAravisCameraPtr& camera, const QString& name);
    static ParameterCollection::ParameterPtr createTransportNode(const CAravisCameraPtr& camera, const QString& name);
};

} // namespace CameraPool
