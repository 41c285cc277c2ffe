#pragma once

#include <camerapool/SDeviceRecord.h>

#include <QObject>

#include <atomic>

typedef struct _ArvCamera ArvCamera;
class QThread;

namespace CameraPool {

// Lives on the pool's Aravis thread: Aravis' device list is not safe against a
// concurrent update, so listing, opening and the final unref all happen here.
class CAravisWorker : public QObject
{
    Q_OBJECT
public:
    explicit CAravisWorker(bool enableEmulation);

    // The thread that last ran arv_update_device_list, or null.
    static QThread* lastListUpdateThread();

public slots:
    void onScan();
    // Called blocking from the GUI thread; on failure returns null and fills errorText.
    ArvCamera* onOpen(const QString& aravisId, QString* errorText);
    void onDiscard(void* camera);

signals:
    void scanned(const CameraPool::DeviceRecordList& records);

private:
    bool m_enableEmulation;
    static std::atomic<QThread*> s_lastListUpdateThread;
};

} // namespace CameraPool
