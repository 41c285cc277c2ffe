#include <host/fakes/CFakeDeviceSelectorService.h>

namespace HostFakes {

int CFakeDeviceSelectorService::listenerCount() const
{
    return receivers(SIGNAL(selectionChanged(Core::CameraPoolComponents::DeviceBaseInfoPtr)));
}

} // namespace HostFakes
