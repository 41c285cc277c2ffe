#pragma once

#include <Core/Service/IService.h>
#include <Plugin/CameraPool/ICamera.h>

namespace Plugin::CameraPool {

// Hands out one shared ICamera per device: acquire gives the one already
// open (or null), open opens it; release and close give it back.
class ICameraControlService : public Core::Service::IService
{
    Q_OBJECT
public:
    using IService::IService;

    virtual ICameraPtr acquireCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera) = 0;
    virtual ICameraPtr openCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera) = 0;
    virtual void releaseCamera(const ICameraPtr& camera) = 0;
    virtual void closeCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera) = 0;
};

} // namespace Plugin::CameraPool
