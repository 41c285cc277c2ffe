// The plug-in class lives only in the module, so these tests load the built
// module, as the host does, and start it against fake services.
#include <host/fakes/CFakeCameraInfo.h>
#include <host/fakes/CFakeCameraStatusService.h>
#include <host/fakes/CFakeCameraStreamControlService.h>
#include <host/fakes/CFakeDeviceInfo.h>
#include <host/fakes/CFakeDeviceSelectorService.h>
#include <host/fakes/CFakeDeviceStateService.h>
#include <host/fakes/CFakeMenuService.h>
#include <host/fakes/CFakeProblemAssistantService.h>
#include <host/fakes/CModalResponder.h>

#include <Core/Plugin/CPluginManager.h>
#include <Utilities/MessageBoxCheckable.h>

#include <gtest/gtest.h>

#include <QAction>
#include <QPluginLoader>
#include <QPointer>

using namespace HostFakes;

namespace {

const QString PluginPath = QStringLiteral(BWM_BINARY_DIR "/bin/plugins/BandwidthManager.so");
const char ToolsMenu[] = "ZentaViewer.Menu.Tools";
const char ContextMenu[] = "ZentaViewer.CameraSelectorContextMenu";

class BandwidthManagerPluginTest : public ::testing::Test
{
protected:
    void SetUp() override { MessageBoxCheckable::forgetSavedAnswer(QStringLiteral("BandwidthManagerStopGrabs")); }
    void TearDown() override { delete m_plugin.data(); }

    template <typename T>
    QSharedPointer<T> addService()
    {
        auto service = QSharedPointer<T>::create();
        m_manager->addService(service);
        return service;
    }

    void startPlugin()
    {
        QPluginLoader loader(PluginPath);
        m_plugin = qobject_cast<Core::Plugin::IPlugin*>(loader.instance());
        ASSERT_NE(m_plugin, nullptr) << loader.errorString().toStdString();
        ASSERT_TRUE(m_plugin->initialize(m_manager.toWeakRef()));
        ASSERT_TRUE(m_plugin->start());
    }

    // The host's menus with the Tools menu, and the camera selector's where asked.
    void startWithMenus(bool contextMenu = false)
    {
        m_menu = addService<CFakeMenuService>();
        m_menu->addContainer(ToolsMenu);
        if (contextMenu)
            m_menu->addContainer(ContextMenu);
        startPlugin();
    }

    QAction* action(const char* id) const
    {
        const CFakeCommand* command = m_menu ? m_menu->command(id) : nullptr;
        return command ? command->action() : nullptr;
    }

    Core::Plugin::PluginManagerPtr m_manager = Core::Plugin::PluginManagerPtr::create();
    QSharedPointer<CFakeMenuService> m_menu;
    QPointer<Core::Plugin::IPlugin> m_plugin;
};

struct SShellCase { const char* name; bool menuService; bool toolsMenu; bool contextMenu; bool assistant;
    bool toolsEntry; bool contextEntry; int solutions; int selectionListeners; };

class ShellWiring : public BandwidthManagerPluginTest, public ::testing::WithParamInterface<SShellCase> {};

TEST_P(ShellWiring, NarrowsWhatIsOfferedToWhatTheHostHas)
{
    const SShellCase& c = GetParam();
    const auto selector = addService<CFakeDeviceSelectorService>();
    const auto assistant = c.assistant ? addService<CFakeProblemAssistantService>() : nullptr;
    CFakeActionContainer* tools = nullptr;
    CFakeActionContainer* context = nullptr;
    if (c.menuService) {
        m_menu = addService<CFakeMenuService>();
        if (c.toolsMenu)
            tools = m_menu->addContainer(ToolsMenu);
        if (c.contextMenu)
            context = m_menu->addContainer(ContextMenu);
    }
    startPlugin();

    QAction* toolsAction = action("BandwidthManager.Start");
    QAction* contextAction = action("BandwidthManager.Start.Context");
    EXPECT_EQ(toolsAction != nullptr, c.toolsEntry);
    EXPECT_EQ(contextAction != nullptr, c.contextEntry);
    EXPECT_EQ(assistant ? assistant->solutions().size() : 0, c.solutions);
    EXPECT_EQ(selector->listenerCount(), c.selectionListeners);
    if (toolsAction) {
        EXPECT_EQ(m_menu->command("BandwidthManager.Start")->context().id(), Core::CId("AppCore.Global.Context"));
        EXPECT_EQ(tools->commandsInGroup("ZentaViewer.Group.Tools.Tools").size(), 1);
    }
    if (contextAction) {
        EXPECT_TRUE(contextAction->shortcut().isEmpty()) << "Ctrl+B belongs to the Tools entry";
        EXPECT_EQ(context->commandsInGroup("ZentaViewer.Group.CameraSelectorContextMenu.Misc").size(), 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Plugin, ShellWiring,
    ::testing::Values(SShellCase{"every_service", true, true, true, true, true, true, 1, 1},
                      SShellCase{"no_menu_service", false, false, false, true, false, false, 0, 0},
                      SShellCase{"no_tools_menu_means_no_solution", true, false, true, true, false, true, 0, 1},
                      SShellCase{"no_context_menu", true, true, false, true, true, false, 1, 1},
                      SShellCase{"no_problem_assistant", true, true, true, false, true, true, 0, 1}),
    [](const ::testing::TestParamInfo<SShellCase>& info) { return std::string(info.param.name); });

TEST_F(BandwidthManagerPluginTest, SolutionCoversItsProblemsAndOpensTheDialog)
{
    const auto assistant = addService<CFakeProblemAssistantService>();
    startWithMenus();
    ASSERT_EQ(assistant->solutions().size(), 1);
    const auto solution = assistant->solutions().at(0);
    EXPECT_EQ(solution->getIds(), (QSet<QString>{"2000", "2010", "2020", "2030", "3001"}));
    EXPECT_TRUE(solution->getDescription().contains(QStringLiteral("<a href=\"#\">Bandwidth Manager</a>")));

    CModalResponder responder;
    solution->executeSolution({QStringLiteral("2010"), {}, {}}, QStringLiteral("#"));
    EXPECT_EQ(responder.seen(), QStringList{"BandwidthDialog"});
}

TEST_F(BandwidthManagerPluginTest, ContextEntryHidesForEmulatedCamerasOnly)
{
    const auto selector = addService<CFakeDeviceSelectorService>();
    startWithMenus(true);
    QAction* context = action("BandwidthManager.Start.Context");
    ASSERT_NE(context, nullptr);

    selector->select(CFakeCameraInfo::create("Emu", "emu-1", "CamEmu"));
    EXPECT_FALSE(context->isVisible());
    selector->select(Core::CameraPoolComponents::DeviceBaseInfoPtr(new CFakeDeviceInfo("eth0", "10.0.0.1")));
    EXPECT_FALSE(context->isVisible());
    selector->select(CFakeCameraInfo::create("GigE", "gev-1", "GEV"));
    EXPECT_TRUE(context->isVisible());
    selector->select(CFakeCameraInfo::create("Emu", "emu-1", "camemu"));
    EXPECT_TRUE(context->isVisible());
    EXPECT_TRUE(action("BandwidthManager.Start")->isVisible());
}

// Two starts of the Tools entry while a camera grabs; a ticked No is not remembered, a ticked Yes is.
TEST_F(BandwidthManagerPluginTest, StopGrabsBoxAsksUnlessYesWasSaved)
{
    const struct { const char* scenario; bool status; int answer; QStringList seen; QStringList stops; } cases[] = {
        {"no_leaves_the_cameras_alone", true, QMessageBox::No, {"MessageBoxCheckable", "MessageBoxCheckable"}, {}},
        {"saved_yes_stops_grabs_without_the_box", true, QMessageBox::Yes,
         {"MessageBoxCheckable", "BandwidthDialog", "BandwidthDialog"}, {"stopAllGrabs", "stopAllGrabs"}},
        {"without_status_service_the_dialog_opens_at_once", false, 0, {"BandwidthDialog", "BandwidthDialog"}, {}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.scenario);
        MessageBoxCheckable::forgetSavedAnswer(QStringLiteral("BandwidthManagerStopGrabs"));
        m_manager = Core::Plugin::PluginManagerPtr::create();
        if (c.status)
            addService<CFakeCameraStatusService>()->setGrabbing(QStringLiteral("gev-1"), true);
        const auto streams = addService<CFakeCameraStreamControlService>();
        startWithMenus();
        CModalResponder responder;
        for (int start = 0; start < 2; ++start) {
            responder.expect(CModalResponder::clickButton(c.answer, true));
            action("BandwidthManager.Start")->trigger();
        }
        EXPECT_EQ(responder.seen(), c.seen);
        EXPECT_EQ(streams->calls(), c.stops);
        delete m_plugin.data();
    }
}

TEST_F(BandwidthManagerPluginTest, DeviceStateHandleGoesBackUnchanged)
{
    const auto state = addService<CFakeDeviceStateService>();
    startPlugin();
    QMetaObject::invokeMethod(m_plugin, "restoreState");
    QMetaObject::invokeMethod(m_plugin, "storeState");
    QMetaObject::invokeMethod(m_plugin, "restoreState");
    EXPECT_EQ(state->restoredHandles(), (QList<quint64>{0, 0x5001}));
}

} // namespace
