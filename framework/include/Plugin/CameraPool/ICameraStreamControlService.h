#pragma once

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <Core/Service/IService.h>

namespace Plugin::CameraPool {

class ICameraStreamControlService : public Core::Service::IService
{
    Q_OBJECT
public:
    using IService::IService;

    // Stops continuous acquisition and recording everywhere; the cameras are
    // free for others when it returns.
    virtual void stopAllGrabs() = 0;
    virtual bool startGrab(const Core::CameraPoolComponents::CameraInfoPtr& camera) = 0;
    virtual void stopGrab(const Core::CameraPoolComponents::CameraInfoPtr& camera) = 0;
};

} // namespace Plugin::CameraPool
