#pragma once

#include <camerapool/CCameraInfo.h>
#include <camerapool/CDeviceListKeeper.h>
#include <camerapool/SDeviceRecord.h>

#include <Plugin/CameraPool/ICameraEnumerationService.h>

#include <QThread>
#include <QTimer>

#include <functional>

typedef struct _ArvCamera ArvCamera;

namespace CameraPool {

class CAravisWorker;

// Aravis' device list, refreshed on the pool's own thread: at start, every
// few seconds and on request.
class CCameraEnumerationService : public Plugin::CameraPool::ICameraEnumerationService
{
    Q_OBJECT
public:
    CCameraEnumerationService(bool enableEmulation, int rescanIntervalMs, QObject* parent = nullptr);
    ~CCameraEnumerationService() override;

    QList<Plugin::CameraPool::TransportLayerPtr> transportLayers() const override;
    QList<Core::CameraPoolComponents::CameraInfoPtr> openCameras() const override;

    void setOpenCamerasProvider(std::function<QList<Core::CameraPoolComponents::CameraInfoPtr>()> provider);
    CCameraInfoPtr findCamera(const QString& key) const;
    QList<CCameraInfoPtr> cameras() const;
    bool isEmulationEnabled() const { return m_enableEmulation; }

    // Blocks until the Aravis thread has opened the device (after any scan in progress).
    ArvCamera* openDevice(const QString& aravisId, QString* errorText);
    // Unrefs the camera on the Aravis thread, without waiting.
    void discardDevice(ArvCamera* camera);

public slots:
    // View > Refresh cameras. A request during a scan is folded into the next one.
    void onRefresh();

signals:
    // After every scan, changed or not.
    void scanFinished();

private slots:
    void onScanned(const CameraPool::DeviceRecordList& records);

private:
    bool m_enableEmulation;
    QThread m_thread;
    CAravisWorker* m_worker = nullptr;
    QTimer m_rescanTimer;
    bool m_scanRunning = false;
    bool m_scanAgain = false;
    CDeviceListKeeper m_keeper;
    DeviceRecordList m_records;
    QMap<QString, CCameraInfoPtr> m_infos;
    QList<CCameraInfoPtr> m_order;
    std::function<QList<Core::CameraPoolComponents::CameraInfoPtr>()> m_openCameras;
};

} // namespace CameraPool
