#pragma once

#include <Plugin/CameraSelector/IDeviceSelectorService.h>

namespace Viewer {

class CDeviceSelectorService : public Plugin::CameraSelector::IDeviceSelectorService
{
    Q_OBJECT
public:
    using IDeviceSelectorService::IDeviceSelectorService;

    // Emits selectionChanged only when the device differs from the current one.
    void setSelection(const Core::CameraPoolComponents::DeviceBaseInfoPtr& device);
    Core::CameraPoolComponents::DeviceBaseInfoPtr selection() const { return m_selection; }

private:
    Core::CameraPoolComponents::DeviceBaseInfoPtr m_selection;
};

} // namespace Viewer
