#include <camerapool/CAravisWorker.h>

#include <camerapool/AravisError.h>
#include <camerapool/CameraKey.h>
#include <camerapool/InterfaceAddress.h>

#include <QHostAddress>
#include <QThread>

#include <camerapool/Aravis.h>

namespace CameraPool {

std::atomic<QThread*> CAravisWorker::s_lastListUpdateThread{nullptr};

namespace {

QString copied(const char* text)
{
    return text ? QString::fromUtf8(text) : QString();
}

} // namespace

CAravisWorker::CAravisWorker(bool enableEmulation) : m_enableEmulation(enableEmulation)
{
}

QThread* CAravisWorker::lastListUpdateThread()
{
    return s_lastListUpdateThread.load();
}

void CAravisWorker::onScan()
{
    if (m_enableEmulation)
        arv_enable_interface("Fake");
    s_lastListUpdateThread.store(QThread::currentThread());
    arv_update_device_list();

    const QList<SLocalIPv4> locals = localIPv4Addresses();
    DeviceRecordList records;
    const unsigned count = arv_get_n_devices();
    for (unsigned i = 0; i < count; ++i) {
        SDeviceRecord record;
        record.id = copied(arv_get_device_id(i));
        record.protocol = copied(arv_get_device_protocol(i));
        record.vendor = copied(arv_get_device_vendor(i));
        record.model = copied(arv_get_device_model(i));
        record.serial = copied(arv_get_device_serial_nbr(i));
        record.address = copied(arv_get_device_address(i));
        record.physicalId = copied(arv_get_device_physical_id(i));
        if (record.protocol == QLatin1String("Fake") && !m_enableEmulation)
            continue;
        if (record.protocol == QLatin1String("GigEVision")) {
            bool ok = false;
            const quint32 camera = QHostAddress(record.address).toIPv4Address(&ok);
            const QString adapter = ok ? chooseInterfaceAddress(camera, locals, routedSourceAddress) : QString();
            if (!adapter.isEmpty())
                record.properties.insert(QStringLiteral("Interface"), adapter);
            record.properties.insert(QStringLiteral("IpAddress"), record.address);
            record.properties.insert(QStringLiteral("MacAddress"), record.physicalId);
        }
        record.properties.insert(QStringLiteral("SerialNumber"), record.serial);
        record.properties.insert(QStringLiteral("ModelName"), record.model);
        record.properties.insert(QStringLiteral("VendorName"), record.vendor);
        records.append(record);
    }
    emit scanned(records);
}

ArvCamera* CAravisWorker::onOpen(const QString& aravisId, QString* errorText)
{
    if (m_enableEmulation)
        arv_enable_interface("Fake");
    GError* error = nullptr;
    ArvCamera* camera = arv_camera_new(aravisId.toUtf8().constData(), &error);
    if (!camera) {
        if (errorText)
            *errorText = error ? QString::fromUtf8(error->message) : QStringLiteral("Cannot open %1").arg(aravisId);
        g_clear_error(&error);
        return nullptr;
    }
    g_clear_error(&error);
    return camera;
}

void CAravisWorker::onDiscard(void* camera)
{
    // The unref joins the heartbeat thread, which may be stuck for seconds on a dead link.
    if (camera)
        g_object_unref(camera);
}

} // namespace CameraPool
