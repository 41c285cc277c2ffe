#pragma once

#include <Plugin/ZentaViewer/IDeviceStateService.h>

#include <QList>

namespace HostFakes {

// Hands out the next handle on save and records every handle given back.
class CFakeDeviceStateService : public Plugin::ZentaViewer::IDeviceStateService
{
public:
    using IDeviceStateService::IDeviceStateService;

    void restoreDeviceState(quint64 handle) override { m_restored.append(handle); }
    quint64 saveDeviceState() override { return ++m_lastHandle; }

    const QList<quint64>& restoredHandles() const { return m_restored; }

private:
    quint64 m_lastHandle = 0x5000;
    QList<quint64> m_restored;
};

} // namespace HostFakes
