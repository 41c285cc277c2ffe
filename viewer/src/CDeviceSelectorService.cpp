#include "CDeviceSelectorService.h"

namespace Viewer {

void CDeviceSelectorService::setSelection(const Core::CameraPoolComponents::DeviceBaseInfoPtr& device)
{
    const QString oldKey = m_selection ? m_selection->key() : QString();
    const QString newKey = device ? device->key() : QString();
    // A fresh enumeration hands out new objects for the same device; the key tells.
    if (m_selection == device || (m_selection && device && oldKey == newKey)) {
        m_selection = device;
        return;
    }
    m_selection = device;
    emit selectionChanged(device);
}

} // namespace Viewer
