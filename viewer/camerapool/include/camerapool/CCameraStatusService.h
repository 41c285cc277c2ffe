#pragma once

#include <camerapool/CCameraRegistry.h>

#include <Plugin/CameraPool/ICameraStatusService.h>

namespace CameraPool {

class CCameraStatusService : public Plugin::CameraPool::ICameraStatusService
{
    Q_OBJECT
public:
    explicit CCameraStatusService(const CameraRegistryPtr& registry);

    bool isCameraGrabbing(const Core::CameraPoolComponents::CameraInfoPtr& camera) const override;
    Core::CameraPoolComponents::DeviceBaseInfoPtr currentDevice() const override { return m_current; }
    bool isAnyCameraGrabbing() const override;

public slots:
    // The camera selector's current device.
    void setCurrentDevice(const Core::CameraPoolComponents::DeviceBaseInfoPtr& device) { m_current = device; }

private:
    CameraRegistryPtr m_registry;
    Core::CameraPoolComponents::DeviceBaseInfoPtr m_current;
};

} // namespace CameraPool
