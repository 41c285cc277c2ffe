#pragma once

#include <host/fakes/CFakeCameraControlService.h>
#include <host/fakes/CFakeCameraEnumerationService.h>
#include <host/fakes/CFakeCameraInfo.h>
#include <host/fakes/CFakeCameraStatusService.h>
#include <host/fakes/CFakeParameterService.h>
#include <parameters/fakes/CScriptedParameterCollection.h>

#include <Core/Logging/Logging.h>
#include <Core/Plugin/CPluginManager.h>

// The viewer's camera services as fakes in a plug-in manager; log lines stay off stderr.
struct SFakeCameraHost
{
    SFakeCameraHost()
    {
        Core::Logging::setStderrEnabled(false);
        for (const Core::Service::ServicePtr& service : {Core::Service::ServicePtr(enumeration), Core::Service::ServicePtr(status),
                                                         Core::Service::ServicePtr(control), Core::Service::ServicePtr(parameters)})
            manager->addService(service);
    }
    ~SFakeCameraHost() { Core::Logging::setStderrEnabled(true); }
    SFakeCameraHost(const SFakeCameraHost&) = delete;
    SFakeCameraHost& operator=(const SFakeCameraHost&) = delete;

    Core::Plugin::PluginManagerPtr manager = Core::Plugin::PluginManagerPtr::create();
    QSharedPointer<HostFakes::CFakeCameraEnumerationService> enumeration =
        QSharedPointer<HostFakes::CFakeCameraEnumerationService>::create();
    QSharedPointer<HostFakes::CFakeCameraStatusService> status = QSharedPointer<HostFakes::CFakeCameraStatusService>::create();
    QSharedPointer<HostFakes::CFakeCameraControlService> control = QSharedPointer<HostFakes::CFakeCameraControlService>::create();
    QSharedPointer<HostFakes::CFakeParameterService> parameters = QSharedPointer<HostFakes::CFakeParameterService>::create();
};
