#include <camerapool/CCameraInfo.h>

namespace CameraPool {

CCameraInfo::CCameraInfo(const QString& displayName, const QString& key, const QString& deviceClass,
                         const QMap<QString, QString>& properties, const QString& aravisId)
    : m_displayName(displayName), m_key(key), m_deviceClass(deviceClass), m_properties(properties),
      m_aravisId(aravisId)
{
}

} // namespace CameraPool
