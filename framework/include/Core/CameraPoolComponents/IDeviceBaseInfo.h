#pragma once

#include <Core/CameraPoolComponents/IBaseInfo.h>

#include <QMetaType>

namespace Core::CameraPoolComponents {

// A device of the host: a camera, an adapter, an interface. A dynamic cast to
// ICameraInfo tells a camera from the rest.
class IDeviceBaseInfo : public IBaseInfo
{
public:
    // The unique full name of the device.
    virtual QString key() const = 0;
};

using DeviceBaseInfoPtr = QSharedPointer<IDeviceBaseInfo>;

} // namespace Core::CameraPoolComponents

Q_DECLARE_METATYPE(Core::CameraPoolComponents::DeviceBaseInfoPtr)
