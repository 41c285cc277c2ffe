#pragma once

#include <Plugin/CameraPool/ICameraStatusService.h>

#include <atomic>

namespace ParameterFakes {

// Says whatever the test set about every camera.
class CScriptedCameraStatusService : public Plugin::CameraPool::ICameraStatusService
{
public:
    void setGrabbing(bool grabbing) { m_grabbing = grabbing; }

    bool isCameraGrabbing(const Core::CameraPoolComponents::CameraInfoPtr&) const override { return m_grabbing; }
    Core::CameraPoolComponents::DeviceBaseInfoPtr currentDevice() const override { return {}; }
    bool isAnyCameraGrabbing() const override { return m_grabbing; }

private:
    std::atomic<bool> m_grabbing{false};
};

} // namespace ParameterFakes
