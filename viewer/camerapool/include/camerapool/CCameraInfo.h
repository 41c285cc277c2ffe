#pragma once

#include <Core/CameraPoolComponents/ICameraInfo.h>

namespace CameraPool {

class CCameraInfo : public Core::CameraPoolComponents::ICameraInfo
{
public:
    CCameraInfo(const QString& displayName, const QString& key, const QString& deviceClass,
                const QMap<QString, QString>& properties, const QString& aravisId);

    QString displayName() const override { return m_displayName; }
    QString key() const override { return m_key; }
    QString deviceClass() const override { return m_deviceClass; }
    QMap<QString, QString> properties() const override { return m_properties; }
    // What arv_camera_new takes for this device.
    QString aravisId() const { return m_aravisId; }

private:
    QString m_displayName;
    QString m_key;
    QString m_deviceClass;
    QMap<QString, QString> m_properties;
    QString m_aravisId;
};

using CCameraInfoPtr = QSharedPointer<CCameraInfo>;

} // namespace CameraPool
