#include "CDeviceStateService.h"

#include <Core/Plugin/CPluginManager.h>

#include <host/fakes/CFakeCameraEnumerationService.h>
#include <host/fakes/CFakeCameraInfo.h>
#include <host/fakes/CFakeCameraStatusService.h>
#include <host/fakes/CFakeCameraStreamControlService.h>

#include <gtest/gtest.h>

using namespace Viewer;

TEST(DeviceStateService, restoresTheCamerasThatGrabbedWhenSaved)
{
    auto manager = Core::Plugin::PluginManagerPtr::create();
    auto enumeration = QSharedPointer<HostFakes::CFakeCameraEnumerationService>::create();
    auto status = QSharedPointer<HostFakes::CFakeCameraStatusService>::create();
    auto streams = QSharedPointer<HostFakes::CFakeCameraStreamControlService>::create();
    enumeration->addTransportLayer("DorvikGigE", {HostFakes::CFakeCameraInfo::create("A", "GEV/a", "GEV"),
                                                  HostFakes::CFakeCameraInfo::create("B", "GEV/b", "GEV")});
    enumeration->addTransportLayer("DorvikUsb", {HostFakes::CFakeCameraInfo::create("C", "U3V/c", "U3V")});
    manager->addService(enumeration);
    manager->addService(status);
    manager->addService(streams);
    CDeviceStateService service(manager);

    status->setGrabbing("GEV/a", true);
    status->setGrabbing("U3V/c", true);
    const quint64 handle = service.saveDeviceState();
    EXPECT_NE(handle, 0u);
    EXPECT_EQ(service.savedCameras(handle), QStringList({"GEV/a", "U3V/c"}));

    // Everything stopped for a while; one camera was started again by someone else.
    status->setGrabbing("GEV/a", false);
    status->setGrabbing("U3V/c", true);
    service.restoreDeviceState(handle);
    EXPECT_EQ(streams->calls(), QStringList({"startGrab:GEV/a"}));

    service.restoreDeviceState(handle);
    EXPECT_EQ(streams->calls().size(), 1) << "a handle is used once";
    service.restoreDeviceState(0);
    EXPECT_EQ(streams->calls().size(), 1);

    CDeviceStateService withoutServices({});
    EXPECT_TRUE(withoutServices.savedCameras(withoutServices.saveDeviceState()).isEmpty());
}
