#pragma once

#include <Plugin/CameraPool/ICameraControlService.h>

#include <QList>

namespace ParameterFakes {

// Gives out the cameras the test put in and records what came back.
class CScriptedCameraControlService : public Plugin::CameraPool::ICameraControlService
{
public:
    // What acquireCamera and openCamera give; empty by default.
    Plugin::CameraPool::ICameraPtr acquirable;
    Plugin::CameraPool::ICameraPtr openable;

    QList<Plugin::CameraPool::ICameraPtr> released;
    QList<Core::CameraPoolComponents::CameraInfoPtr> closed;

    Plugin::CameraPool::ICameraPtr acquireCamera(const Core::CameraPoolComponents::CameraInfoPtr&) override
    {
        return acquirable;
    }
    Plugin::CameraPool::ICameraPtr openCamera(const Core::CameraPoolComponents::CameraInfoPtr&) override
    {
        return openable;
    }
    void releaseCamera(const Plugin::CameraPool::ICameraPtr& camera) override { released.append(camera); }
    void closeCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera) override { closed.append(camera); }
};

} // namespace ParameterFakes
