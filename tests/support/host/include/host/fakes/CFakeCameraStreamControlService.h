#pragma once

#include <Plugin/CameraPool/ICameraStreamControlService.h>

#include <QStringList>

namespace HostFakes {

// Records "stopAllGrabs", "startGrab:<key>" and "stopGrab:<key>".
class CFakeCameraStreamControlService : public Plugin::CameraPool::ICameraStreamControlService
{
public:
    using ICameraStreamControlService::ICameraStreamControlService;

    void stopAllGrabs() override { m_calls.append(QStringLiteral("stopAllGrabs")); }
    bool startGrab(const Core::CameraPoolComponents::CameraInfoPtr& camera) override
    {
        m_calls.append(QStringLiteral("startGrab:") + (camera ? camera->key() : QString()));
        return !m_startGrabFails;
    }
    void stopGrab(const Core::CameraPoolComponents::CameraInfoPtr& camera) override
    {
        m_calls.append(QStringLiteral("stopGrab:") + (camera ? camera->key() : QString()));
    }

    void setStartGrabFails(bool fails) { m_startGrabFails = fails; }
    const QStringList& calls() const { return m_calls; }

private:
    QStringList m_calls;
    bool m_startGrabFails = false;
};

} // namespace HostFakes
