#pragma once

#include <Core/Plugin/CPluginManager.h>

namespace Viewer {

class CDeviceSelectorService;
class CLiveCameraController;
class CMainWindow;
class CMenuService;
class CMessageLogService;

// Joins the camera pool's services to the window: View > Refresh cameras
// rescans, the selector's device is the pool's current one, the selector's
// context menu and double click open, grab, stop and close, and the central
// widget shows the grabbing camera live with its frame rate in the status bar.
// Null without camera services.
CLiveCameraController* connectCameraPool(CMainWindow* window, CMenuService* menus, CDeviceSelectorService* selector,
                                         CMessageLogService* log, const Core::Plugin::PluginManagerPtr& manager);

} // namespace Viewer
