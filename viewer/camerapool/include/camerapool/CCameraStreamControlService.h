#pragma once

#include <camerapool/CCameraRegistry.h>

#include <Plugin/CameraPool/ICameraStreamControlService.h>

#include <QSet>

namespace CameraPool {

// The viewer's own continuous grabbing. A camera started here stays open
// until it is stopped here.
class CCameraStreamControlService : public Plugin::CameraPool::ICameraStreamControlService
{
    Q_OBJECT
public:
    explicit CCameraStreamControlService(const CameraRegistryPtr& registry);
    ~CCameraStreamControlService() override;

    void stopAllGrabs() override;
    bool startGrab(const Core::CameraPoolComponents::CameraInfoPtr& camera) override;
    void stopGrab(const Core::CameraPoolComponents::CameraInfoPtr& camera) override;

    // The camera grabbed by startGrab, for a live view; null when none.
    CAravisCameraPtr grabbedCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera) const;

signals:
    void grabStarted(Core::CameraPoolComponents::CameraInfoPtr camera);
    void grabStopped(Core::CameraPoolComponents::CameraInfoPtr camera);

private:
    CameraRegistryPtr m_registry;
    QSet<QString> m_held;
};

} // namespace CameraPool
