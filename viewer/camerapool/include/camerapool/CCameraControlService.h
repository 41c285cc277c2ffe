#pragma once

#include <camerapool/CCameraRegistry.h>

#include <Plugin/CameraPool/ICameraControlService.h>

namespace CameraPool {

class CCameraControlService : public Plugin::CameraPool::ICameraControlService
{
    Q_OBJECT
public:
    explicit CCameraControlService(const CameraRegistryPtr& registry);

    Plugin::CameraPool::ICameraPtr acquireCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera) override;
    // Blocks while the device opens; null when it cannot be opened.
    Plugin::CameraPool::ICameraPtr openCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera) override;
    void releaseCamera(const Plugin::CameraPool::ICameraPtr& camera) override;
    void closeCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera) override;

    QString lastError() const { return m_registry->lastError(); }

private:
    CameraRegistryPtr m_registry;
};

} // namespace CameraPool
