#pragma once

#include <Core/CameraPoolComponents/ICameraInfo.h>

namespace HostFakes {

class CFakeCameraInfo : public Core::CameraPoolComponents::ICameraInfo
{
public:
    CFakeCameraInfo(const QString& displayName, const QString& key, const QString& deviceClass,
                    const QMap<QString, QString>& properties = {})
        : m_displayName(displayName), m_key(key), m_deviceClass(deviceClass), m_properties(properties)
    {
    }

    static Core::CameraPoolComponents::CameraInfoPtr create(const QString& displayName, const QString& key,
                                                            const QString& deviceClass,
                                                            const QMap<QString, QString>& properties = {})
    {
        return Core::CameraPoolComponents::CameraInfoPtr(
            new CFakeCameraInfo(displayName, key, deviceClass, properties));
    }

    QString displayName() const override { return m_displayName; }
    QString key() const override { return m_key; }
    QString deviceClass() const override { return m_deviceClass; }
    QMap<QString, QString> properties() const override { return m_properties; }

private:
    QString m_displayName;
    QString m_key;
    QString m_deviceClass;
    QMap<QString, QString> m_properties;
};

} // namespace HostFakes
