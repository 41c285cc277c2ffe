#pragma once

#include <Core/Service/IService.h>
#include <Plugin/CameraPool/ITransportLayer.h>

namespace Plugin::CameraPool {

class ICameraEnumerationService : public Core::Service::IService
{
    Q_OBJECT
public:
    using IService::IService;

    virtual QList<TransportLayerPtr> transportLayers() const = 0;
    // The cameras that the host has open.
    virtual QList<Core::CameraPoolComponents::CameraInfoPtr> openCameras() const = 0;

signals:
    // Only when the set of cameras changed.
    void enumerationChanged();
};

} // namespace Plugin::CameraPool
