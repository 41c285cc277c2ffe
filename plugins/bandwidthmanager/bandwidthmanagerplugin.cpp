#include "bandwidthmanagerplugin.h"

#include "bandwidthdialog.h"

#include <Core/AppCoreComponents/CContext.h>
#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <Core/Plugin/ServiceLookup.h>
#include <Plugin/AppCore/IMenuService.h>
#include <Plugin/ProblemAssistant/CActionBasedSolution.h>
#include <Plugin/ProblemAssistant/IProblemAssistantService.h>
#include <Utilities/MessageBoxCheckable.h>

#include <QAction>
#include <QApplication>
#include <QIcon>
#include <QSet>

namespace Plugin::BandwidthManager {

namespace {

const char IconPath[] = ":/bandwidthmanager/Resources/BandwidthManager.png";
const char GlobalContext[] = "AppCore.Global.Context";

} // namespace

CBandwidthManagerPlugin::CBandwidthManagerPlugin() = default;

// Services go last to first, then the manager reference; the actions go with
// the QObject children.
CBandwidthManagerPlugin::~CBandwidthManagerPlugin()
{
    m_deviceSelectorService.reset();
    m_streamControlService.reset();
    m_cameraStatusService.reset();
    m_deviceStateService.reset();
    m_pluginManager.clear();
}

bool CBandwidthManagerPlugin::initialize(const Core::Plugin::PluginManagerWeakPtr& pluginManager)
{
    m_pluginManager = pluginManager;
    return true;
}

bool CBandwidthManagerPlugin::start()
{
    using Core::Plugin::getService;
    m_deviceStateService = getService<Plugin::ZentaViewer::IDeviceStateService>(m_pluginManager);
    m_cameraStatusService = getService<Plugin::CameraPool::ICameraStatusService>(m_pluginManager);
    m_streamControlService = getService<Plugin::CameraPool::ICameraStreamControlService>(m_pluginManager);
    m_deviceSelectorService = getService<Plugin::CameraSelector::IDeviceSelectorService>(m_pluginManager);

    const auto menuService = getService<Plugin::AppCore::IMenuService>(m_pluginManager);
    if (!menuService)
        return true;

    Plugin::AppCore::IActionContainer* contextMenu =
        menuService->actionContainer("ZentaViewer.CameraSelectorContextMenu");
    Plugin::AppCore::IActionContainer* toolsMenu = menuService->actionContainer("ZentaViewer.Menu.Tools");
    const Core::AppCoreComponents::CContext context{Core::CId(GlobalContext)};
    const QIcon icon{QString::fromLatin1(IconPath)};

    if (toolsMenu) {
        m_toolsAction = new QAction(tr("Bandwidth Manager"), this);
        m_toolsAction->setIcon(icon);
        m_toolsAction->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_B));
        m_toolsAction->setShortcutContext(Qt::ApplicationShortcut);
        Plugin::AppCore::ICommand* command = menuService->registerAction(m_toolsAction, "BandwidthManager.Start", context);
        connect(m_toolsAction, &QAction::triggered, this, &CBandwidthManagerPlugin::startBandwidthManager);
        toolsMenu->addCommand(command, "ZentaViewer.Group.Tools.Tools");

        if (const auto assistant = getService<Plugin::ProblemAssistant::IProblemAssistantService>(m_pluginManager)) {
            QSet<QString> ids;
            for (const char* id : {"2000", "2010", "2020", "2030", "3001"})
                ids.insert(QString::fromLatin1(id));
            const QString description =
                tr("Bandwidth Manager<br>The <a href=\"#\">Bandwidth Manager</a> helps you to optimize your network "
                   "settings for optimum camera performance.");
            assistant->addSolution(Plugin::ProblemAssistant::SolutionPtr(
                new Plugin::ProblemAssistant::CActionBasedSolution(description, m_toolsAction, ids, nullptr)));
        }
    }

    if (contextMenu) {
        m_contextAction = new QAction(tr("Bandwidth Manager"), this);
        m_contextAction->setIcon(icon);
        Plugin::AppCore::ICommand* command =
            menuService->registerAction(m_contextAction, "BandwidthManager.Start.Context", context);
        connect(m_contextAction, &QAction::triggered, this, &CBandwidthManagerPlugin::startBandwidthManager);
        contextMenu->addCommand(command, "ZentaViewer.Group.CameraSelectorContextMenu.Misc");
    }

    if (m_deviceSelectorService) {
        connect(m_deviceSelectorService.data(), &Plugin::CameraSelector::IDeviceSelectorService::selectionChanged,
                this, &CBandwidthManagerPlugin::onDeviceSelectionChanged);
    }
    return true;
}

bool CBandwidthManagerPlugin::uninitialize(const Core::Plugin::PluginManagerWeakPtr& /*pluginManager*/)
{
    return true;
}

void CBandwidthManagerPlugin::startBandwidthManager()
{
    if (m_cameraStatusService && m_cameraStatusService->isAnyCameraGrabbing()) {
        MessageBoxCheckable box(QStringLiteral("BandwidthManagerStopGrabs"), nullptr);
        box.setWindowTitle(tr("Bandwidth Manager"));
        box.setText(tr("<p>To use the Bandwidth Manager, you have to stop continuous image acquisition as well as "
                       "any recordings on all cameras.<p/>Do you want to stop all cameras and start using the "
                       "Bandwidth Manager?"));
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::No);
        box.setIcon(QMessageBox::Question);
        // Only Yes is remembered, so the box can never be silenced with No.
        box.setSaveResultOnButton(QMessageBox::Yes);
        if (box.exec() != QMessageBox::Yes)
            return;
        m_streamControlService->stopAllGrabs();
    }

    m_dialog = new BandwidthDialog(m_pluginManager, QApplication::activeWindow(), Qt::WindowFlags(), nullptr);
    m_dialog->exec();
    delete m_dialog;
    m_dialog = nullptr;
}

void CBandwidthManagerPlugin::storeState()
{
    if (m_deviceStateService)
        m_savedDeviceState = m_deviceStateService->saveDeviceState();
}

void CBandwidthManagerPlugin::restoreState()
{
    if (m_deviceStateService)
        m_deviceStateService->restoreDeviceState(m_savedDeviceState);
}

void CBandwidthManagerPlugin::onDeviceSelectionChanged(Core::CameraPoolComponents::DeviceBaseInfoPtr device)
{
    const auto camera = device.dynamicCast<Core::CameraPoolComponents::ICameraInfo>();
    if (camera && m_contextAction)
        m_contextAction->setVisible(camera->deviceClass() != QLatin1String("CamEmu"));
}

} // namespace Plugin::BandwidthManager
