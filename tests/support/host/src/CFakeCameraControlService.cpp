#include <host/fakes/CFakeCameraControlService.h>

namespace HostFakes {

namespace {

QString keyOf(const Core::CameraPoolComponents::CameraInfoPtr& info)
{
    return info ? info->key() : QString();
}

} // namespace

QSharedPointer<CFakeCamera> CFakeCameraControlService::cameraFor(const Core::CameraPoolComponents::CameraInfoPtr& info)
{
    QSharedPointer<CFakeCamera>& camera = m_cameras[keyOf(info)];
    if (!camera) {
        camera.reset(new CFakeCamera(info));
        camera->setStartFails(m_grabFails.contains(keyOf(info)));
    }
    return camera;
}

Plugin::CameraPool::ICameraPtr CFakeCameraControlService::acquireCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera)
{
    m_calls.append(QStringLiteral("acquire:") + keyOf(camera));
    if (!camera || !m_alreadyOpen.contains(camera->key()))
        return {};
    return cameraFor(camera);
}

Plugin::CameraPool::ICameraPtr CFakeCameraControlService::openCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera)
{
    m_calls.append(QStringLiteral("open:") + keyOf(camera));
    if (!camera || m_openFails.contains(camera->key()))
        return {};
    return cameraFor(camera);
}

void CFakeCameraControlService::releaseCamera(const Plugin::CameraPool::ICameraPtr& camera)
{
    m_calls.append(QStringLiteral("release:") + (camera ? keyOf(camera->cameraInfo()) : QString()));
}

void CFakeCameraControlService::closeCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera)
{
    m_calls.append(QStringLiteral("close:") + keyOf(camera));
    m_cameras.remove(keyOf(camera));
}

} // namespace HostFakes
