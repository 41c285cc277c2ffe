#include "CDeviceStateService.h"

#include <Core/Plugin/ServiceLookup.h>
#include <Plugin/CameraPool/ICameraEnumerationService.h>
#include <Plugin/CameraPool/ICameraStatusService.h>
#include <Plugin/CameraPool/ICameraStreamControlService.h>

namespace Viewer {

namespace {

QList<Core::CameraPoolComponents::CameraInfoPtr> allCameras(const Core::Plugin::PluginManagerWeakPtr& manager)
{
    QList<Core::CameraPoolComponents::CameraInfoPtr> cameras;
    const auto enumeration = Core::Plugin::getService<Plugin::CameraPool::ICameraEnumerationService>(manager);
    if (!enumeration)
        return cameras;
    for (const Plugin::CameraPool::TransportLayerPtr& layer : enumeration->transportLayers()) {
        if (layer)
            cameras += layer->cameras();
    }
    return cameras;
}

} // namespace

CDeviceStateService::CDeviceStateService(const Core::Plugin::PluginManagerWeakPtr& manager, QObject* parent)
    : IDeviceStateService(parent), m_manager(manager)
{
}

quint64 CDeviceStateService::saveDeviceState()
{
    QStringList grabbing;
    const auto status = Core::Plugin::getService<Plugin::CameraPool::ICameraStatusService>(m_manager);
    if (status) {
        for (const Core::CameraPoolComponents::CameraInfoPtr& camera : allCameras(m_manager)) {
            if (camera && status->isCameraGrabbing(camera))
                grabbing.append(camera->key());
        }
    }
    // Zero stays free so that a plug-in's zero-filled field never names a state.
    const quint64 handle = m_nextHandle++;
    m_states.insert(handle, grabbing);
    return handle;
}

void CDeviceStateService::restoreDeviceState(quint64 handle)
{
    const QStringList keys = m_states.take(handle);
    if (keys.isEmpty())
        return;
    const auto streams = Core::Plugin::getService<Plugin::CameraPool::ICameraStreamControlService>(m_manager);
    const auto status = Core::Plugin::getService<Plugin::CameraPool::ICameraStatusService>(m_manager);
    if (!streams)
        return;
    for (const Core::CameraPoolComponents::CameraInfoPtr& camera : allCameras(m_manager)) {
        if (camera && keys.contains(camera->key()) && !(status && status->isCameraGrabbing(camera)))
            streams->startGrab(camera);
    }
}

} // namespace Viewer
