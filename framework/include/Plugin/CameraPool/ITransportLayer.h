#pragma once

#include <Core/CameraPoolComponents/ICameraInfo.h>

#include <QList>
#include <QSharedPointer>

namespace Plugin::CameraPool {

// One transport-layer interface of the camera pool, such as "DorvikGigE".
class ITransportLayer
{
public:
    virtual ~ITransportLayer() = default;
    virtual QList<Core::CameraPoolComponents::CameraInfoPtr> cameras() const = 0;
    // The device class name of the interface: "DorvikGigE", "DorvikUsb", "CamEmu".
    virtual QString name() const = 0;
    virtual QString displayName() const = 0;
};

using TransportLayerPtr = QSharedPointer<ITransportLayer>;

} // namespace Plugin::CameraPool
