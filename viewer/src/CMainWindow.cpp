#include "CMainWindow.h"

#include "CCameraSelectorPanel.h"
#include "CLanguageSelector.h"
#include "CDeviceSelectorService.h"
#include "CMenuService.h"
#include "CMessageLogPanel.h"
#include "CMessageLogService.h"
#include "CProblemAssistantPanel.h"
#include "ViewerIds.h"

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <Utilities/LayoutPersistence.h>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QEvent>
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
    setObjectName(QStringLiteral("ZentaViewerMainWindow"));
    const Core::AppCoreComponents::CContext global(Ids::GlobalContext);

    m_fileMenu = menuBar()->addMenu(QString());
    menus->createContainer(Ids::FileMenu, m_fileMenu)->appendGroup(Ids::FileGroup);
    m_quit = new QAction(this);
    m_quit->setShortcut(QKeySequence::Quit);
    connect(m_quit, &QAction::triggered, this, &QWidget::close);
    menus->actionContainer(Ids::FileMenu)->addCommand(menus->registerAction(m_quit, Ids::QuitCommand, global),
                                                       Ids::FileGroup);

    m_viewMenu = menuBar()->addMenu(QString());
    CActionContainer* viewContainer = menus->createContainer(Ids::ViewMenu, m_viewMenu);
    viewContainer->appendGroup(Ids::ViewCamerasGroup);
    viewContainer->appendGroup(Ids::ViewPanelsGroup);
    m_refreshCameras = new QAction(this);
    m_refreshCameras->setObjectName(QString::fromLatin1(Ids::RefreshCamerasCommand));
    m_refreshCameras->setShortcut(QKeySequence::Refresh);
    viewContainer->addCommand(menus->registerAction(m_refreshCameras, Ids::RefreshCamerasCommand, global),
                              Ids::ViewCamerasGroup);

    m_toolsMenu = menuBar()->addMenu(QString());
    menus->createContainer(Ids::ToolsMenu, m_toolsMenu)->appendGroup(Ids::ToolsGroup);

    m_helpMenu = menuBar()->addMenu(QString());
    menus->createContainer(Ids::HelpMenu, m_helpMenu)->appendGroup(Ids::HelpGroup);
    m_about = new QAction(this);
    connect(m_about, &QAction::triggered, this, &CMainWindow::onAbout);
    menus->actionContainer(Ids::HelpMenu)->addCommand(menus->registerAction(m_about, Ids::AboutCommand, global),
                                                       Ids::HelpGroup);

    auto* contextMenu = new QMenu(this);
    CActionContainer* contextContainer = menus->createContainer(Ids::CameraSelectorContextMenu, contextMenu);
    contextContainer->appendGroup(Ids::CameraSelectorCameraGroup);
    contextContainer->appendGroup(Ids::CameraSelectorMiscGroup);

    m_cameraSelector = new CCameraSelectorPanel(selector, contextMenu);
    connect(m_refreshCameras, &QAction::triggered, m_cameraSelector, &CCameraSelectorPanel::onRefresh);
    auto* selectorDock = new QDockWidget(this);
    selectorDock->setObjectName(QStringLiteral("CameraSelectorDock"));
    selectorDock->setWidget(m_cameraSelector);
    addDockWidget(Qt::LeftDockWidgetArea, selectorDock);

    auto* logDock = new QDockWidget(this);
    logDock->setObjectName(QStringLiteral("MessageLogDock"));
    logDock->setWidget(new CMessageLogPanel(log));
    addDockWidget(Qt::BottomDockWidgetArea, logDock);

    m_problemAssistant = new CProblemAssistantPanel(assistant);
    auto* assistantDock = new QDockWidget(this);
    assistantDock->setObjectName(QStringLiteral("ProblemAssistantDock"));
    assistantDock->setWidget(m_problemAssistant);
    addDockWidget(Qt::RightDockWidgetArea, assistantDock);

    m_docks = {selectorDock, logDock, assistantDock};
    for (QDockWidget* dock : m_docks)
        m_viewMenu->addAction(dock->toggleViewAction());

    m_selectionLabel = new QLabel(this);
    m_selectionLabel->setAlignment(Qt::AlignCenter);
    m_selectionLabel->setObjectName(QStringLiteral("SelectionLabel"));
    setCentralWidget(m_selectionLabel);
    connect(selector, &CDeviceSelectorService::selectionChanged, this, &CMainWindow::onSelectionChanged);
    retranslateUi();
    restoreWindowLayout();
}

void CMainWindow::addLanguageMenu(CLanguageSelector* languages)
{
    m_languageMenu = new QMenu(this);
    menuBar()->insertMenu(m_helpMenu->menuAction(), m_languageMenu);
    auto* group = new QActionGroup(m_languageMenu);
    for (const QString& language : CLanguageSelector::languages()) {
        QAction* action = m_languageMenu->addAction(CLanguageSelector::nativeName(language));
        action->setObjectName(QStringLiteral("Language.") + language);
        action->setCheckable(true);
        action->setChecked(language == languages->language());
        action->setActionGroup(group);
        connect(action, &QAction::triggered, languages, [languages, language] { languages->setLanguage(language); });
    }
    connect(languages, &CLanguageSelector::languageChanged, m_languageMenu, [this](const QString& language) {
        if (QAction* action = m_languageMenu->findChild<QAction*>(QStringLiteral("Language.") + language))
            action->setChecked(true);
    });
    retranslateUi();
}

void CMainWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslateUi();
    QMainWindow::changeEvent(event);
}

void CMainWindow::retranslateUi()
{
    setWindowTitle(tr("Zenta Viewer"));
    m_fileMenu->setTitle(tr("&File"));
    m_quit->setText(tr("&Quit"));
    m_viewMenu->setTitle(tr("&View"));
    m_refreshCameras->setText(tr("Refresh cameras"));
    m_toolsMenu->setTitle(tr("&Tools"));
    m_helpMenu->setTitle(tr("&Help"));
    m_about->setText(tr("&About Zenta Viewer"));
    if (m_languageMenu)
        m_languageMenu->setTitle(tr("&Language"));
    m_docks[0]->setWindowTitle(tr("Devices"));
    m_docks[1]->setWindowTitle(tr("Messages"));
    m_docks[2]->setWindowTitle(tr("Problem Assistant"));
    onSelectionChanged();
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
    QLabel* label = m_selectionLabel;
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
