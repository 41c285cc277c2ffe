#pragma once

// The viewer's menus, groups and commands.
namespace Viewer::Ids {

constexpr const char* GlobalContext = "AppCore.Global.Context";

constexpr const char* FileMenu = "ZentaViewer.Menu.File";
constexpr const char* ViewMenu = "ZentaViewer.Menu.View";
constexpr const char* ToolsMenu = "ZentaViewer.Menu.Tools";
constexpr const char* HelpMenu = "ZentaViewer.Menu.Help";
constexpr const char* CameraSelectorContextMenu = "ZentaViewer.CameraSelectorContextMenu";

constexpr const char* FileGroup = "ZentaViewer.Group.File.Misc";
constexpr const char* ViewCamerasGroup = "ZentaViewer.Group.View.Cameras";
constexpr const char* ViewPanelsGroup = "ZentaViewer.Group.View.Panels";
constexpr const char* ToolsGroup = "ZentaViewer.Group.Tools.Tools";
constexpr const char* HelpGroup = "ZentaViewer.Group.Help.Misc";
constexpr const char* CameraSelectorCameraGroup = "ZentaViewer.Group.CameraSelectorContextMenu.Camera";
constexpr const char* CameraSelectorMiscGroup = "ZentaViewer.Group.CameraSelectorContextMenu.Misc";

constexpr const char* QuitCommand = "ZentaViewer.Quit";
constexpr const char* RefreshCamerasCommand = "ZentaViewer.RefreshCameras";
constexpr const char* OpenCameraCommand = "ZentaViewer.OpenCamera";
constexpr const char* StartGrabCommand = "ZentaViewer.StartGrab";
constexpr const char* StopGrabCommand = "ZentaViewer.StopGrab";
constexpr const char* CloseCameraCommand = "ZentaViewer.CloseCamera";
constexpr const char* AboutCommand = "ZentaViewer.About";
constexpr const char* BandwidthManagerCommand = "BandwidthManager.Start";

} // namespace Viewer::Ids
