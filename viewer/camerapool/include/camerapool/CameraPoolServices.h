#pragma once

#include <camerapool/CCameraControlService.h>
#include <camerapool/CCameraEnumerationService.h>
#include <camerapool/CCameraStatusService.h>
#include <camerapool/CCameraStreamControlService.h>
#include <camerapool/CParameterService.h>

#include <Core/Plugin/CPluginManager.h>

namespace CameraPool {

struct SCameraPoolOptions
{
    // Aravis' in-process fake cameras as the interface "CamEmu".
    bool enableEmulation = false;
    int rescanIntervalMs = 5000;

    // ZENTA_ENABLE_CAMEMU=1 turns emulation on; ZENTA_RESCAN_MS sets the interval.
    static SCameraPoolOptions fromEnvironment();
};

struct SCameraPoolServices
{
    QSharedPointer<CCameraEnumerationService> enumeration;
    CameraRegistryPtr registry;
    QSharedPointer<CCameraStatusService> status;
    QSharedPointer<CCameraControlService> control;
    QSharedPointer<CCameraStreamControlService> streamControl;
    QSharedPointer<CParameterService> parameters;
};

SCameraPoolServices createCameraPoolServices(const SCameraPoolOptions& options);

// Creates the camera services and adds them to the manager. When parent is
// destroyed, grabbing stops and every camera closes.
void registerCameraPoolServices(const QSharedPointer<Core::Plugin::CPluginManager>& manager, QObject* parent);
void registerCameraPoolServices(const QSharedPointer<Core::Plugin::CPluginManager>& manager, QObject* parent,
                                const SCameraPoolOptions& options);

} // namespace CameraPool
