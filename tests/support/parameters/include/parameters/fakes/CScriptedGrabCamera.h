#pragma once

#include <Plugin/CameraPool/ICamera.h>

#include <atomic>

namespace ParameterFakes {

// An open camera whose grab results a test fires, from any thread: the
// signal is emitted on the calling thread, as a stream thread would.
class CScriptedGrabCamera : public Plugin::CameraPool::ICamera
{
public:
    explicit CScriptedGrabCamera(Core::CameraPoolComponents::CameraInfoPtr ptrCameraInfo)
        : m_ptrCameraInfo(std::move(ptrCameraInfo)) {}

    bool startGrabbing() override
    {
        ++m_starts;
        m_grabbing = true;
        return true;
    }
    void stopGrabbing() override
    {
        ++m_stops;
        m_grabbing = false;
    }
    bool isGrabbing() const override { return m_grabbing; }
    Core::CameraPoolComponents::CameraInfoPtr cameraInfo() const override { return m_ptrCameraInfo; }

    void fireGrabResult(bool succeeded, size_t payloadSize)
    {
        const Zenta::CGrabResultPtr result(Zenta::CGrabResultData(succeeded, payloadSize));
        emit cameraImageGrabbed(m_ptrCameraInfo, result);
    }
    void fireConnectionLost() { emit cameraConnectionLost(); }

    int startCount() const { return m_starts; }
    int stopCount() const { return m_stops; }

private:
    Core::CameraPoolComponents::CameraInfoPtr m_ptrCameraInfo;
    std::atomic<bool> m_grabbing{false};
    std::atomic<int> m_starts{0};
    std::atomic<int> m_stops{0};
};

} // namespace ParameterFakes
