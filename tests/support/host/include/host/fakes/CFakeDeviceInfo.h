#pragma once

#include <Core/CameraPoolComponents/IDeviceBaseInfo.h>

namespace HostFakes {

// A device that is no camera, such as a network adapter in the selector.
class CFakeDeviceInfo : public Core::CameraPoolComponents::IDeviceBaseInfo
{
public:
    CFakeDeviceInfo(const QString& displayName, const QString& key) : m_displayName(displayName), m_key(key) {}

    QString displayName() const override { return m_displayName; }
    QString key() const override { return m_key; }

private:
    QString m_displayName;
    QString m_key;
};

} // namespace HostFakes
