#pragma once

#include <Core/CameraPoolComponents/IDeviceBaseInfo.h>

namespace Viewer {

// A transport-layer interface as a selectable device of the selector: no camera.
class CTransportLayerInfo : public Core::CameraPoolComponents::IDeviceBaseInfo
{
public:
    CTransportLayerInfo(const QString& name, const QString& displayName) : m_name(name), m_displayName(displayName) {}

    QString displayName() const override { return m_displayName; }
    QString key() const override { return QStringLiteral("TransportLayer/") + m_name; }

private:
    QString m_name;
    QString m_displayName;
};

} // namespace Viewer
