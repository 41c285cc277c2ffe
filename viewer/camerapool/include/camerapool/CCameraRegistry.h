#pragma once

#include <camerapool/CAravisCamera.h>
#include <camerapool/CCameraEnumerationService.h>

#include <QObject>

namespace CameraPool {

// The open cameras, one per device, counted by their users. The last user
// to let go closes the camera.
class CCameraRegistry : public QObject
{
    Q_OBJECT
public:
    explicit CCameraRegistry(const QSharedPointer<CCameraEnumerationService>& enumeration);
    ~CCameraRegistry() override;

    // The open camera with one more user, or null.
    CAravisCameraPtr acquire(const Core::CameraPoolComponents::CameraInfoPtr& info);
    // The open camera or a newly opened one, with one more user; null on failure (see lastError).
    CAravisCameraPtr open(const Core::CameraPoolComponents::CameraInfoPtr& info);
    void release(const QString& key);
    // Without counting a user.
    CAravisCameraPtr find(const QString& key) const;
    QList<CAravisCameraPtr> cameras() const;
    QList<Core::CameraPoolComponents::CameraInfoPtr> openCameras() const;
    void closeAll();
    QString lastError() const { return m_lastError; }

signals:
    void cameraConnectionLost(Core::CameraPoolComponents::CameraInfoPtr camera);

private:
    struct SEntry
    {
        CAravisCameraPtr camera;
        int users = 0;
    };
    QString aravisIdOf(const Core::CameraPoolComponents::CameraInfoPtr& info) const;

    QSharedPointer<CCameraEnumerationService> m_enumeration;
    QMap<QString, SEntry> m_entries;
    QString m_lastError;
};

using CameraRegistryPtr = QSharedPointer<CCameraRegistry>;

} // namespace CameraPool
