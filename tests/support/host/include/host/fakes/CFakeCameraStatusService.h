#pragma once

#include <Plugin/CameraPool/ICameraStatusService.h>

#include <QSet>

namespace HostFakes {

// Grabbing states and the current device as the test sets them.
class CFakeCameraStatusService : public Plugin::CameraPool::ICameraStatusService
{
public:
    using ICameraStatusService::ICameraStatusService;

    void setGrabbing(const QString& key, bool grabbing)
    {
        if (grabbing)
            m_grabbing.insert(key);
        else
            m_grabbing.remove(key);
    }
    void setCurrentDevice(const Core::CameraPoolComponents::DeviceBaseInfoPtr& device) { m_current = device; }

    bool isCameraGrabbing(const Core::CameraPoolComponents::CameraInfoPtr& camera) const override
    {
        return camera && m_grabbing.contains(camera->key());
    }
    Core::CameraPoolComponents::DeviceBaseInfoPtr currentDevice() const override { return m_current; }
    bool isAnyCameraGrabbing() const override { return !m_grabbing.isEmpty(); }

private:
    QSet<QString> m_grabbing;
    Core::CameraPoolComponents::DeviceBaseInfoPtr m_current;
};

} // namespace HostFakes
