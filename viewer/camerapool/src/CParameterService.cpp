#include <camerapool/CParameterService.h>

#include <camerapool/CParameterCollection.h>

namespace CameraPool {

CParameterService::CParameterService(const CameraRegistryPtr& registry) : m_registry(registry)
{
}

ParameterCollection::ParameterCollectionPtr
CParameterService::parameterCollection(const Core::CameraPoolComponents::CameraInfoPtr& camera)
{
    const CAravisCameraPtr open = m_registry->open(camera);
    if (!open)
        return {};
    const QWeakPointer<CCameraRegistry> registry = m_registry.toWeakRef();
    const QString key = camera->key();
    return ParameterCollection::ParameterCollectionPtr(new CParameterCollection(open, [registry, key] {
        if (const CameraRegistryPtr strong = registry.toStrongRef())
            strong->release(key);
    }));
}

} // namespace CameraPool
