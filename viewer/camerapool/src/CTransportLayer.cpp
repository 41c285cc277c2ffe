#include <camerapool/CTransportLayer.h>

namespace CameraPool {

CTransportLayer::CTransportLayer(const QString& name, const QList<Core::CameraPoolComponents::CameraInfoPtr>& cameras)
    : m_name(name), m_cameras(cameras)
{
}

} // namespace CameraPool
