#pragma once

#include <QMainWindow>

#include <array>

class QAction;
class QDockWidget;
class QLabel;
class QMenu;

namespace Viewer {

class CCameraSelectorPanel;
class CLanguageSelector;
class CDeviceSelectorService;
class CMenuService;
class CMessageLogService;
class CProblemAssistantPanel;
class CProblemAssistantService;

// The viewer's window: menus as the menu service's containers, and the
// camera selector, message log and problem assistant as docks.
class CMainWindow : public QMainWindow
{
    Q_OBJECT
public:
    CMainWindow(CMenuService* menus, CMessageLogService* log, CDeviceSelectorService* selector,
                CProblemAssistantService* assistant, QWidget* parent = nullptr);

    CCameraSelectorPanel* cameraSelector() const { return m_cameraSelector; }
    CProblemAssistantPanel* problemAssistant() const { return m_problemAssistant; }
    // The camera pool connects its rescan here.
    QAction* refreshCamerasAction() const { return m_refreshCameras; }
    // A menu of the languages that switches the selector's.
    void addLanguageMenu(CLanguageSelector* languages);

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private slots:
    void onSelectionChanged();
    void onAbout();

private:
    void restoreWindowLayout();
    void retranslateUi();

    CDeviceSelectorService* m_selector;
    CCameraSelectorPanel* m_cameraSelector = nullptr;
    CProblemAssistantPanel* m_problemAssistant = nullptr;
    QAction* m_refreshCameras = nullptr;
    QMenu* m_fileMenu = nullptr;
    QMenu* m_viewMenu = nullptr;
    QMenu* m_toolsMenu = nullptr;
    QMenu* m_helpMenu = nullptr;
    QMenu* m_languageMenu = nullptr;
    QAction* m_quit = nullptr;
    QAction* m_about = nullptr;
    std::array<QDockWidget*, 3> m_docks{};
    // The central widget, or a page of it once a live view joins.
    QLabel* m_selectionLabel = nullptr;
};

} // namespace Viewer
