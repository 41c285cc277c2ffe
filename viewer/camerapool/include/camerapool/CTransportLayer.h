#pragma once

#include <Plugin/CameraPool/ITransportLayer.h>

namespace CameraPool {

class CTransportLayer : public Plugin::CameraPool::ITransportLayer
{
public:
    CTransportLayer(const QString& name, const QList<Core::CameraPoolComponents::CameraInfoPtr>& cameras);

    QList<Core::CameraPoolComponents::CameraInfoPtr> cameras() const override { return m_cameras; }
    QString name() const override { return m_name; }
    QString displayName() const override { return m_name; }

private:
    QString m_name;
    QList<Core::CameraPoolComponents::CameraInfoPtr> m_cameras;
};

} // namespace CameraPool
