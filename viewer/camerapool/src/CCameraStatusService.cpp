#include <camerapool/CCameraStatusService.h>

namespace CameraPool {

CCameraStatusService::CCameraStatusService(const CameraRegistryPtr& registry) : m_registry(registry)
{
    connect(registry.data(), &CCameraRegistry::cameraConnectionLost, this,
            &CCameraStatusService::cameraConnectionLost);
}

bool CCameraStatusService::isCameraGrabbing(const Core::CameraPoolComponents::CameraInfoPtr& camera) const
{
    const CAravisCameraPtr open = camera ? m_registry->find(camera->key()) : CAravisCameraPtr();
    return open && open->isGrabbing();
}

bool CCameraStatusService::isAnyCameraGrabbing() const
{
    for (const CAravisCameraPtr& camera : m_registry->cameras()) {
        if (camera->isGrabbing())
            return true;
    }
    return false;
}

} // namespace CameraPool
