#pragma once

#include <Core/CameraPoolComponents/ICameraInfo.h>

namespace ParameterFakes {

class CScriptedCameraInfo : public Core::CameraPoolComponents::ICameraInfo
{
public:
    CScriptedCameraInfo(QString displayName, QString deviceClass, QMap<QString, QString> properties = {})
        : m_displayName(std::move(displayName)), m_deviceClass(std::move(deviceClass)), m_properties(std::move(properties)) {}

    QString displayName() const override { return m_displayName; }
    QString key() const override { return m_deviceClass + QLatin1Char(':') + m_displayName; }
    QString deviceClass() const override { return m_deviceClass; }
    QMap<QString, QString> properties() const override { return m_properties; }

private:
    QString m_displayName;
    QString m_deviceClass;
    QMap<QString, QString> m_properties;
};

} // namespace ParameterFakes
