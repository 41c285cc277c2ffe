#include "CMainWindow.h"

#include "CCameraSelectorPanel.h"
#include "CDeviceSelectorService.h"
#include "CMenuService.h"
#include "CMessageLogPanel.h"
#include "CMessageLogService.h"
#include "CProblemAssistantPanel.h"
#include "ViewerIds.h"

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <Utilities/LayoutPersistence.h>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>

namespace Viewer {

CMainWindow::CMainWindow(CMenuService* menus, CMessageLogService* log, CDeviceSelectorService* selector,
                         CProblemAssistantService* assistant, QWidget* parent)
    : QMainWindow(parent), m_selector(selector)
{
    setWindowTitle(tr("Zenta Viewer"));
    setObjectName(QStringLiteral("ZentaViewerMainWindow"));
    const Core::AppCoreComponents::CContext global(Ids::GlobalContext);

    QMenu* file = menuBar()->addMenu(tr("&File"));
    menus->createContainer(Ids::FileMenu, file)->appendGroup(Ids::FileGroup);
    auto* quit = new QAction(tr("&Quit"), this);
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, this, &QWidget::close);
    menus->actionContainer(Ids::FileMenu)->addCommand(menus->registerAction(quit, Ids::QuitCommand, global),
                                                       Ids::FileGroup);

    QMenu* view = menuBar()->addMenu(tr("&View"));
    CActionContainer* viewContainer = menus->createContainer(Ids::ViewMenu, view);
    viewContainer->appendGroup(Ids::ViewCamerasGroup);
    viewContainer->appendGroup(Ids::ViewPanelsGroup);
    m_refreshCameras = new QAction(tr("Refresh cameras"), this);
    m_refreshCameras->setObjectName(QString::fromLatin1(Ids::RefreshCamerasCommand));
    m_refreshCameras->setShortcut(QKeySequence::Refresh);
    viewContainer->addCommand(menus->registerAction(m_refreshCameras, Ids::RefreshCamerasCommand, global),
                              Ids::ViewCamerasGroup);

    QMenu* tools = menuBar()->addMenu(tr("&Tools"));
    menus->createContainer(Ids::ToolsMenu, tools)->appendGroup(Ids::ToolsGroup);

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    menus->createContainer(Ids::HelpMenu, help)->appendGroup(Ids::HelpGroup);
    auto* about = new QAction(tr("&About Zenta Viewer"), this);
    connect(about, &QAction::triggered, this, &CMainWindow::onAbout);
    menus->actionContainer(Ids::HelpMenu)->addCommand(menus->registerAction(about, Ids::AboutCommand, global),
                                                       Ids::HelpGroup);

    auto* contextMenu = new QMenu(this);
    menus->createContainer(Ids::CameraSelectorContextMenu, contextMenu)->appendGroup(Ids::CameraSelectorMiscGroup);

    m_cameraSelector = new CCameraSelectorPanel(selector, contextMenu);
    connect(m_refreshCameras, &QAction::triggered, m_cameraSelector, &CCameraSelectorPanel::onRefresh);
    auto* selectorDock = new QDockWidget(tr("Devices"), this);
    selectorDock->setObjectName(QStringLiteral("CameraSelectorDock"));
    selectorDock->setWidget(m_cameraSelector);
    addDockWidget(Qt::LeftDockWidgetArea, selectorDock);

    auto* logDock = new QDockWidget(tr("Messages"), this);
    logDock->setObjectName(QStringLiteral("MessageLogDock"));
    logDock->setWidget(new CMessageLogPanel(log));
    addDockWidget(Qt::BottomDockWidgetArea, logDock);

    m_problemAssistant = new CProblemAssistantPanel(assistant);
    auto* assistantDock = new QDockWidget(tr("Problem Assistant"), this);
    assistantDock->setObjectName(QStringLiteral("ProblemAssistantDock"));
    assistantDock->setWidget(m_problemAssistant);
    addDockWidget(Qt::RightDockWidgetArea, assistantDock);

    for (QDockWidget* dock : {selectorDock, logDock, assistantDock})
        view->addAction(dock->toggleViewAction());

    auto* central = new QLabel(this);
    central->setAlignment(Qt::AlignCenter);
    central->setObjectName(QStringLiteral("SelectionLabel"));
    setCentralWidget(central);
    connect(selector, &CDeviceSelectorService::selectionChanged, this, &CMainWindow::onSelectionChanged);
    onSelectionChanged();
    restoreWindowLayout();
}

void CMainWindow::closeEvent(QCloseEvent* event)
{
    QSettings settings;
    settings.beginGroup(QStringLiteral("MainWindow"));
    saveWidgetPositionAndSize(&settings, this, nullptr);
    settings.setValue(QStringLiteral("state"), saveState());
    QMainWindow::closeEvent(event);
}

void CMainWindow::restoreWindowLayout()
{
    QSettings settings;
    settings.beginGroup(QStringLiteral("MainWindow"));
    if (!restoreWidgetPositionAndSize(&settings, this, nullptr) && !settings.contains(QStringLiteral("size")))
        resize(1100, 700);
    restoreState(settings.value(QStringLiteral("state")).toByteArray());
}

void CMainWindow::onSelectionChanged()
{
    auto* label = static_cast<QLabel*>(centralWidget());
    const Core::CameraPoolComponents::DeviceBaseInfoPtr device = m_selector->selection();
    const auto camera = device.dynamicCast<Core::CameraPoolComponents::ICameraInfo>();
    if (!device)
        label->setText(tr("Select a camera in the device list."));
    else if (!camera)
        label->setText(device->displayName());
    else
        label->setText(tr("%1\n%2 camera\n%3").arg(camera->displayName(), camera->deviceClass(), camera->key()));
}

void CMainWindow::onAbout()
{
    QMessageBox::about(this, tr("About Zenta Viewer"),
                       tr("Zenta Viewer %1\nA viewer for industrial cameras, extended by plug-ins.")
                           .arg(QCoreApplication::applicationVersion()));
}

} // namespace Viewer
