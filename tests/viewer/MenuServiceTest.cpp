#include "CDeviceSelectorService.h"
#include "CMainWindow.h"
#include "CMenuService.h"
#include "CMessageLogService.h"
#include "CProblemAssistantService.h"
#include "ViewerIds.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>

using namespace Viewer;

namespace {

QStringList menuTexts(const QMenu& menu)
{
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts.append(action->isSeparator() ? QStringLiteral("--") : action->text());
    return texts;
}

} // namespace

TEST(MenuService, commandsGoToTheEndOfTheirGroupAndGroupsAreSeparated)
{
    CMenuService service;
    QMenu menu;
    CActionContainer* container = service.createContainer("Test.Menu", &menu);
    container->appendGroup("Test.Group.First");
    container->appendGroup("Test.Group.Second");
    const Core::AppCoreComponents::CContext context("AppCore.Global.Context");
    QAction a("a"), b("b"), c("c"), d("d");
    Plugin::AppCore::IActionContainer* found = service.actionContainer("Test.Menu");
    ASSERT_EQ(found, container);
    found->addCommand(service.registerAction(&a, "Test.A", context), "Test.Group.Second");
    found->addCommand(service.registerAction(&b, "Test.B", context), "Test.Group.First");
    found->addCommand(service.registerAction(&c, "Test.C", context), "Test.Group.First");
    found->addCommand(service.registerAction(&d, "Test.D", context), "Test.Group.Unknown");

    EXPECT_EQ(menuTexts(menu), QStringList({"b", "c", "--", "a", "--", "d"}));
    EXPECT_EQ(service.actionContainer("Test.Missing"), nullptr);
    EXPECT_EQ(service.command("Test.C")->action(), &c);
    EXPECT_EQ(service.command("Test.C")->context(), context);
}

TEST(MenuService, commandRegisteredAgainKeepsTheFirstHandleAlive)
{
    CMenuService service;
    QAction first("first"), second("second");
    Plugin::AppCore::ICommand* old = service.registerAction(&first, "Test.Same", {});
    service.registerAction(&second, "Test.Same", {});
    EXPECT_EQ(old->action(), &first);
    EXPECT_EQ(service.command("Test.Same")->action(), &second);
    EXPECT_EQ(service.registerAction(nullptr, "Test.Null", {}), nullptr);
}

TEST(MenuService, mainWindowOffersTheToolsMenuAndTheSelectorContextMenu)
{
    CMenuService menus;
    CMessageLogService log;
    CDeviceSelectorService selector;
    CProblemAssistantService assistant;
    CMainWindow window(&menus, &log, &selector, &assistant);

    auto* tools = dynamic_cast<CActionContainer*>(menus.actionContainer(Ids::ToolsMenu));
    auto* context = dynamic_cast<CActionContainer*>(menus.actionContainer(Ids::CameraSelectorContextMenu));
    ASSERT_TRUE(tools && context);
    EXPECT_EQ(tools->groups(), QList<Core::CId>({Ids::ToolsGroup}));
    EXPECT_EQ(context->groups(), QList<Core::CId>({Ids::CameraSelectorCameraGroup, Ids::CameraSelectorMiscGroup}));
    EXPECT_EQ(tools->menu()->title(), QStringLiteral("&Tools"));

    QAction tool("Bandwidth Manager");
    tools->addCommand(menus.registerAction(&tool, Ids::BandwidthManagerCommand, {}), Ids::ToolsGroup);
    EXPECT_EQ(tools->menu()->actions(), QList<QAction*>({&tool}));
    EXPECT_EQ(menus.command(Ids::RefreshCamerasCommand)->action(), window.refreshCamerasAction());
}
