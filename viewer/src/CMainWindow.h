#pragma once

#include <QMainWindow>

class QAction;
class QMenu;

namespace Viewer {

class CCameraSelectorPanel;
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

protected:
    void closeEvent(QCloseEvent* event) override;

private slots:
    void onSelectionChanged();
    void onAbout();

private:
    void restoreWindowLayout();

    CDeviceSelectorService* m_selector;
    CCameraSelectorPanel* m_cameraSelector = nullptr;
    CProblemAssistantPanel* m_problemAssistant = nullptr;
    QAction* m_refreshCameras = nullptr;
};

} // namespace Viewer
