#include <camerapool/CCameraEnumerationService.h>

#include <camerapool/CAravisWorker.h>
#include <camerapool/CTransportLayer.h>
#include <camerapool/CameraKey.h>

#include <condition_variable>
#include <memory>
#include <mutex>

namespace CameraPool {

CCameraEnumerationService::CCameraEnumerationService(bool enableEmulation, int rescanIntervalMs, QObject* parent)
    : ICameraEnumerationService(parent), m_enableEmulation(enableEmulation)
{
    qRegisterMetaType<CameraPool::DeviceRecordList>();
    m_thread.setObjectName(QStringLiteral("AravisPool"));
    m_worker = new CAravisWorker(enableEmulation);
    m_worker->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    connect(m_worker, &CAravisWorker::scanned, this, &CCameraEnumerationService::onScanned, Qt::QueuedConnection);
    m_thread.start();

    m_rescanTimer.setInterval(rescanIntervalMs);
    connect(&m_rescanTimer, &QTimer::timeout, this, &CCameraEnumerationService::onRefresh);
    if (rescanIntervalMs > 0)
        m_rescanTimer.start();
    onRefresh();
}

CCameraEnumerationService::~CCameraEnumerationService()
{
    m_rescanTimer.stop();
    // Events run in order: once this returns, every queued discard has run.
    QMetaObject::invokeMethod(m_worker, [] {}, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

QList<Plugin::CameraPool::TransportLayerPtr> CCameraEnumerationService::transportLayers() const
{
    QStringList names{QStringLiteral("DorvikGigE"), QStringLiteral("DorvikUsb")};
    if (m_enableEmulation)
        names.append(QStringLiteral("CamEmu"));
    QMap<QString, QList<Core::CameraPoolComponents::CameraInfoPtr>> byLayer;
    for (const SDeviceRecord& record : m_records) {
        if (const CCameraInfoPtr info = m_infos.value(cameraKeyOf(record)))
            byLayer[transportLayerOf(record.protocol)].append(info);
    }
    QList<Plugin::CameraPool::TransportLayerPtr> layers;
    for (const QString& name : names)
        layers.append(Plugin::CameraPool::TransportLayerPtr(new CTransportLayer(name, byLayer.value(name))));
    return layers;
}

QList<Core::CameraPoolComponents::CameraInfoPtr> CCameraEnumerationService::openCameras() const
{
    return m_openCameras ? m_openCameras() : QList<Core::CameraPoolComponents::CameraInfoPtr>();
}

void CCameraEnumerationService::setOpenCamerasProvider(
    std::function<QList<Core::CameraPoolComponents::CameraInfoPtr>()> provider)
{
    m_openCameras = std::move(provider);
}

CCameraInfoPtr CCameraEnumerationService::findCamera(const QString& key) const
{
    return m_infos.value(key);
}

QList<CCameraInfoPtr> CCameraEnumerationService::cameras() const
{
    return m_order;
}

ArvCamera* CCameraEnumerationService::openDevice(const QString& aravisId, QString* errorText)
{
    // A monitor of the standard library, not a blocking-queued call: the camera
    // that Aravis makes on its thread is then handed over with an ordering the
    // thread sanitiser sees; Qt's own is in a library it does not instrument.
    struct SOpening
    {
        std::mutex mutex;
        std::condition_variable finished;
        QString id;
        QString error;
        ArvCamera* camera = nullptr;
        bool done = false;
    };
    const auto opening = std::make_shared<SOpening>();
    {
        const std::lock_guard<std::mutex> lock(opening->mutex);
        opening->id = aravisId;
    }
    CAravisWorker* worker = m_worker;
    QMetaObject::invokeMethod(
        worker,
        [worker, opening] {
            {
                const std::lock_guard<std::mutex> lock(opening->mutex);
                opening->camera = worker->onOpen(opening->id, &opening->error);
                opening->done = true;
            }
            opening->finished.notify_one();
        },
        Qt::QueuedConnection);
    std::unique_lock<std::mutex> lock(opening->mutex);
    opening->finished.wait(lock, [&] { return opening->done; });
    if (errorText)
        *errorText = opening->error;
    return opening->camera;
}

void CCameraEnumerationService::discardDevice(ArvCamera* camera)
{
    CAravisWorker* worker = m_worker;
    QMetaObject::invokeMethod(worker, [worker, camera] { worker->onDiscard(camera); }, Qt::QueuedConnection);
}

void CCameraEnumerationService::onRefresh()
{
    if (m_scanRunning) {
        m_scanAgain = true;
        return;
    }
    m_scanRunning = true;
    QMetaObject::invokeMethod(m_worker, &CAravisWorker::onScan, Qt::QueuedConnection);
}

void CCameraEnumerationService::onScanned(const DeviceRecordList& records)
{
    m_scanRunning = false;
    DeviceRecordList scanned;
    for (const SDeviceRecord& record : records) {
        if (!transportLayerOf(record.protocol).isEmpty())
            scanned.append(record);
    }
    QSet<QString> openKeys;
    for (const auto& open : openCameras()) {
        if (open)
            openKeys.insert(open->key());
    }
    const DeviceRecordList shown = m_keeper.merge(scanned, openKeys);
    const bool changed = !(shown == m_records);
    if (changed) {
        QMap<QString, CCameraInfoPtr> infos;
        QList<CCameraInfoPtr> order;
        for (const SDeviceRecord& record : shown) {
            const QString key = cameraKeyOf(record);
            CCameraInfoPtr info = m_infos.value(key);
            const bool same = info && info->aravisId() == record.id && info->properties() == record.properties
                && info->displayName() == displayNameOf(record);
            if (!same) {
                info = CCameraInfoPtr::create(displayNameOf(record), key, deviceClassOf(record.protocol),
                                              record.properties, record.id);
            }
            infos.insert(key, info);
            order.append(info);
        }
        m_records = shown;
        m_infos = infos;
        m_order = order;
    }
    if (m_scanAgain) {
        m_scanAgain = false;
        onRefresh();
    }
    if (changed)
        emit enumerationChanged();
    emit scanFinished();
}

} // namespace CameraPool
