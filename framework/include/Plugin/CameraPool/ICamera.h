#pragma once

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <Zenta/CGrabResultPtr.h>

#include <QObject>
#include <QSharedPointer>

namespace Plugin::CameraPool {

// An open camera. cameraImageGrabbed is emitted on the camera's grab thread,
// cameraConnectionLost on the GUI thread.
class ICamera : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~ICamera() override = default;

    virtual bool startGrabbing() = 0;
    virtual void stopGrabbing() = 0;
    virtual bool isGrabbing() const = 0;
    virtual Core::CameraPoolComponents::CameraInfoPtr cameraInfo() const = 0;

signals:
    void cameraImageGrabbed(const Core::CameraPoolComponents::CameraInfoPtr& cameraInfo,
                            const Zenta::CGrabResultPtr& grabResult);
    void cameraConnectionLost();
};

using ICameraPtr = QSharedPointer<ICamera>;

} // namespace Plugin::CameraPool
