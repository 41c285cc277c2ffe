#pragma once

#include <camerapool/CCameraRegistry.h>

#include <Plugin/ParameterCollectionPool/IParameterService.h>

namespace CameraPool {

class CParameterService : public Plugin::ParameterCollectionPool::IParameterService
{
    Q_OBJECT
public:
    explicit CParameterService(const CameraRegistryPtr& registry);

    // Opens the camera if needed; the collection keeps it open until it goes.
    ParameterCollection::ParameterCollectionPtr
    parameterCollection(const Core::CameraPoolComponents::CameraInfoPtr& camera) override;

private:
    CameraRegistryPtr m_registry;
};

} // namespace CameraPool
