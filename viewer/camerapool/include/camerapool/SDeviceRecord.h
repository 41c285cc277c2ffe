#pragma once

#include <QList>
#include <QMap>
#include <QMetaType>
#include <QString>

namespace CameraPool {

// One entry of Aravis' device list, copied: Aravis' own strings die at the next update.
struct SDeviceRecord
{
    QString id;
    QString protocol;  // "GigEVision", "USB3Vision", "Fake"
    QString vendor;
    QString model;
    QString serial;
    QString address;
    QString physicalId;
    QMap<QString, QString> properties;

    bool operator==(const SDeviceRecord& other) const
    {
        return id == other.id && protocol == other.protocol && model == other.model && serial == other.serial
            && address == other.address && properties == other.properties;
    }
};

using DeviceRecordList = QList<SDeviceRecord>;

} // namespace CameraPool

Q_DECLARE_METATYPE(CameraPool::DeviceRecordList)
