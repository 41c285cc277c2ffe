#pragma once

#include <Core/CameraPoolComponents/IDeviceBaseInfo.h>
#include <Core/Service/IService.h>

namespace Plugin::CameraSelector {

class IDeviceSelectorService : public Core::Service::IService
{
    Q_OBJECT
public:
    using IService::IService;

signals:
    void selectionChanged(Core::CameraPoolComponents::DeviceBaseInfoPtr device);
};

} // namespace Plugin::CameraSelector
