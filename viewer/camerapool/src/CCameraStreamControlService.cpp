#include <camerapool/CCameraStreamControlService.h>

namespace CameraPool {

CCameraStreamControlService::CCameraStreamControlService(const CameraRegistryPtr& registry) : m_registry(registry)
{
}

CCameraStreamControlService::~CCameraStreamControlService()
{
    for (const QString& key : qAsConst(m_held))
        m_registry->release(key);
}

void CCameraStreamControlService::stopAllGrabs()
{
    for (const CAravisCameraPtr& camera : m_registry->cameras()) {
        if (camera->isGrabbing()) {
            camera->stopGrabbing();
            emit grabStopped(camera->cameraInfo());
        }
    }
    const QSet<QString> held = m_held;
    m_held.clear();
    for (const QString& key : held)
        m_registry->release(key);
}

bool CCameraStreamControlService::startGrab(const Core::CameraPoolComponents::CameraInfoPtr& camera)
{
    if (!camera)
        return false;
    CAravisCameraPtr open = m_registry->find(camera->key());
    const bool newHold = !m_held.contains(camera->key());
    if (newHold) {
        open = m_registry->open(camera);
        if (!open)
            return false;
        m_held.insert(camera->key());
    }
    if (!open->startGrabbing()) {
        // Nobody would stop a grab that never ran: the hold goes back now.
        if (newHold && m_held.remove(camera->key()))
            m_registry->release(camera->key());
        return false;
    }
    emit grabStarted(open->cameraInfo());
    return true;
}

void CCameraStreamControlService::stopGrab(const Core::CameraPoolComponents::CameraInfoPtr& camera)
{
    if (!camera)
        return;
    if (const CAravisCameraPtr open = m_registry->find(camera->key())) {
        open->stopGrabbing();
        emit grabStopped(open->cameraInfo());
    }
    if (m_held.remove(camera->key()))
        m_registry->release(camera->key());
}

CAravisCameraPtr CCameraStreamControlService::grabbedCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera) const
{
    return camera && m_held.contains(camera->key()) ? m_registry->find(camera->key()) : CAravisCameraPtr();
}

} // namespace CameraPool
