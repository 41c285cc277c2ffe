#pragma once

#include <host/fakes/CFakeTransportLayer.h>

#include <Plugin/CameraPool/ICameraEnumerationService.h>

#include <functional>

namespace HostFakes {

// Transport layers and open cameras as the test scripts them; the test emits
// enumerationChanged itself.
class CFakeCameraEnumerationService : public Plugin::CameraPool::ICameraEnumerationService
{
public:
    using ICameraEnumerationService::ICameraEnumerationService;

    QSharedPointer<CFakeTransportLayer> addTransportLayer(const QString& name,
                                                          const QList<Core::CameraPoolComponents::CameraInfoPtr>& cameras)
    {
        QSharedPointer<CFakeTransportLayer> layer(new CFakeTransportLayer(name, cameras));
        m_layers.append(layer);
        return layer;
    }
    void setOpenCameras(const QList<Core::CameraPoolComponents::CameraInfoPtr>& cameras) { m_openCameras = cameras; }

    QList<Plugin::CameraPool::TransportLayerPtr> transportLayers() const override
    {
        if (beforeListing)
            beforeListing();
        return m_layers;
    }
    QList<Core::CameraPoolComponents::CameraInfoPtr> openCameras() const override { return m_openCameras; }

    // Runs at every listing, say to raise what a failing pool raises.
    std::function<void()> beforeListing;

private:
    QList<Plugin::CameraPool::TransportLayerPtr> m_layers;
    QList<Core::CameraPoolComponents::CameraInfoPtr> m_openCameras;
};

} // namespace HostFakes
