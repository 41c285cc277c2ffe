#include "CameraPoolWiring.h"

#include "CCameraSelectorPanel.h"
#include "CDeviceSelectorService.h"
#include "CLiveCameraController.h"
#include "CMainWindow.h"
#include "CMessageLogService.h"
#include "ViewerIds.h"

#include <Core/Plugin/ServiceLookup.h>

#if __has_include(<camerapool/CameraPoolServices.h>)
#include <camerapool/CLiveImageView.h>
#include <camerapool/CameraPoolServices.h>
#define ZENTA_HAS_CAMERA_POOL 1
#endif

#include <QAction>
#include <QLabel>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTreeView>

namespace Viewer {

#ifdef ZENTA_HAS_CAMERA_POOL

CLiveCameraController* connectCameraPool(CMainWindow* window, CMenuService* menus, CDeviceSelectorService* selector,
                                         CMessageLogService* log, const Core::Plugin::PluginManagerPtr& manager)
{
    const auto enumeration = Core::Plugin::getService<CameraPool::CCameraEnumerationService>(manager);
    const auto status = Core::Plugin::getService<CameraPool::CCameraStatusService>(manager);
    const auto control = Core::Plugin::getService<CameraPool::CCameraControlService>(manager);
    const auto streams = Core::Plugin::getService<CameraPool::CCameraStreamControlService>(manager);
    if (!enumeration || !status || !control || !streams)
        return nullptr;

    QObject::connect(window->refreshCamerasAction(), &QAction::triggered, enumeration.data(),
                     &CameraPool::CCameraEnumerationService::onRefresh);
    QObject::connect(selector, &CDeviceSelectorService::selectionChanged, status.data(),
                     &CameraPool::CCameraStatusService::setCurrentDevice);
    status->setCurrentDevice(selector->selection());

    auto* controller = new CLiveCameraController(selector, window);
    const QWeakPointer<CameraPool::CCameraControlService> weakControl = control;
    controller->setServices({enumeration, status, control, streams, [weakControl] {
                                 const auto strong = weakControl.toStrongRef();
                                 return strong ? strong->lastError() : QString();
                             }});
    controller->addToMenu(menus, Ids::CameraSelectorContextMenu, Ids::CameraSelectorCameraGroup);
    QObject::connect(window->cameraSelector()->view(), &QTreeView::doubleClicked, controller,
                     [controller, selector] { controller->onActivated(selector->selection()); });

    // The selection's description stays as the page shown while nothing grabs.
    auto* pages = new QStackedWidget;
    QWidget* description = window->takeCentralWidget();
    pages->addWidget(description);
    auto* view = new CameraPool::CLiveImageView(pages);
    view->setObjectName(QStringLiteral("LiveImageView"));
    pages->addWidget(view);
    window->setCentralWidget(pages);

    auto* frameRate = new QLabel(window);
    frameRate->setObjectName(QStringLiteral("FrameRateLabel"));
    window->statusBar()->addPermanentWidget(frameRate);
    QObject::connect(controller, &CLiveCameraController::liveCameraChanged, window,
                     [pages, description, view, frameRate](const Plugin::CameraPool::ICameraPtr& camera) {
                         view->setCamera(camera);
                         pages->setCurrentWidget(camera ? static_cast<QWidget*>(view) : description);
                         frameRate->clear();
                     });
    QObject::connect(view, &CameraPool::CLiveImageView::frameRateChanged, frameRate,
                     [view, frameRate](double, const QString& text) {
                         const auto camera = view->camera();
                         if (camera && camera->cameraInfo())
                             frameRate->setText(camera->cameraInfo()->displayName() + QStringLiteral(": ") + text);
                     });
    QObject::connect(controller, &CLiveCameraController::failed, window, [window, log](const QString& message) {
        window->statusBar()->showMessage(message, 10000);
        log->addMessage(CMessageLogService::SeverityError, QStringLiteral("Viewer"), message, {});
    });
    return controller;
}

#else

CLiveCameraController* connectCameraPool(CMainWindow*, CMenuService*, CDeviceSelectorService*, CMessageLogService*,
                                         const Core::Plugin::PluginManagerPtr&)
{
    return nullptr;
}

#endif

} // namespace Viewer
