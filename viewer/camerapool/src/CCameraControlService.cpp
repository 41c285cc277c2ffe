#include <camerapool/CCameraControlService.h>

namespace CameraPool {

CCameraControlService::CCameraControlService(const CameraRegistryPtr& registry) : m_registry(registry)
{
}

Plugin::CameraPool::ICameraPtr CCameraControlService::acquireCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera)
{
    return m_registry->acquire(camera);
}

Plugin::CameraPool::ICameraPtr CCameraControlService::openCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera)
{
    return m_registry->open(camera);
}

void CCameraControlService::releaseCamera(const Plugin::CameraPool::ICameraPtr& camera)
{
    if (camera && camera->cameraInfo())
        m_registry->release(camera->cameraInfo()->key());
}

void CCameraControlService::closeCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera)
{
    if (camera)
        m_registry->release(camera->key());
}

} // namespace CameraPool
