#pragma once

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <Core/Service/IService.h>

namespace Plugin::CameraPool {

class ICameraStatusService : public Core::Service::IService
{
    Q_OBJECT
public:
    using IService::IService;

    virtual bool isCameraGrabbing(const Core::CameraPoolComponents::CameraInfoPtr& camera) const = 0;
    // The device the user has current in the host, or null.
    virtual Core::CameraPoolComponents::DeviceBaseInfoPtr currentDevice() const = 0;
    // Any camera grabbing or recording.
    virtual bool isAnyCameraGrabbing() const = 0;

signals:
    void cameraConnectionLost(Core::CameraPoolComponents::CameraInfoPtr camera);
};

} // namespace Plugin::CameraPool
