#include "CCameraSelectorPanel.h"
#include "CDeviceSelectorService.h"

#include <host/fakes/CFakeCameraEnumerationService.h>
#include <host/fakes/CFakeCameraInfo.h>

#include <gtest/gtest.h>

#include <QMenu>
#include <QSignalSpy>
#include <QTreeView>

using namespace Viewer;
using Core::CameraPoolComponents::DeviceBaseInfoPtr;
using Core::CameraPoolComponents::ICameraInfo;

namespace {

DeviceBaseInfoPtr emitted(const QSignalSpy& spy, int index)
{
    return spy.at(index).at(0).value<DeviceBaseInfoPtr>();
}

} // namespace

TEST(CameraSelector, selectionChangedFollowsTheCurrentRow)
{
    auto enumeration = QSharedPointer<HostFakes::CFakeCameraEnumerationService>::create();
    const auto gige = HostFakes::CFakeCameraInfo::create("Left", "GEV/left", "GEV");
    const auto emulated = HostFakes::CFakeCameraInfo::create("Emu", "CamEmu/1", "CamEmu");
    auto gigeLayer = enumeration->addTransportLayer("DorvikGigE", {gige});
    enumeration->addTransportLayer("CamEmu", {emulated});

    CDeviceSelectorService selector;
    QMenu context;
    CCameraSelectorPanel panel(&selector, &context);
    panel.setEnumerationService(enumeration);
    QSignalSpy spy(&selector, &CDeviceSelectorService::selectionChanged);
    ASSERT_EQ(panel.model()->rowCount(), 2);

    const QModelIndex gigeLayerRow = panel.model()->index(0, 0);
    const QModelIndex gigeRow = panel.model()->index(0, 0, gigeLayerRow);
    const QModelIndex emulatedRow = panel.model()->index(0, 0, panel.model()->index(1, 0));

    panel.view()->setCurrentIndex(gigeRow);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(emitted(spy, 0), gige);

    panel.view()->setCurrentIndex(emulatedRow);
    ASSERT_EQ(spy.count(), 2);
    EXPECT_EQ(emitted(spy, 1).dynamicCast<ICameraInfo>()->deviceClass(), QStringLiteral("CamEmu"));

    panel.view()->setCurrentIndex(gigeLayerRow);
    ASSERT_EQ(spy.count(), 3);
    ASSERT_TRUE(emitted(spy, 2));
    EXPECT_FALSE(emitted(spy, 2).dynamicCast<ICameraInfo>()) << "an interface is no camera";

    // A rescan that keeps the selected device selects it again, quietly.
    emit enumeration->enumerationChanged();
    EXPECT_EQ(spy.count(), 3);
    EXPECT_EQ(selector.selection()->key(), QStringLiteral("TransportLayer/DorvikGigE"));

    panel.view()->setCurrentIndex(panel.model()->index(0, 0, panel.model()->index(0, 0)));
    ASSERT_EQ(spy.count(), 4);
    gigeLayer->setCameras({});
    emit enumeration->enumerationChanged();
    ASSERT_EQ(spy.count(), 5) << "the selected camera went away";
    EXPECT_FALSE(emitted(spy, 4));
    EXPECT_EQ(panel.model()->rowCount(panel.model()->index(0, 0)), 0);
}

TEST(CameraSelector, withoutCameraServicesTheListSaysSo)
{
    CDeviceSelectorService selector;
    CCameraSelectorPanel panel(&selector, nullptr);
    ASSERT_EQ(panel.model()->rowCount(), 1);
    EXPECT_FALSE(panel.model()->item(0)->isEnabled());
}
