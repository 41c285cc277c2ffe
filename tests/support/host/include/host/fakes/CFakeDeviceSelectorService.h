#pragma once

#include <Plugin/CameraSelector/IDeviceSelectorService.h>

namespace HostFakes {

class CFakeDeviceSelectorService : public Plugin::CameraSelector::IDeviceSelectorService
{
public:
    using IDeviceSelectorService::IDeviceSelectorService;

    void select(const Core::CameraPoolComponents::DeviceBaseInfoPtr& device) { emit selectionChanged(device); }
    int listenerCount() const;
};

} // namespace HostFakes
