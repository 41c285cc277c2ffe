#pragma once

#include <Plugin/CameraPool/ITransportLayer.h>

namespace HostFakes {

class CFakeTransportLayer : public Plugin::CameraPool::ITransportLayer
{
public:
    CFakeTransportLayer(const QString& name, const QList<Core::CameraPoolComponents::CameraInfoPtr>& cameras)
        : m_name(name), m_cameras(cameras)
    {
    }

    QList<Core::CameraPoolComponents::CameraInfoPtr> cameras() const override { return m_cameras; }
    QString name() const override { return m_name; }
    QString displayName() const override { return m_name; }

    void setCameras(const QList<Core::CameraPoolComponents::CameraInfoPtr>& cameras) { m_cameras = cameras; }

private:
    QString m_name;
    QList<Core::CameraPoolComponents::CameraInfoPtr> m_cameras;
};

} // namespace HostFakes
