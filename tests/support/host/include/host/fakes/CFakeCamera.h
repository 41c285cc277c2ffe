#pragma once

#include <Plugin/CameraPool/ICamera.h>

#include <atomic>

namespace HostFakes {

// An open camera whose images the test delivers with grab(), from any thread.
class CFakeCamera : public Plugin::CameraPool::ICamera
{
public:
    explicit CFakeCamera(const Core::CameraPoolComponents::CameraInfoPtr& info) : m_info(info) {}

    bool startGrabbing() override;
    void stopGrabbing() override { m_grabbing = false; }
    bool isGrabbing() const override { return m_grabbing; }
    Core::CameraPoolComponents::CameraInfoPtr cameraInfo() const override { return m_info; }

    void setStartFails(bool fails) { m_startFails = fails; }
    int startCount() const { return m_startCount; }
    // Emits cameraImageGrabbed on the calling thread, as a grab thread would.
    void grab(bool succeeded, size_t payloadSize);
    void loseConnection();

private:
    Core::CameraPoolComponents::CameraInfoPtr m_info;
    std::atomic<bool> m_grabbing{false};
    bool m_startFails = false;
    int m_startCount = 0;
};

} // namespace HostFakes
