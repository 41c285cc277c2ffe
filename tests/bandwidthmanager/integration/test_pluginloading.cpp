// The built module in the host's plug-in manager, with the viewer's services.
#include <host/fakes/CModalResponder.h>

#include <Core/Plugin/ALocalizedPlugin.h>
#include <Core/Plugin/CPluginManager.h>
#include <Core/Plugin/ServiceLookup.h>

#ifdef BWM_HAVE_VIEWER_SERVICES
#include "CActionContainer.h"
#include "CDeviceSelectorService.h"
#include "CDeviceStateService.h"
#include "CHostComponentPlugin.h"
#include "CMainWindow.h"
#include "CMenuService.h"
#include "CMessageLogService.h"
#include "CProblemAssistantService.h"
#else
#include <host/fakes/CFakeHostComponent.h>
#include <host/fakes/CFakeMenuService.h>
#endif

#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QPluginLoader>

namespace {

const QString PluginDir = QStringLiteral(BWM_BINARY_DIR "/bin/plugins");
const QString PluginPath = PluginDir + QStringLiteral("/BandwidthManager.so");

class HostWithPlugin : public ::testing::Test
{
protected:
    void SetUp() override
    {
#ifdef BWM_HAVE_VIEWER_SERVICES
        m_menus = QSharedPointer<Viewer::CMenuService>::create();
        m_log = QSharedPointer<Viewer::CMessageLogService>::create();
        m_selector = QSharedPointer<Viewer::CDeviceSelectorService>::create();
        m_assistant = QSharedPointer<Viewer::CProblemAssistantService>::create();
        for (const Core::Service::ServicePtr& service : QList<Core::Service::ServicePtr>{
                 m_menus, m_log, m_selector, m_assistant,
                 QSharedPointer<Viewer::CDeviceStateService>::create(m_manager.toWeakRef())})
            m_manager->addService(service);
        m_window = std::make_unique<Viewer::CMainWindow>(m_menus.data(), m_log.data(), m_selector.data(),
                                                         m_assistant.data());
        Viewer::CHostComponentPlugin::addHostComponents(*m_manager);
#else
        m_menus = QSharedPointer<HostFakes::CFakeMenuService>::create();
        m_menus->addContainer("ZentaViewer.Menu.Tools");
        m_manager->addService(m_menus);
        for (const char* name : {"AppCore", "CameraPool", "DataProcessingCore", "MessageLogCore",
                                 "ParameterCollectionPool"})
            m_manager->addPluginInstance(new HostFakes::CFakeHostComponent,
                                         HostFakes::CFakeHostComponent::metaData(name, "2.0.0"));
        for (const char* name : {"CameraSelector", "ImageView", "ZentaViewer", "VideoRecording"})
            m_manager->addPluginInstance(new HostFakes::CFakeHostComponent,
                                         HostFakes::CFakeHostComponent::metaData(name, "7.3.0"));
#endif
        m_manager->addPluginFolder(PluginDir);
        m_loaded = m_manager->loadPlugins(m_manager);
    }

    void TearDown() override
    {
        m_manager->unloadPlugins(m_manager);
#ifdef BWM_HAVE_VIEWER_SERVICES
        m_window.reset();
#endif
    }

    QList<QAction*> toolsActions() const
    {
#ifdef BWM_HAVE_VIEWER_SERVICES
        auto* tools = static_cast<Viewer::CActionContainer*>(m_menus->actionContainer("ZentaViewer.Menu.Tools"));
        return tools && tools->menu() ? tools->menu()->actions() : QList<QAction*>{};
#else
        auto* tools = static_cast<HostFakes::CFakeActionContainer*>(m_menus->actionContainer("ZentaViewer.Menu.Tools"));
        QList<QAction*> actions;
        for (Plugin::AppCore::ICommand* command : tools->commandsInGroup("ZentaViewer.Group.Tools.Tools"))
            actions.append(command->action());
        return actions;
#endif
    }

    Core::Plugin::PluginManagerPtr m_manager = Core::Plugin::PluginManagerPtr::create();
    QStringList m_loaded;
#ifdef BWM_HAVE_VIEWER_SERVICES
    QSharedPointer<Viewer::CMenuService> m_menus;
    QSharedPointer<Viewer::CMessageLogService> m_log;
    QSharedPointer<Viewer::CDeviceSelectorService> m_selector;
    QSharedPointer<Viewer::CProblemAssistantService> m_assistant;
    std::unique_ptr<Viewer::CMainWindow> m_window;
#else
    QSharedPointer<HostFakes::CFakeMenuService> m_menus;
#endif
};

TEST_F(HostWithPlugin, ToolsMenuEntryOpensTheDialog)
{
    ASSERT_TRUE(m_loaded.contains(QStringLiteral("BandwidthManager")))
        << m_manager->errors().join(QLatin1Char('\n')).toStdString();
    QAction* entry = nullptr;
    for (QAction* action : toolsActions()) {
        if (action->text() == QLatin1String("Bandwidth Manager"))
            entry = action;
    }
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->shortcut(), QKeySequence(QStringLiteral("Ctrl+B")));
    EXPECT_FALSE(entry->icon().isNull());

    HostFakes::CModalResponder responder;
    entry->trigger();
    EXPECT_EQ(responder.seen(), QStringList{"BandwidthDialog"});
}

TEST_F(HostWithPlugin, CatalogsComeWithTheModule)
{
    Core::Plugin::ALocalizedPlugin* plugin = nullptr;
    for (Core::Plugin::IPlugin* candidate : m_manager->plugins()) {
        if (auto* localized = qobject_cast<Core::Plugin::ALocalizedPlugin*>(candidate))
            plugin = localized;
    }
    ASSERT_NE(plugin, nullptr);
    EXPECT_TRUE(plugin->setLanguage(QStringLiteral("en")));
    EXPECT_FALSE(plugin->setLanguage(QStringLiteral("xx")));
}

} // namespace
