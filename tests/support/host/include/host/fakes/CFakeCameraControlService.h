#pragma once

#include <host/fakes/CFakeCamera.h>

#include <Plugin/CameraPool/ICameraControlService.h>

#include <QHash>
#include <QSet>
#include <QStringList>

namespace HostFakes {

// One CFakeCamera per key. Every call is recorded as "<operation>:<key>".
class CFakeCameraControlService : public Plugin::CameraPool::ICameraControlService
{
public:
    using ICameraControlService::ICameraControlService;

    Plugin::CameraPool::ICameraPtr acquireCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera) override;
    Plugin::CameraPool::ICameraPtr openCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera) override;
    void releaseCamera(const Plugin::CameraPool::ICameraPtr& camera) override;
    void closeCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera) override;

    // The host holds this camera open already: acquire hands it out.
    void setAlreadyOpen(const QString& key) { m_alreadyOpen.insert(key); }
    // openCamera gives an empty pointer for this key.
    void setOpenFails(const QString& key) { m_openFails.insert(key); }
    // The camera of this key opens, but refuses to grab.
    void setGrabFails(const QString& key) { m_grabFails.insert(key); }
    QSharedPointer<CFakeCamera> camera(const QString& key) const { return m_cameras.value(key); }
    const QStringList& calls() const { return m_calls; }

private:
    QSharedPointer<CFakeCamera> cameraFor(const Core::CameraPoolComponents::CameraInfoPtr& info);

    QHash<QString, QSharedPointer<CFakeCamera>> m_cameras;
    QSet<QString> m_alreadyOpen;
    QSet<QString> m_openFails;
    QSet<QString> m_grabFails;
    QStringList m_calls;
};

} // namespace HostFakes
