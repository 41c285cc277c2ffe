#pragma once

#include <Core/Plugin/IPlugin.h>
#include <Plugin/ZentaViewer/IDeviceStateService.h>

#include <QHash>
#include <QStringList>

namespace Viewer {

// Remembers which cameras grab, by key, under a handle; restoring starts
// those of them that are still there and idle.
class CDeviceStateService : public Plugin::ZentaViewer::IDeviceStateService
{
    Q_OBJECT
public:
    explicit CDeviceStateService(const Core::Plugin::PluginManagerWeakPtr& manager, QObject* parent = nullptr);

    void restoreDeviceState(quint64 handle) override;
    quint64 saveDeviceState() override;

    QStringList savedCameras(quint64 handle) const { return m_states.value(handle); }

private:
    Core::Plugin::PluginManagerWeakPtr m_manager;
    QHash<quint64, QStringList> m_states;
    quint64 m_nextHandle = 1;
};

} // namespace Viewer
