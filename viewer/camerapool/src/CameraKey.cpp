#include <camerapool/CameraKey.h>

#include <usbtopology/UsbInstancePath.h>

namespace CameraPool {

QString transportLayerOf(const QString& protocol)
{
    if (protocol == QLatin1String("GigEVision"))
        return QStringLiteral("DorvikGigE");
    if (protocol == QLatin1String("USB3Vision"))
        return QStringLiteral("DorvikUsb");
    if (protocol == QLatin1String("Fake"))
        return QStringLiteral("CamEmu");
    return {};
}

QString deviceClassOf(const QString& protocol)
{
    if (protocol == QLatin1String("GigEVision"))
        return QStringLiteral("GEV");
    if (protocol == QLatin1String("USB3Vision"))
        return QStringLiteral("U3V");
    if (protocol == QLatin1String("Fake"))
        return QStringLiteral("CamEmu");
    return protocol;
}

QString cameraKeyOf(const SDeviceRecord& record)
{
    if (record.protocol == QLatin1String("USB3Vision")) {
        // Aravis gives iManufacturer, iProduct and iSerialNumber as vendor, model and serial.
        const QString path = QString::fromStdWString(usbtopology::BuildUsbInstancePath(
            record.vendor.toStdString(), record.model.toStdString(), record.serial.toStdString()));
        // Without a serial number two cameras of one model share the path; the
        // device GUID of the camera's U3V descriptor tells them apart.
        if (record.serial.isEmpty() && !record.physicalId.isEmpty())
            return path + QLatin1Char('\\') + record.physicalId;
        return path;
    }
    return record.id;
}

QString displayNameOf(const SDeviceRecord& record)
{
    return QStringLiteral("%1 (%2)").arg(record.model, record.serial);
}

} // namespace CameraPool
