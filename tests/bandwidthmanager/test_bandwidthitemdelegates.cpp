#include "bandwidthcameraconfigitemdelegate.h"
#include "bandwidthitemdelegate.h"
#include "bandwidthlimiterinterpacketdelay.h"
#include "bandwidthmeasuringcamera.h"
#include "cameraconfigurationeditor.h"
#include "devicelinkthroughputlimiteditor.h"
#include "flattreeitem.h"

#include <host/fakes/CFakeCameraInfo.h>
#include <parameters/fakes/CScriptedParameterCollection.h>

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QSlider>
#include <QStandardItemModel>
#include <QStyleOptionViewItem>

#include <memory>

using namespace ParameterFakes;
using Plugin::BandwidthManager::CBandwidthMeasuringCamera;

namespace {

const QString kLimit = QStringLiteral("DeviceLinkThroughputLimit");
const QString kDelay = QStringLiteral("GevSCPD");

// One tree row whose cells carry the address of its FlatTreeItem, as the tree sets them.
class DelegateRow : public ::testing::Test
{
protected:
    void SetUp() override
    {
        model.setItem(0, 1, new QStandardItem);
        model.setData(cell(), QVariant::fromValue(static_cast<void*>(&item)), Qt::UserRole + 1);
        option.rect = QRect(0, 0, 180, 24);
    }

    void measure()
    {
        measuring = std::make_unique<CBandwidthMeasuringCamera>(parameters, info, nullptr, nullptr);
        item.measuringCamera = measuring.get();
        item.isCamera = true;
    }

    QModelIndex cell() const { return model.index(0, 1); }

    QSharedPointer<CScriptedParameterCollection> parameters = QSharedPointer<CScriptedParameterCollection>::create();
    Core::CameraPoolComponents::CameraInfoPtr info = HostFakes::CFakeCameraInfo::create("Cam 1", "GEV:Cam 1", "GEV");
    std::unique_ptr<CBandwidthMeasuringCamera> measuring;
    FlatTreeItem item;
    QStandardItemModel model;
    QStyleOptionViewItem option;
    QWidget parent;
};

struct SEditorCase { const char* scenario; bool camera; QString limitAccess; /* empty: no node */ QString delayAccess;
    const char* expectedClass; };

class LimitEditorChoice : public DelegateRow, public ::testing::WithParamInterface<SEditorCase> {};

TEST_P(LimitEditorChoice, picksTheEditorAndStoresItInTheRow)
{
    const SEditorCase& c = GetParam();
    if (!c.limitAccess.isEmpty())
        parameters->addInteger(kLimit, 50000000, 1000000, 400000000, 1, c.limitAccess);
    if (!c.delayAccess.isEmpty())
        parameters->addInteger(kDelay, 1000, 0, 100000, 1, c.delayAccess);
    if (c.camera)
        measure();
    BandwidthItemDelegate delegate;

    QWidget* editor = delegate.createEditor(&parent, option, cell());

    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(editor->inherits(c.expectedClass)) << editor->metaObject()->className();
    EXPECT_EQ(item.editor, editor);
}

INSTANTIATE_TEST_SUITE_P(Rows, LimitEditorChoice, ::testing::Values(
        SEditorCase{"camera_offering_both_gets_the_device_link_editor", true, "RW", "RW", "DeviceLinkThroughputLimitEditor"},
        SEditorCase{"GigE_camera_without_the_limit_gets_the_delay_limiter", true, "", "RW", "BandwidthLimiterInterPacketDelay"},
        SEditorCase{"read_only_limit_falls_to_the_delay_limiter", true, "RO", "RW", "BandwidthLimiterInterPacketDelay"},
        SEditorCase{"camera_with_neither_gets_the_base_editor", true, "", "RO", "QLineEdit"},
        SEditorCase{"row_without_a_camera_gets_the_base_editor", false, "RW", "RW", "QLineEdit"}),
    [](const ::testing::TestParamInfo<SEditorCase>& info) { return std::string(info.param.scenario); });

TEST_F(DelegateRow, closingDeviceLinkEditorWritesNothingMore)
{
    parameters->addInteger(kLimit, 50000000, 1000000, 400000000);
    measure();
    BandwidthItemDelegate delegate;
    auto* editor = qobject_cast<DeviceLinkThroughputLimitEditor*>(delegate.createEditor(&parent, option, cell()));
    ASSERT_NE(editor, nullptr);
    editor->slider()->setValue(60);
    ASSERT_EQ(parameters->writeCount(kLimit), 1);

    emit delegate.closeEditor(editor);
    editor->slider()->setValue(70);

    EXPECT_EQ(parameters->writeCount(kLimit), 1);
    delegate.setModelData(editor, &model, cell());
    EXPECT_EQ(cell().data(Qt::DisplayRole).toString(), QStringLiteral("70"));
}

TEST_F(DelegateRow, configureColumnGetsTheButtonOnlyForACamera)
{
    BandwidthCameraConfigItemDelegate delegate;
    std::unique_ptr<QWidget> plain(delegate.createEditor(&parent, option, cell()));
    EXPECT_EQ(qobject_cast<CameraConfigurationEditor*>(plain.get()), nullptr);

    measure();
    QWidget* editor = delegate.createEditor(&parent, option, cell());
    auto* button = qobject_cast<CameraConfigurationEditor*>(editor);
    ASSERT_NE(button, nullptr);

    QSignalSpy commits(&delegate, SIGNAL(commitData(QWidget*)));
    emit button->configureDialogClosed();
    QMetaObject::invokeMethod(&delegate, "onConfigureDialogClosed"); // no sender of that type
    ASSERT_EQ(commits.count(), 2);
    EXPECT_EQ(commits.at(0).at(0).value<QWidget*>(), button);
    EXPECT_EQ(commits.at(1).at(0).value<QWidget*>(), nullptr);
}

} // namespace
