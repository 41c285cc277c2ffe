#include "SFakeCameraHost.h"
#include "analysissession.h"
#include "bandwidthhistoryplot.h"
#include "bandwidthtreewidget.h"
#include "flattree.h"

#include <usbtopology/fakes/CFakeTopologySource.h>

#include <Core/Exception/BaseException.h>

#include <gtest/gtest.h>

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <qwt_plot_curve.h>

using namespace HostFakes;
using Core::CameraPoolComponents::CameraInfoPtr;

namespace {

const CameraInfoPtr g1 = CFakeCameraInfo::create("G1", "gev-1", "GEV", {{"Interface", "192.0.2.7"}});
const CameraInfoPtr g2 = CFakeCameraInfo::create("G2", "gev-2", "GEV", {{"Interface", "192.0.2.7"}});

class TreeWidgetTest : public ::testing::Test, public SFakeCameraHost
{
public:
    void SetUp() override
    {
        collection->addInteger(QStringLiteral("@StreamGrabber0/MaxNumBuffer"), 16, 1, 256);
        collection->addFloat(QStringLiteral("ResultingFrameRate"), 25.0, 0.0, 1000.0, "RO");
        parameters->setDefaultCollection(collection);
        tree.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        tree.setColumnCount(8);
        tree.setCameraServices(manager.toWeakRef());
        tree.setDeviceClasses({"DorvikUsb", "DorvikGigE"});
        tree.model()->setTopologyFactory(
            [this](unsigned int* pStatus) { return usbtopology::fakes::MakeFakeTop(pStatus, script); });
        // As the dialog answers a tick.
        QObject::connect(&tree, &BandwidthTreeWidget::cameraChecked, &tree,
                         [this](size_t id, const CameraInfoPtr&, Qt::CheckState state) {
                             state == Qt::Checked ? tree.startCamera(id) : tree.stopCamera(id);
                         });
    }
    FlatTreeItem& item(const QString& key) { return tree.model()->item(tree.model()->findByKey(key)); }
    QTreeWidgetItem* row(const QString& key) { return item(key).row; }
    QPushButton* optimizeButton(const QString& adapterKey)
    {
        return qobject_cast<QPushButton*>(tree.itemWidget(row(adapterKey), 1));
    }

    QSharedPointer<ParameterFakes::CScriptedParameterCollection> collection =
        QSharedPointer<ParameterFakes::CScriptedParameterCollection>::create();
    std::shared_ptr<usbtopology::fakes::SFakeTopologyScript> script =
        std::make_shared<usbtopology::fakes::SFakeTopologyScript>();
    BandwidthTreeWidget tree;
};

TEST_F(TreeWidgetTest, refreshTreeKeepsEveryExceptionFromTheEventLoopAndAnEmptyPoolShowsNothing)
{
    for (const std::function<void()>& raise : std::vector<std::function<void()>>{
             [] { throw Core::Exception::BaseException(QStringLiteral("pool gone")); },
             [] { throw std::runtime_error("pool gone"); }, [] { throw 7; }, [] {}}) {
        enumeration->beforeListing = raise;
        EXPECT_NO_THROW(tree.refreshTree());
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(tree.topLevelItemCount(), 0);
    EXPECT_EQ(tree.model()->size(), 1u);
    EXPECT_EQ(tree.cameraRowCount(), 0u);
    EXPECT_TRUE(tree.findChildren<QPushButton*>().isEmpty());
}

TEST_F(TreeWidgetTest, rowsCarryTheirModelItemAndKind)
{
    enumeration->addTransportLayer("DorvikUsb", {CFakeCameraInfo::create("U", "U3V\\V\\M\\1", "U3V")});
    enumeration->addTransportLayer("DorvikGigE", {g1, g2});
    script->root->AddChild(topapi::NodeType_HostController, L"xHCI", L"usb2").SetDeviceCount(1).SetBandwidth(625000000)
        .AddChild(topapi::NodeType_U3vDevice, L"u", L"2-1").SetInstancePath(L"U3V\\V\\M\\1");
    tree.refreshTree();

    ASSERT_EQ(tree.topLevelItemCount(), 2);
    EXPECT_EQ(tree.topLevelItem(0)->text(0), QStringLiteral("DorvikGigE")) << "rows are sorted";
    EXPECT_EQ(tree.cameraRowCount(), 3u);
    EXPECT_EQ(tree.gigEAdapterCount(), 1u);
    EXPECT_EQ(row("usb2")->text(1), QStringLiteral("~625 "));
    for (const QString& key : {QStringLiteral("gev-1"), QStringLiteral("192.0.2.7")}) {
        const bool camera = key == QStringLiteral("gev-1");
        for (int column = 0; column <= 2; ++column) {
            EXPECT_EQ(row(key)->data(column, Qt::UserRole + 1).value<void*>(), &item(key));
            EXPECT_EQ(row(key)->data(column, Qt::UserRole + 2).isValid(), camera);
        }
        EXPECT_EQ(row(key)->data(0, Qt::CheckStateRole).isValid(), camera);
        EXPECT_EQ(bool(row(key)->flags() & Qt::ItemIsEditable), camera);
    }
    QPushButton* button = optimizeButton("192.0.2.7");
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(), QStringLiteral("Optimize"));
    EXPECT_FALSE(button->isEnabled());
}

TEST_F(TreeWidgetTest, tickingCamerasMeasuresThemAndEnablesTheirAdaptersButton)
{
    enumeration->addTransportLayer("DorvikGigE", {g1, g2});
    tree.refreshTree();
    QSignalSpy checked(&tree, &BandwidthTreeWidget::cameraChecked);

    row("gev-1")->setCheckState(0, Qt::Checked);
    row("gev-2")->setCheckState(0, Qt::Checked);
    QCoreApplication::processEvents();
    EXPECT_EQ(checked.count(), 2);
    EXPECT_EQ(tree.measuredCameraCount(), 2u);
    EXPECT_EQ(tree.gigECameraCount(), 2u);
    EXPECT_TRUE(row("gev-1")->font(0).bold());
    EXPECT_TRUE(optimizeButton("192.0.2.7")->isEnabled());

    row("gev-1")->setCheckState(0, Qt::Unchecked);
    QCoreApplication::processEvents();
    EXPECT_TRUE(optimizeButton("192.0.2.7")->isEnabled()) << "one camera is still checked";
    row("gev-2")->setCheckState(0, Qt::Unchecked);
    QCoreApplication::processEvents();
    EXPECT_FALSE(optimizeButton("192.0.2.7")->isEnabled());
    EXPECT_EQ(tree.measuredCameraCount(), 0u);
    EXPECT_EQ(checked.count(), 4);
    EXPECT_FALSE(row("gev-1")->font(0).bold());
}

struct SFigureCase { const char* scenario; quint64 payload; double fpsSent; double fpsReceived;
    qint64 ageMs; /* of the reset time; negative for none */ quint64 errors; QString payloadText; QString fpsText;
    bool stallWarning; bool errorIcon; };

class RowFigures : public TreeWidgetTest, public ::testing::WithParamInterface<SFigureCase> {};

TEST_P(RowFigures, showTheSampleOfAMeasuredCamera)
{
    const SFigureCase& c = GetParam();
    enumeration->addTransportLayer("DorvikGigE", {g1});
    tree.refreshTree();
    ASSERT_TRUE(tree.startCameraByKey("gev-1"));
    FlatTreeItem& camera = item("gev-1");
    camera.payloadReceived = c.payload;
    camera.fpsSent = c.fpsSent;
    camera.fpsReceived = c.fpsReceived;
    camera.timestamp = c.ageMs < 0 ? QDateTime() : QDateTime::currentDateTime().addMSecs(-c.ageMs);
    camera.errors = c.errors;
    camera.images = 12345;
    tree.refreshRow(tree.model()->findByKey("gev-1"));

    EXPECT_EQ(row("gev-1")->text(3), c.payloadText);
    EXPECT_EQ(row("gev-1")->text(5), c.fpsText);
    EXPECT_EQ(row("gev-1")->text(6), QStringLiteral("12,345"));
    EXPECT_EQ(!row("gev-1")->icon(5).isNull(), c.stallWarning);
    EXPECT_EQ(!row("gev-1")->icon(7).isNull(), c.errorIcon);
}

INSTANTIATE_TEST_SUITE_P(Refresh, RowFigures, ::testing::Values(
        SFigureCase{"payload_below_a_megabyte_has_two_decimals", 999999, 30, 29.5, -1, 0, "1.00", "29.50", false, false},
        SFigureCase{"payload_of_a_megabyte_has_none", 1000000, 30, 30, -1, 0, "1", "30.00", false, false},
        SFigureCase{"no_image_yet_shows_dashes_and_never_warns", 0, 0, -1.0, 10000, 0, "0.00", "-.--", false, false},
        SFigureCase{"stall_at_100_fps_waits_for_a_whole_second", 0, 100, 0.0, 500, 0, "0.00", "-.--", false, false},
        SFigureCase{"stall_at_100_fps_warns_after_one_second", 0, 100, 0.0, 1500, 0, "0.00", "-.--", true, false},
        SFigureCase{"stall_without_frame_rate_waits_past_two_seconds", 0, 0, 0.0, 2500, 0, "0.00", "-.--", false, false},
        SFigureCase{"stall_without_frame_rate_warns_at_three_seconds", 0, 0, 0.0, 3500, 0, "0.00", "-.--", true, false},
        SFigureCase{"an_error_shows_the_error_icon", 12345678, 30, 30, -1, 1, "12", "30.00", false, true}),
    [](const auto& info) { return std::string(info.param.scenario); });

struct SStartFailureCase { const char* scenario; std::function<void(TreeWidgetTest&)> script; int attempts;
    QString toolTip; };

class StartFailure : public TreeWidgetTest, public ::testing::WithParamInterface<SStartFailureCase> {};

TEST_P(StartFailure, marksTheRowAndReportsTheError)
{
    const SStartFailureCase& c = GetParam();
    enumeration->addTransportLayer("DorvikGigE", {g1});
    tree.refreshTree();
    c.script(*this);
    QSignalSpy errors(&tree, &BandwidthTreeWidget::errorOccurred);
    bool started = true;
    for (int attempt = 0; attempt < c.attempts; ++attempt)
        started = tree.startCameraByKey("gev-1");

    EXPECT_FALSE(started);
    EXPECT_EQ(row("gev-1")->checkState(0), Qt::Unchecked);
    EXPECT_EQ(row("gev-1")->toolTip(0), c.toolTip);
    EXPECT_FALSE(row("gev-1")->icon(0).isNull());
    ASSERT_EQ(errors.count(), 1);
    EXPECT_EQ(errors[0][0].toString(), QStringLiteral("gev-1"));
    EXPECT_EQ(errors[0][1].toString(), c.toolTip);
    EXPECT_TRUE(errors[0][2].toDateTime().isValid());
}

INSTANTIATE_TEST_SUITE_P(Start, StartFailure, ::testing::Values(
        SStartFailureCase{"camera_that_will_not_open", [](TreeWidgetTest& t) { t.control->setOpenFails("gev-1"); }, 1,
                          "Error accessing camera! (Could not create camera)"},
        SStartFailureCase{"second_start_of_a_camera_whose_sample_fails",
                          [](TreeWidgetTest& t) { t.collection->failNext("ResultingFrameRate", ParameterFakes::EScriptedAccess::Query, 100); },
                          2, "Error accessing camera! (Failed to get sample)"},
        SStartFailureCase{"grab_that_will_not_start_during_an_analysis",
                          [](TreeWidgetTest& t) { t.control->setGrabFails("gev-1"), t.tree.startAcquisition(); }, 1,
                          "Error accessing camera! (Could not start grab.)"}),
    [](const auto& info) { return std::string(info.param.scenario); });

class ConnectionLoss : public TreeWidgetTest, public ::testing::WithParamInterface<bool> {};

TEST_P(ConnectionLoss, refreshTreeEndsTheLostMeasurementOnly)
{
    const bool heldOpenByViewer = GetParam();
    enumeration->addTransportLayer("DorvikGigE", {g1, g2});
    tree.setOpenCameras(heldOpenByViewer ? QList<CameraInfoPtr>{g1} : QList<CameraInfoPtr>{});
    tree.refreshTree();
    ASSERT_TRUE(tree.startCameraByKey("gev-1"));
    ASSERT_TRUE(tree.startCameraByKey("gev-2"));
    tree.startAcquisition();

    control->camera("gev-1")->loseConnection();
    QSignalSpy errors(&tree, &BandwidthTreeWidget::errorOccurred);
    tree.refreshTree();
    // The row stays, marked, and the loss goes to the logs once.
    ASSERT_NE(row("gev-1"), nullptr);
    EXPECT_FALSE(row("gev-1")->icon(0).isNull());
    EXPECT_EQ(row("gev-1")->toolTip(0), QStringLiteral("Error accessing camera! (Connection lost)"));
    ASSERT_EQ(errors.count(), 1);
    EXPECT_EQ(errors[0][0].toString(), QStringLiteral("gev-1"));
    EXPECT_TRUE(row("gev-2")->icon(0).isNull());
    EXPECT_EQ(tree.measuredCameraCount(), 1u);
    EXPECT_EQ(item("gev-1").measuringCamera, nullptr);
    EXPECT_EQ(row("gev-1")->checkState(0), Qt::Unchecked);
    EXPECT_EQ(row("gev-2")->checkState(0), Qt::Checked);
    EXPECT_TRUE(control->camera("gev-2")->isGrabbing());
    EXPECT_EQ(item("gev-1").openCamera, CameraInfoPtr()) << "the viewer's list lost it as well";
}

INSTANTIATE_TEST_SUITE_P(Refresh, ConnectionLoss, ::testing::Values(false, true),
                         [](const auto& info) { return info.param ? "held_open_by_the_viewer" : "opened_here"; });

struct SOutageCase { const char* name; bool goneFromTheList; bool analysisStoppedMeanwhile; bool measuredAgain; };

class Outage : public TreeWidgetTest, public ::testing::WithParamInterface<SOutageCase> {};

// A camera lost during the analysis is measured again once it went from the
// pool's list and came back with the same key; the dead camera's own row is
// not opened again, nor a camera after the analysis ended.
TEST_P(Outage, aReturningCameraIsMeasuredAgainOnlyAfterAnAbsenceDuringTheAnalysis)
{
    const SOutageCase& c = GetParam();
    const auto layer = enumeration->addTransportLayer("DorvikGigE", {g1, g2});
    tree.refreshTree();
    ASSERT_TRUE(tree.startCameraByKey("gev-1"));
    tree.startAcquisition();
    control->camera("gev-1")->loseConnection();
    tree.refreshTree();
    ASSERT_EQ(tree.measuredCameraCount(), 0u);
    if (c.goneFromTheList) {
        layer->setCameras({g2});
        tree.refreshTree();
    }
    if (c.analysisStoppedMeanwhile) {
        tree.stopAcquisition();
        tree.startAcquisition();
    }
    layer->setCameras({g1, g2});
    tree.refreshTree();
    tree.refreshTree();

    EXPECT_EQ(tree.measuredCameraCount(), c.measuredAgain ? 1u : 0u);
    ASSERT_NE(row("gev-1"), nullptr);
    EXPECT_EQ(row("gev-1")->checkState(0), c.measuredAgain ? Qt::Checked : Qt::Unchecked);
    if (c.measuredAgain) {
        EXPECT_TRUE(control->camera("gev-1")->isGrabbing());
    }
    EXPECT_EQ(row("gev-2")->checkState(0), Qt::Unchecked) << "only what was measured";
}

INSTANTIATE_TEST_SUITE_P(Refresh, Outage, ::testing::Values(SOutageCase{"came_back", true, false, true},
                      SOutageCase{"never_left_the_list", false, false, false},
                      SOutageCase{"analysis_stopped_meanwhile", true, true, false}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(TreeWidgetTest, acquisitionGrabsCountsAndStops)
{
    enumeration->addTransportLayer("DorvikGigE", {g1});
    tree.refreshTree();
    ASSERT_TRUE(tree.startCameraByKey("gev-1"));
    tree.startAcquisition();
    const QSharedPointer<CFakeCamera> camera = control->camera("gev-1");
    ASSERT_TRUE(camera->isGrabbing());
    for (const bool good : {true, true, false})
        camera->grab(good, 1000);
    tree.updateSamples();
    EXPECT_EQ(row("gev-1")->text(6), QStringLiteral("2"));
    EXPECT_EQ(row("gev-1")->text(7), QStringLiteral("1"));
    EXPECT_EQ(row("gev-1")->text(4), QStringLiteral("25.00"));

    tree.resetStatistics();
    EXPECT_EQ(row("gev-1")->text(6), QStringLiteral("0"));
    collection->failNext("ResultingFrameRate", ParameterFakes::EScriptedAccess::Query, 100);
    EXPECT_NO_THROW(tree.updateSamples()) << "a camera whose sample fails does not end the tick";
    tree.stopAcquisition();
    EXPECT_FALSE(camera->isGrabbing());
    EXPECT_EQ(tree.measuredCameraCount(), 1u) << "stopping leaves the ticked camera measured";
}

TEST_F(TreeWidgetTest, theSessionRecordsEveryTickOfTheMeasuredCamerasForThePlotAndTheReport)
{
    using namespace Plugin::BandwidthManager;
    enumeration->addTransportLayer("DorvikGigE", {g1, g2});
    tree.refreshTree();
    ASSERT_TRUE(tree.startCameraByKey("gev-1"));
    ASSERT_TRUE(tree.startCameraByKey("gev-2"));
    CAnalysisSession session(&tree, QStringLiteral("zenta-viewer"));
    CBandwidthHistoryPlot plot;
    plot.setHistory(&session.history());
    QObject::connect(&session, &CAnalysisSession::recorded, &plot, &CBandwidthHistoryPlot::refresh);
    tree.updateSamples();
    EXPECT_EQ(plot.curveCount(), 0) << "nothing is recorded before the start";

    tree.startAcquisition();
    session.start();
    for (int tick = 0; tick < 3; ++tick) {
        control->camera("gev-1")->grab(true, 1000);
        control->camera("gev-2")->grab(tick != 1, 1000);
        tree.updateSamples();
    }
    tree.stopAcquisition();
    session.stop();
    tree.updateSamples();

    ASSERT_EQ(plot.curveCount(), 2);
    for (int index = 0; index < 2; ++index) {
        EXPECT_EQ(plot.payloadCurve(index)->dataSize(), 3u) << index;
        EXPECT_EQ(plot.errorCurve(index)->dataSize(), index == 1 ? 1u : 0u) << "the failed grab, where it happened";
    }
    EXPECT_EQ(session.history().cameras()[1].points.back().images, 2u);
}

} // namespace
