#include "CDeviceSelectorService.h"
#include "CDeviceStateService.h"
#include "CLiveCameraController.h"
#include "CMenuService.h"
#include "ViewerIds.h"

#include <Core/Plugin/CPluginManager.h>

#include <host/fakes/CFakeCameraControlService.h>
#include <host/fakes/CFakeCameraEnumerationService.h>
#include <host/fakes/CFakeCameraInfo.h>
#include <host/fakes/CFakeCameraStatusService.h>
#include <host/fakes/CFakeCameraStreamControlService.h>
#include <host/fakes/CFakeDeviceInfo.h>

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QSignalSpy>

using namespace Viewer;
using Core::CameraPoolComponents::CameraInfoPtr;
using Plugin::CameraPool::ICameraPtr;

namespace {

// Grabs as the host's stream service does: the status follows, the camera is
// open for others to acquire, and every start and stop is announced.
class CAnnouncingStreams : public HostFakes::CFakeCameraStreamControlService
{
    Q_OBJECT
public:
    CAnnouncingStreams(HostFakes::CFakeCameraStatusService* status, HostFakes::CFakeCameraControlService* control)
        : m_status(status), m_control(control)
    {
    }

    bool startGrab(const CameraInfoPtr& camera) override
    {
        cursorsDuringStart.append(QApplication::overrideCursor() ? QApplication::overrideCursor()->shape()
                                                                 : Qt::ArrowCursor);
        if (!CFakeCameraStreamControlService::startGrab(camera))
            return false;
        m_status->setGrabbing(camera->key(), true);
        m_control->setAlreadyOpen(camera->key());
        emit grabStarted(camera);
        return true;
    }
    void stopGrab(const CameraInfoPtr& camera) override
    {
        liveReleasedBeforeStop.append(m_control->calls().contains("release:" + camera->key()));
        CFakeCameraStreamControlService::stopGrab(camera);
        m_status->setGrabbing(camera->key(), false);
        emit grabStopped(camera);
    }
    void stopAllGrabs() override
    {
        CFakeCameraStreamControlService::stopAllGrabs();
        for (const CameraInfoPtr& camera : grabbing) {
            m_status->setGrabbing(camera->key(), false);
            emit grabStopped(camera);
        }
    }

    QList<CameraInfoPtr> grabbing;
    QList<Qt::CursorShape> cursorsDuringStart;
    QList<bool> liveReleasedBeforeStop;

signals:
    void grabStarted(Core::CameraPoolComponents::CameraInfoPtr camera);
    void grabStopped(Core::CameraPoolComponents::CameraInfoPtr camera);

private:
    HostFakes::CFakeCameraStatusService* m_status;
    HostFakes::CFakeCameraControlService* m_control;
};

void runDeferred()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

class LiveCameraController : public ::testing::Test
{
protected:
    void SetUp() override
    {
        enumeration->addTransportLayer("DorvikGigE", {left, right});
        manager->addService(enumeration);
        manager->addService(status);
        manager->addService(control);
        manager->addService(streams);
        controller.setServices({enumeration, status, control, streams, [this] { return lastError; }});
    }

    ICameraPtr fakeCamera(const QString& key) const { return control->camera(key); }
    ICameraPtr live() const { return controller.liveCamera(); }

    const CameraInfoPtr left = HostFakes::CFakeCameraInfo::create("Left (EMU0001)", "GEV/left-EMU0001", "GEV");
    const CameraInfoPtr right = HostFakes::CFakeCameraInfo::create("Right (EMU0002)", "GEV/right-EMU0002", "GEV");
    Core::Plugin::PluginManagerPtr manager = Core::Plugin::PluginManagerPtr::create();
    QSharedPointer<HostFakes::CFakeCameraEnumerationService> enumeration =
        QSharedPointer<HostFakes::CFakeCameraEnumerationService>::create();
    QSharedPointer<HostFakes::CFakeCameraStatusService> status =
        QSharedPointer<HostFakes::CFakeCameraStatusService>::create();
    QSharedPointer<HostFakes::CFakeCameraControlService> control =
        QSharedPointer<HostFakes::CFakeCameraControlService>::create();
    QSharedPointer<CAnnouncingStreams> streams = QSharedPointer<CAnnouncingStreams>::create(status.data(), control.data());
    QString lastError;
    CDeviceSelectorService selector;
    CLiveCameraController controller{&selector};
};

} // namespace

TEST_F(LiveCameraController, menuGrabsTheSelectedCameraLiveAndStoppingGivesItBack)
{
    CMenuService menus;
    QMenu menu;
    menus.createContainer(Ids::CameraSelectorContextMenu, &menu)->appendGroup(Ids::CameraSelectorCameraGroup);
    controller.addToMenu(&menus, Ids::CameraSelectorContextMenu, Ids::CameraSelectorCameraGroup);
    ASSERT_EQ(menu.actions().size(), 4);
    for (QAction* action : menu.actions())
        EXPECT_FALSE(action->isEnabled()) << qPrintable(action->text()) << " without a selected camera";

    QSignalSpy liveChanges(&controller, &CLiveCameraController::liveCameraChanged);
    selector.setSelection(left);
    EXPECT_TRUE(controller.openAction()->isEnabled());
    EXPECT_TRUE(controller.startAction()->isEnabled());
    EXPECT_FALSE(controller.stopAction()->isEnabled());
    EXPECT_FALSE(controller.closeAction()->isEnabled());

    controller.startAction()->trigger();
    EXPECT_TRUE(streams->calls().isEmpty()) << "the grab waits until the menu has gone";
    EXPECT_FALSE(controller.stopAction()->isEnabled()) << "no second command while one runs";
    runDeferred();
    EXPECT_EQ(streams->calls(), QStringList({"startGrab:GEV/left-EMU0001"}));
    EXPECT_EQ(streams->cursorsDuringStart, QList<Qt::CursorShape>({Qt::WaitCursor}));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    ASSERT_EQ(liveChanges.count(), 1);
    EXPECT_EQ(liveChanges.at(0).at(0).value<ICameraPtr>(), fakeCamera("GEV/left-EMU0001"));
    EXPECT_FALSE(controller.startAction()->isEnabled());
    EXPECT_TRUE(controller.stopAction()->isEnabled());
    EXPECT_TRUE(controller.closeAction()->isEnabled());

    controller.stopAction()->trigger();
    runDeferred();
    EXPECT_EQ(streams->calls().last(), QStringLiteral("stopGrab:GEV/left-EMU0001"));
    EXPECT_EQ(streams->liveReleasedBeforeStop, QList<bool>({true})) << "else the camera would stay open";
    ASSERT_EQ(liveChanges.count(), 2);
    EXPECT_FALSE(live());
    EXPECT_TRUE(controller.startAction()->isEnabled());
}

TEST_F(LiveCameraController, liveViewFollowsTheGrabbingCamerasWhoeverStartsThem)
{
    controller.startGrab(left);
    controller.startGrab(right);
    EXPECT_EQ(live(), fakeCamera("GEV/right-EMU0002")) << "the last grab started";

    selector.setSelection(left);
    EXPECT_EQ(live(), fakeCamera("GEV/left-EMU0001")) << "a selected camera that grabs";

    controller.stopGrab(left);
    EXPECT_EQ(live(), fakeCamera("GEV/right-EMU0002")) << "the other one still grabs";

    // A plug-in saves the state, stops everything and restores it: the
    // restored grab comes back live.
    CDeviceStateService deviceState(manager);
    streams->grabbing = {right};
    const quint64 handle = deviceState.saveDeviceState();
    streams->stopAllGrabs();
    EXPECT_FALSE(live());
    deviceState.restoreDeviceState(handle);
    EXPECT_EQ(streams->calls().last(), QStringLiteral("startGrab:GEV/right-EMU0002"));
    EXPECT_EQ(live(), fakeCamera("GEV/right-EMU0002"));

    // A lost camera stops, lets go and says so.
    QSignalSpy failures(&controller, &CLiveCameraController::failed);
    emit status->cameraConnectionLost(right);
    EXPECT_FALSE(live());
    EXPECT_EQ(streams->calls().last(), QStringLiteral("stopGrab:GEV/right-EMU0002"));
    ASSERT_EQ(failures.count(), 1);
    EXPECT_TRUE(failures.at(0).at(0).toString().contains("Right (EMU0002)"));
}

TEST_F(LiveCameraController, openAndCloseHoldTheCameraAndFailuresGiveTheReason)
{
    QSignalSpy failures(&controller, &CLiveCameraController::failed);
    selector.setSelection(left);
    control->setOpenFails("GEV/left-EMU0001");
    lastError = QStringLiteral("controlled by another application");
    EXPECT_FALSE(controller.openCamera(left));
    ASSERT_EQ(failures.count(), 1);
    EXPECT_TRUE(failures.at(0).at(0).toString().contains("controlled by another application"));
    EXPECT_TRUE(controller.openAction()->isEnabled());

    EXPECT_TRUE(controller.openCamera(right));
    selector.setSelection(right);
    EXPECT_FALSE(controller.openAction()->isEnabled());
    EXPECT_TRUE(controller.closeAction()->isEnabled());
    controller.startGrab(right);
    controller.closeCamera(right);
    EXPECT_EQ(streams->calls().last(), QStringLiteral("stopGrab:GEV/right-EMU0002")) << "closing stops the grab";
    EXPECT_TRUE(control->calls().contains("close:GEV/right-EMU0002"));
    EXPECT_FALSE(controller.closeAction()->isEnabled());
    EXPECT_FALSE(live());

    streams->setStartGrabFails(true);
    EXPECT_FALSE(controller.startGrab(left));
    ASSERT_EQ(failures.count(), 2);
    EXPECT_FALSE(failures.at(1).at(0).toString().contains("controlled by")) << "the earlier open's reason";
    EXPECT_FALSE(live());
}

TEST_F(LiveCameraController, doubleClickTogglesGrabbingOfCamerasOnly)
{
    controller.onActivated({});
    controller.onActivated(Core::CameraPoolComponents::DeviceBaseInfoPtr(new HostFakes::CFakeDeviceInfo("eth0", "eth0")));
    runDeferred();
    EXPECT_TRUE(streams->calls().isEmpty());
    controller.onActivated(HostFakes::CFakeCameraInfo::create("x", "x", "GEV"));
    runDeferred();
    EXPECT_EQ(streams->calls(), QStringList({"startGrab:x"}));
    status->setGrabbing("x", true);
    controller.onActivated(HostFakes::CFakeCameraInfo::create("x", "x", "GEV"));
    runDeferred();
    EXPECT_EQ(streams->calls().last(), QStringLiteral("stopGrab:x"));
}

TEST_F(LiveCameraController, grabOptionStartsTheFirstMatchOnceItIsListed)
{
    controller.grabWhenListed("emu0003");
    runDeferred();
    EXPECT_TRUE(streams->calls().isEmpty());

    const CameraInfoPtr third = HostFakes::CFakeCameraInfo::create("Third (EMU0003)", "GEV/third-EMU0003", "GEV");
    enumeration->addTransportLayer("DorvikUsb", {third});
    emit enumeration->enumerationChanged();
    emit enumeration->enumerationChanged();
    runDeferred();
    EXPECT_EQ(streams->calls(), QStringList({"startGrab:GEV/third-EMU0003"}));

    // A full key wins over a camera listed earlier whose key merely contains it.
    const CameraInfoPtr prefix = HostFakes::CFakeCameraInfo::create("P", "GEV/left", "GEV");
    enumeration->addTransportLayer("CamEmu", {prefix});
    controller.grabWhenListed("GEV/left");
    runDeferred();
    EXPECT_EQ(streams->calls().last(), QStringLiteral("startGrab:GEV/left"));
}

#include "LiveCameraControllerTest.moc"
