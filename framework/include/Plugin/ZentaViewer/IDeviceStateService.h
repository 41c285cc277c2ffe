#pragma once

#include <Core/Service/IService.h>

namespace Plugin::ZentaViewer {

// Remembers which cameras were grabbing, so that they can be restarted.
class IDeviceStateService : public Core::Service::IService
{
    Q_OBJECT
public:
    using IService::IService;

    virtual void restoreDeviceState(quint64 handle) = 0;
    virtual quint64 saveDeviceState() = 0;
};

} // namespace Plugin::ZentaViewer
