#include <camerapool/CameraPoolServices.h>

namespace CameraPool {

SCameraPoolOptions SCameraPoolOptions::fromEnvironment()
{
    SCameraPoolOptions options;
    options.enableEmulation = qEnvironmentVariableIntValue("ZENTA_ENABLE_CAMEMU") == 1;
    bool ok = false;
    const int interval = qEnvironmentVariableIntValue("ZENTA_RESCAN_MS", &ok);
    if (ok && interval >= 0)
        options.rescanIntervalMs = interval;
    return options;
}

SCameraPoolServices createCameraPoolServices(const SCameraPoolOptions& options)
{
    SCameraPoolServices services;
    services.enumeration = QSharedPointer<CCameraEnumerationService>::create(options.enableEmulation,
                                                                               options.rescanIntervalMs);
    services.registry = CameraRegistryPtr::create(services.enumeration);
    services.status = QSharedPointer<CCameraStatusService>::create(services.registry);
    services.control = QSharedPointer<CCameraControlService>::create(services.registry);
    services.streamControl = QSharedPointer<CCameraStreamControlService>::create(services.registry);
    services.parameters = QSharedPointer<CParameterService>::create(services.registry);
    return services;
}

void registerCameraPoolServices(const QSharedPointer<Core::Plugin::CPluginManager>& manager, QObject* parent)
{
    registerCameraPoolServices(manager, parent, SCameraPoolOptions::fromEnvironment());
}

void registerCameraPoolServices(const QSharedPointer<Core::Plugin::CPluginManager>& manager, QObject* parent,
                                const SCameraPoolOptions& options)
{
    if (!manager)
        return;
    const SCameraPoolServices services = createCameraPoolServices(options);
    manager->addService(services.enumeration);
    manager->addService(services.status);
    manager->addService(services.control);
    manager->addService(services.streamControl);
    manager->addService(services.parameters);
    if (parent) {
        const QWeakPointer<CCameraStreamControlService> streamControl = services.streamControl;
        const QWeakPointer<CCameraRegistry> registry = services.registry;
        QObject::connect(parent, &QObject::destroyed, [streamControl, registry] {
            if (const auto strong = streamControl.toStrongRef())
                strong->stopAllGrabs();
            if (const auto strong = registry.toStrongRef())
                strong->closeAll();
        });
    }
}

} // namespace CameraPool
