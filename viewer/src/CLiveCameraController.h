#pragma once

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <Core/CId.h>
#include <Plugin/CameraPool/ICamera.h>

#include <QHash>
#include <QObject>

#include <functional>

class QAction;

namespace Plugin::CameraPool {
class ICameraControlService;
class ICameraEnumerationService;
class ICameraStatusService;
class ICameraStreamControlService;
} // namespace Plugin::CameraPool

namespace Viewer {

class CDeviceSelectorService;
class CMenuService;

// Opens, grabs and closes the selected camera through the camera services,
// and chooses the camera that the live view shows: the one whose grab started
// last, or the selected one while it grabs.
class CLiveCameraController : public QObject
{
    Q_OBJECT
public:
    struct SServices
    {
        QSharedPointer<Plugin::CameraPool::ICameraEnumerationService> enumeration;
        QSharedPointer<Plugin::CameraPool::ICameraStatusService> status;
        QSharedPointer<Plugin::CameraPool::ICameraControlService> control;
        QSharedPointer<Plugin::CameraPool::ICameraStreamControlService> streams;
        // The reason of the last failed open, where the services keep one.
        std::function<QString()> lastError;
    };

    explicit CLiveCameraController(CDeviceSelectorService* selector, QObject* parent = nullptr);
    ~CLiveCameraController() override;

    void setServices(const SServices& services);
    void addToMenu(CMenuService* menus, const Core::CId& container, const Core::CId& group);

    QAction* openAction() const { return m_open; }
    QAction* startAction() const { return m_start; }
    QAction* stopAction() const { return m_stop; }
    QAction* closeAction() const { return m_close; }

    Plugin::CameraPool::ICameraPtr liveCamera() const { return m_live; }

    // The blocking operations; the actions run them after the menu has gone,
    // under a wait cursor.
    bool openCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera);
    bool startGrab(const Core::CameraPoolComponents::CameraInfoPtr& camera);
    void stopGrab(const Core::CameraPoolComponents::CameraInfoPtr& camera);
    void closeCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera);

    // Starts grabbing, once, the first listed camera whose key is pattern, or
    // else whose key or name contains it, as soon as such a camera is listed.
    void grabWhenListed(const QString& pattern);

public slots:
    // A double click: starts or stops grabbing the device if it is a camera.
    void onActivated(const Core::CameraPoolComponents::DeviceBaseInfoPtr& device);

signals:
    void liveCameraChanged(Plugin::CameraPool::ICameraPtr camera);
    void failed(const QString& message);

private slots:
    void onSelectionChanged(Core::CameraPoolComponents::DeviceBaseInfoPtr device);
    void onGrabStarted(Core::CameraPoolComponents::CameraInfoPtr camera);
    void onGrabStopped(Core::CameraPoolComponents::CameraInfoPtr camera);
    void onConnectionLost(Core::CameraPoolComponents::CameraInfoPtr camera);
    void onEnumerationChanged();

private:
    QList<Core::CameraPoolComponents::CameraInfoPtr> listedCameras() const;
    bool isGrabbing(const Core::CameraPoolComponents::CameraInfoPtr& camera) const;
    void setLive(const Core::CameraPoolComponents::CameraInfoPtr& camera);
    void showAnotherGrabbingCamera(const QString& exceptKey);
    void runDeferred(std::function<void()> operation);
    void updateActions();
    void retranslate();
    bool eventFilter(QObject* watched, QEvent* event) override;

    SServices m_services;
    Core::CameraPoolComponents::CameraInfoPtr m_selected;
    // Cameras that "Open camera" holds, until "Close camera".
    QHash<QString, Plugin::CameraPool::ICameraPtr> m_opened;
    Plugin::CameraPool::ICameraPtr m_live;
    QString m_liveKey;
    QString m_pendingGrab;
    bool m_busy = false;
    QAction* m_open;
    QAction* m_start;
    QAction* m_stop;
    QAction* m_close;
};

} // namespace Viewer
