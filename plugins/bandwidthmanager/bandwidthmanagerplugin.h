#pragma once

#include <Core/CameraPoolComponents/IDeviceBaseInfo.h>
#include <Core/Plugin/ALocalizedPlugin.h>
#include <Plugin/CameraPool/ICameraStatusService.h>
#include <Plugin/CameraPool/ICameraStreamControlService.h>
#include <Plugin/CameraSelector/IDeviceSelectorService.h>
#include <Plugin/ZentaViewer/IDeviceStateService.h>

#include <QSharedPointer>

class BandwidthDialog;
class QAction;

namespace Plugin::BandwidthManager {

// Puts the Bandwidth Manager into the host's menus and problem assistant and
// runs its dialog when asked.
class CBandwidthManagerPlugin : public Core::Plugin::ALocalizedPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID ZENTA_PLUGIN_IID FILE "BandwidthManager.json")
    Q_INTERFACES(Core::Plugin::IPlugin)

public:
    CBandwidthManagerPlugin();
    ~CBandwidthManagerPlugin() override;

    bool initialize(const Core::Plugin::PluginManagerWeakPtr& pluginManager) override;
    bool start() override;
    bool uninitialize(const Core::Plugin::PluginManagerWeakPtr& pluginManager) override;

private slots:
    void startBandwidthManager();
    void storeState();
    void restoreState();
    void onDeviceSelectionChanged(Core::CameraPoolComponents::DeviceBaseInfoPtr device);

private:
    Core::Plugin::PluginManagerWeakPtr m_pluginManager;
    QAction* m_toolsAction = nullptr;
    QAction* m_contextAction = nullptr;
    BandwidthDialog* m_dialog = nullptr;
    QSharedPointer<Plugin::ZentaViewer::IDeviceStateService> m_deviceStateService;
    QSharedPointer<Plugin::CameraPool::ICameraStatusService> m_cameraStatusService;
    QSharedPointer<Plugin::CameraPool::ICameraStreamControlService> m_streamControlService;
    QSharedPointer<Plugin::CameraSelector::IDeviceSelectorService> m_deviceSelectorService;
    quint64 m_savedDeviceState = 0;
};

} // namespace Plugin::BandwidthManager
