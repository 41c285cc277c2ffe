#include "bandwidthdialog.h"

#include <host/fakes/CFakeCameraControlService.h>
#include <host/fakes/CFakeCameraEnumerationService.h>
#include <host/fakes/CFakeCameraInfo.h>
#include <host/fakes/CFakeCameraStatusService.h>
#include <host/fakes/CFakeDeviceInfo.h>
#include <host/fakes/CFakeMessageLogService.h>
#include <host/fakes/CFakeParameterService.h>
#include <host/fakes/CModalResponder.h>
#include <host/fakes/WaitUntil.h>
#include <parameters/fakes/CScriptedParameterCollection.h>

#include <Core/Exception/BaseException.h>
#include <Core/Logging/CLogCapture.h>
#include <Core/Plugin/CPluginManager.h>
#include <Utilities/MessageBoxCheckable.h>

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

#include <cstring>
#include <memory>
#include <tuple>

using namespace HostFakes;

namespace {

const QString InfoIcon = QStringLiteral(":/zentaviewercomponents/Resources/Info_32.png");
const QString WarningIcon = QStringLiteral(":/zentaviewercomponents/Resources/Warning_16_black.png");
const QString ErrorIcon = QStringLiteral(":/zentaviewercomponents/Resources/Error_16.png");
const QString GeneralHintStart = QStringLiteral("The <b>Bandwidth (MB/s)</b> value of GigE cameras");
const QString RunningHint = QStringLiteral("Analyzing bandwidth.<br/>You can limit the amount of bandwidth used by a camera "
                                           "using the controls in the <b>Bandwidth (MB/s)</b> column.<br/>Click <b>Stop "
                                           "Analysis</b> to stop the analysis.");

// A tree whose rows are scripted; it records what the dialog asks of it.
class CScriptedTree : public BandwidthTreeWidget
{
public:
    size_t cameras = 0, measured = 0;
    QStringList softwareTriggered, hardwareTriggered, calls;
    int kind = 0, sampleCount = 0;
    qint64 limit = -1;
    QString text;
    bool failToStop = false;

    size_t cameraRowCount() const override { return cameras; }
    size_t measuredCameraCount() const override { return measured; }
    int currentItemKind() const override { return kind; }
    QString currentItemText() const override { return text; }
    bool currentItemThroughputLimit(qint64& value) const override
    {
        value = limit;
        return kind == 2;
    }
    bool collectTriggeredCameras(QStringList* software, QStringList* hardware) override
    {
        *software = softwareTriggered;
        *hardware = hardwareTriggered;
        return !softwareTriggered.isEmpty() || !hardwareTriggered.isEmpty();
    }
    bool startCamera(FlatTreeItemID id) override { return record(QStringLiteral("startCamera:%1").arg(id)); }
    bool stopCamera(FlatTreeItemID id) override { return record(QStringLiteral("stopCamera:%1").arg(id)); }
    bool startCameraByKey(const QString& key) override { return record(QStringLiteral("startCameraByKey:") + key); }
    void startAcquisition() override { record(QStringLiteral("startAcquisition")); }
    void stopAcquisition() override
    {
        if (record(QStringLiteral("stopAcquisition")) && failToStop)
            throw Core::Exception::BaseException(QStringLiteral("camera gone"));
    }
    void updateSamples() override { ++sampleCount; }
    bool record(const QString& call) { return calls.append(call), true; }
};

QImage expectedIcon(const QString& path)
{
    const QImage image = QPixmap(path).scaled(24, 24, Qt::IgnoreAspectRatio, Qt::FastTransformation).toImage();
    EXPECT_FALSE(image.isNull()) << path.toStdString();
    return image;
}

class BandwidthDialogTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QSettings().remove(QStringLiteral("BandwidthManager"));
        MessageBoxCheckable::forgetSavedAnswer(QStringLiteral("BandwidthManagerGigePopup"));
        Core::Logging::setStderrEnabled(false);
    }
    void TearDown() override { Core::Logging::setStderrEnabled(true); }

    template <typename T>
    QSharedPointer<T> addService()
    {
        auto service = QSharedPointer<T>::create();
        m_manager->addService(service);
        return service;
    }

    std::unique_ptr<BandwidthDialog> makeDialog(CScriptedTree* tree = nullptr, QAction* help = nullptr)
    {
        m_tree = tree ? tree : new CScriptedTree;
        return std::make_unique<BandwidthDialog>(m_manager.toWeakRef(), nullptr, Qt::WindowFlags(), help, m_tree);
    }

    static void storeSetting(const char* key, const QVariant& value)
    {
        if (value.isValid())
            QSettings().setValue(QStringLiteral("BandwidthManager/") + QLatin1String(key), value);
    }
    // A scripted tree of cameras of which `measured` are measured.
    CScriptedTree* treeOf(size_t cameras, size_t measured = 0)
    {
        auto* tree = new CScriptedTree;
        std::tie(tree->cameras, tree->measured) = std::make_tuple(cameras, measured);
        return tree;
    }
    QString hintText(const std::unique_ptr<BandwidthDialog>& dialog) { return widget<QLabel>(dialog, "labelHintText")->text(); }
    QImage icon(const std::unique_ptr<BandwidthDialog>& dialog, const char* name)
    {
        return widget<QLabel>(dialog, name)->pixmap(Qt::ReturnByValue).toImage();
    }

    template <typename T>
    static T* widget(const std::unique_ptr<BandwidthDialog>& dialog, const char* name)
    {
        T* child = dialog->findChild<T*>(QLatin1String(name));
        EXPECT_NE(child, nullptr) << name;
        return child;
    }

    Core::Plugin::PluginManagerPtr m_manager = Core::Plugin::PluginManagerPtr::create();
    CScriptedTree* m_tree = nullptr;
};

struct SStopAfterCase { const char* name; QVariant storedValue; QVariant storedUnit; QVariant storedActive; int value;
    int unit; int maximum; bool checked; };

class StopAfterSettings : public BandwidthDialogTest, public ::testing::WithParamInterface<SStopAfterCase> {};

TEST_P(StopAfterSettings, AreReadBackWithTheSpinBoxClamps)
{
    const SStopAfterCase& c = GetParam();
    storeSetting("StopAfterValue", c.storedValue);
    storeSetting("StopAfterUnit", c.storedUnit);
    storeSetting("StopAfterActive", c.storedActive);

    const auto dialog = makeDialog();
    const auto* spin = widget<QSpinBox>(dialog, "spinTime");
    EXPECT_EQ(spin->value(), c.value);
    EXPECT_EQ(spin->minimum(), 1);
    EXPECT_EQ(spin->maximum(), c.maximum);
    EXPECT_EQ(widget<QComboBox>(dialog, "comboTimeUnits")->currentIndex(), c.unit);
    EXPECT_EQ(widget<QCheckBox>(dialog, "checkStopAfter")->isChecked(), c.checked);
}

INSTANTIATE_TEST_SUITE_P(Dialog, StopAfterSettings, ::testing::Values(
        SStopAfterCase{"nothing_stored_gives_30_seconds_off", {}, {}, {}, 30, 0, 2147483, false},
        SStopAfterCase{"stored_500_comes_back_as_99", 500, 0, {}, 99, 0, 2147483, false},
        SStopAfterCase{"stored_0_comes_back_as_1", 0, 0, {}, 1, 0, 2147483, false},
        SStopAfterCase{"days_clamp_a_stored_60_to_24", 60, 3, {}, 24, 3, 24, false},
        SStopAfterCase{"minutes_keep_a_stored_45", 45, 1, 1, 45, 1, 35791, true},
        SStopAfterCase{"an_unknown_unit_allows_only_1", 30, 7, {}, 1, -1, 1, false},
        SStopAfterCase{"active_stored_as_the_text_true", 30, 2, QStringLiteral("true"), 30, 2, 596, true},
        SStopAfterCase{"active_stored_as_0", 30, 0, 0, 30, 0, 2147483, false}),
    [](const ::testing::TestParamInfo<SStopAfterCase>& info) { return std::string(info.param.name); });

TEST_F(BandwidthDialogTest, ChangingTheUnitClampsTheValue)
{
    const auto dialog = makeDialog();
    auto* spin = widget<QSpinBox>(dialog, "spinTime");
    auto* units = widget<QComboBox>(dialog, "comboTimeUnits");
    spin->setValue(99);
    units->setCurrentIndex(3);
    EXPECT_EQ(spin->value(), 24);
    EXPECT_EQ(spin->maximum(), 24);
    units->setCurrentIndex(2);
    EXPECT_EQ(spin->value(), 24);
    EXPECT_EQ(spin->maximum(), 596);
}

// Escape writes nothing; Close keeps the stop-after settings and the columns for the next dialog.
TEST_F(BandwidthDialogTest, CloseButtonSavesSettingsAndColumnsForTheNextDialogEscapeDoesNot)
{
    for (const bool close : {false, true}) {
        const auto dialog = makeDialog();
        widget<QTreeWidget>(dialog, "treeBandwidth")->header()->resizeSection(0, 333);
        widget<QComboBox>(dialog, "comboTimeUnits")->setCurrentIndex(1);
        widget<QSpinBox>(dialog, "spinTime")->setValue(45);
        widget<QCheckBox>(dialog, "checkStopAfter")->setChecked(true);
        close ? widget<QPushButton>(dialog, "btnClose")->click() : QTest::keyClick(dialog.get(), Qt::Key_Escape);
        EXPECT_EQ(dialog->result(), close ? QDialog::Accepted : QDialog::Rejected);
        QSettings settings;
        settings.beginGroup(QStringLiteral("BandwidthManager"));
        EXPECT_EQ(settings.allKeys().isEmpty(), !close) << settings.allKeys().join(QLatin1Char(',')).toStdString();
    }
    const auto dialog = makeDialog();
    EXPECT_EQ(widget<QSpinBox>(dialog, "spinTime")->value(), 45);
    EXPECT_EQ(widget<QComboBox>(dialog, "comboTimeUnits")->currentIndex(), 1);
    EXPECT_TRUE(widget<QCheckBox>(dialog, "checkStopAfter")->isChecked());
    EXPECT_EQ(widget<QTreeWidget>(dialog, "treeBandwidth")->header()->sectionSize(0), 333);
}

struct SButtonCase { const char* name; size_t cameras; size_t measured; bool stopAfter; bool running; bool resetEnabled;
    bool startEnabled; bool stopEnabled; bool checkEnabled; bool timeEnabled; };

class ButtonStates : public BandwidthDialogTest, public ::testing::WithParamInterface<SButtonCase> {};

TEST_P(ButtonStates, FollowRowsAndRunState)
{
    const SButtonCase& c = GetParam();
    storeSetting("StopAfterActive", c.stopAfter ? 1 : 0);
    const auto dialog = makeDialog(treeOf(c.cameras, c.measured));
    if (c.running)
        dialog->onStartStopClicked();

    const auto* start = widget<QPushButton>(dialog, "btnStart");
    const auto* stop = widget<QPushButton>(dialog, "btnStop");
    EXPECT_EQ(widget<QPushButton>(dialog, "btnReset")->isEnabled(), c.resetEnabled);
    EXPECT_EQ(start->isEnabled(), c.startEnabled);
    EXPECT_EQ(start->isHidden(), c.running);
    EXPECT_EQ(start->isDefault(), !c.running);
    EXPECT_EQ(stop->isEnabled(), c.stopEnabled);
    EXPECT_EQ(stop->isHidden(), !c.running);
    EXPECT_EQ(widget<QCheckBox>(dialog, "checkStopAfter")->isEnabled(), c.checkEnabled);
    EXPECT_EQ(widget<QSpinBox>(dialog, "spinTime")->isEnabled(), c.timeEnabled);
    EXPECT_EQ(widget<QComboBox>(dialog, "comboTimeUnits")->isEnabled(), c.timeEnabled);
}

INSTANTIATE_TEST_SUITE_P(Dialog, ButtonStates,
    ::testing::Values(SButtonCase{"no_camera_row", 0, 0, false, false, false, false, false, true, false},
                      SButtonCase{"cameras_but_none_measured", 2, 0, false, false, true, false, false, true, false},
                      SButtonCase{"a_measured_camera", 2, 1, false, false, true, true, false, true, false},
                      SButtonCase{"stop_after_ticked_while_idle", 2, 1, true, false, true, true, false, true, true},
                      SButtonCase{"running_with_stop_after", 2, 1, true, true, true, false, true, false, false}),
    [](const ::testing::TestParamInfo<SButtonCase>& info) { return std::string(info.param.name); });

struct SHintCase { const char* name; size_t cameras; QStringList software; QStringList hardware; bool running; int kind;
    qint64 limit; QString icon; QString text; /* a text ending in "..." is a prefix */
    int measured = -1; /* -1: every camera */ };

class HintLine : public BandwidthDialogTest, public ::testing::WithParamInterface<SHintCase> {};

TEST_P(HintLine, FirstMatchingRuleWins)
{
    const SHintCase& c = GetParam();
    auto* tree = treeOf(c.cameras, c.measured < 0 ? c.cameras : size_t(c.measured));
    tree->softwareTriggered = c.software;
    tree->hardwareTriggered = c.hardware;
    tree->kind = c.kind;
    tree->limit = c.limit;
    tree->text = QStringLiteral("Cam A");
    const auto dialog = makeDialog(tree);
    if (c.running)
        dialog->onStartStopClicked();

    const QString text = hintText(dialog);
    EXPECT_TRUE(c.text.endsWith(QLatin1String("...")) ? text.startsWith(c.text.chopped(3)) : text == c.text)
        << text.toStdString();
    EXPECT_EQ(icon(dialog, "labelHintIcon"), expectedIcon(c.icon));
    EXPECT_TRUE(widget<QLabel>(dialog, "labelHintText2")->isHidden());
}

INSTANTIATE_TEST_SUITE_P(Dialog, HintLine, ::testing::Values(
        SHintCase{"no_camera_row", 0, {}, {}, false, 0, -1, WarningIcon,
                  "No camera connected!<br/>Connect at least one USB camera to the computer. After the camera has been "
                  "detected by the zenta Viewer, you are ready to use the Bandwidth Manager."},
        SHintCase{"software_and_hardware_triggers", 3, {"Cam A", "Cam B"}, {"Cam C"}, false, 0, -1, ErrorIcon,
                  "Software trigger enabled on Cam A, Cam B!<br/>Hardware trigger enabled on Cam C!"},
        SHintCase{"only_a_software_trigger", 1, {"Cam A"}, {}, false, 0, -1, ErrorIcon,
                  "Software trigger enabled on Cam A!"},
        SHintCase{"only_a_hardware_trigger", 1, {}, {"Cam C"}, false, 0, -1, WarningIcon,
                  "Hardware trigger enabled on Cam C!"},
        SHintCase{"trigger_warning_stays_while_running", 1, {}, {"Cam C"}, true, 0, -1, WarningIcon,
                  "Hardware trigger enabled on Cam C!"},
        SHintCase{"running", 1, {}, {}, true, 2, 5000000, InfoIcon, RunningHint},
        // Every measured camera was lost during the analysis.
        SHintCase{"running_with_nothing_measured", 1, {}, {}, true, 2, -1, InfoIcon,
                  RunningHint + "<br/><br/><b>No camera is being measured.</b> A camera lost during the analysis is measured again "
                  "when it comes back.", 0},
        SHintCase{"camera_with_a_limit", 1, {}, {}, false, 2, 5000000, InfoIcon,
                  "The current value for <b>Cam A</b> is: <b>..."},
        SHintCase{"camera_without_a_limit", 1, {}, {}, false, 2, -1, InfoIcon, GeneralHintStart + "..."},
        SHintCase{"adapter_row", 1, {}, {}, false, 3, 5000000, InfoIcon, GeneralHintStart + "..."}),
    [](const ::testing::TestParamInfo<SHintCase>& info) { return std::string(info.param.name); });

const char MaximumRemark[] = "<br>The <b>Packet Size</b> setting has been increased to its maximum value. If you want "
                             "to increase performance further, enable jumbo frames on your network adapter.";
const char TooManyRemark[] = "<br>Currently, there are too many cameras connected to your network adapter. The "
                             "Bandwidth Manager can't optimize the performance under these conditions. Try "
                             "disconnecting one or more cameras to resolve this.";
const char DefaultRemark[] =
    "<br>The <b>Packet Size</b> setting could not be optimized. A default value of 1500 has been set.";
const char NothingChanged[] = "Settings have been checked and are ok. No changes have been made.";

// Flags: the packet size, inter-packet delay and frame transmission delay changed; the packet size limited,
// too many cameras, the packet size defaulted.
struct SResultCase { const char* flags; QString text; QStringList unsetCameras = {}; QString icon = InfoIcon; };

class ResultLine : public BandwidthDialogTest, public ::testing::WithParamInterface<SResultCase> {};

TEST_P(ResultLine, NamesWhatTheOptimizationChanged)
{
    const SResultCase& c = GetParam();
    const auto has = [&c](char flag) { return std::strchr(c.flags, flag) != nullptr; };
    auto* tree = treeOf(1);
    const auto dialog = makeDialog(tree);
    BandwidthTreeWidget::SOptimizationResult result;
    std::tie(result.packetSizeChanged, result.interPacketDelayChanged, result.frameTransmissionDelayChanged) =
        std::make_tuple(has('P'), has('I'), has('F'));
    std::tie(result.packetSizeLimited, result.tooManyCameras, result.packetSizeDefaulted) =
        std::make_tuple(has('L'), has('T'), has('D'));
    result.unsetCameras = c.unsetCameras;
    emit tree->optimizedGigECamera(result);

    const auto* line = widget<QLabel>(dialog, "labelHintText2");
    EXPECT_FALSE(line->isHidden());
    EXPECT_EQ(line->text(), c.text);
    EXPECT_EQ(icon(dialog, "labelHintIcon2"), expectedIcon(c.icon));

    // The next hint update, here from a ticked camera, clears the result.
    emit tree->cameraChecked(4, {}, Qt::Checked);
    EXPECT_TRUE(line->isHidden());
}

INSTANTIATE_TEST_SUITE_P(Dialog, ResultLine, ::testing::Values(
        SResultCase{"PIF", "The <b>Packet Size</b>, <b>Inter-Packet Delay</b> and <b>Frame Transmission Delay</b> settings "
                           "have been optimized."},
        SResultCase{"PI", "The <b>Packet Size</b> and <b>Inter-Packet Delay</b> settings has been optimized."},
        SResultCase{"PF", "The <b>Packet Size</b> and <b>Frame Transmission Delay</b> settings has been optimized."},
        SResultCase{"P", "The <b>Packet Size</b> setting has been optimized"},
        SResultCase{"IF", "The <b>Inter-Packet Delay</b> and <b>Frame Transmission Delay</b> settings has been optimized."},
        SResultCase{"I", "The <b>Inter-Packet Delay</b> setting has been optimized"},
        SResultCase{"F", "The <b>Frame Transmission Delay</b> setting has been optimized"},
        SResultCase{"", NothingChanged},
        SResultCase{"LTD", QString(NothingChanged) + MaximumRemark + TooManyRemark + DefaultRemark},
        SResultCase{"I_unset", "The <b>Inter-Packet Delay</b> setting has been optimized<br>These cameras did not answer and "
                               "could not be set: cam&lt;2&gt;, cam3", {"cam<2>", "cam3"}, WarningIcon}),
    [](const ::testing::TestParamInfo<SResultCase>& info) { return *info.param.flags ? info.param.flags : std::string("none"); });

TEST_F(BandwidthDialogTest, CheckStatesStartAndStopCameras)
{
    auto* tree = treeOf(0);
    const auto dialog = makeDialog(tree);
    emit tree->cameraChecked(3, {}, Qt::Checked);
    emit tree->cameraChecked(3, {}, Qt::PartiallyChecked);
    emit tree->cameraChecked(5, {}, Qt::Unchecked);
    EXPECT_EQ(tree->calls, (QStringList{"startCamera:3", "stopCamera:5"}));
}

// The stop fails (the camera is gone): the analysis ends all the same, its timers with it.
TEST_F(BandwidthDialogTest, StopAfterOneSecondEndsTheAnalysisWithItsLogLinesEvenWhenTheStopFails)
{
    const auto messageLog = addService<CFakeMessageLogService>();
    storeSetting("StopAfterValue", 1);
    storeSetting("StopAfterActive", 1);
    auto* tree = treeOf(1, 1);
    tree->failToStop = true;
    const auto dialog = makeDialog(tree);
    Core::Logging::CLogCapture log;

    widget<QPushButton>(dialog, "btnStart")->click();
    EXPECT_FALSE(widget<QPushButton>(dialog, "btnStop")->isHidden());
    ASSERT_TRUE(HostFakes::waitUntil([&] { return tree->calls.contains(QStringLiteral("stopAcquisition")); }, 3000));
    const int samples = tree->sampleCount;
    QTest::qWait(1300);

    EXPECT_EQ(tree->calls, (QStringList{"startAcquisition", "stopAcquisition"})) << "no stop-after restart";
    EXPECT_GE(samples, 2);
    EXPECT_EQ(tree->sampleCount, samples) << "no tick after the stop";
    EXPECT_TRUE(widget<QPushButton>(dialog, "btnStop")->isHidden());
    EXPECT_TRUE(hintText(dialog).startsWith(GeneralHintStart));
    ASSERT_EQ(log.texts().size(), 3);
    EXPECT_EQ(log.texts().mid(0, 2), (QStringList{"Bandwidth analysis has been started.", "Stop Bandwidth analysis."}));
    EXPECT_TRUE(log.texts()[2].contains(QLatin1String("camera gone"))) << log.texts()[2].toStdString();
    ASSERT_EQ(messageLog->messages().size(), 2);
    for (const auto& message : messageLog->messages())
        EXPECT_EQ(std::make_tuple(message.severity, message.source, message.timestamp.isNull()),
                  std::make_tuple(1, QStringLiteral("Bandwidth Manager"), true));
    EXPECT_EQ(messageLog->messages().at(1).message, QStringLiteral("Stop Bandwidth analysis."));
}

// Opened before discovery found anything, the dialog follows the pool.
TEST_F(BandwidthDialogTest, HintsAndButtonsFollowEveryRebuildOfTheTree)
{
    const auto enumeration = addService<CFakeCameraEnumerationService>();
    addService<CFakeCameraStatusService>();
    auto* tree = treeOf(0);
    const auto dialog = makeDialog(tree);
    ASSERT_TRUE(hintText(dialog).startsWith(QStringLiteral("No camera connected!")));
    EXPECT_FALSE(widget<QPushButton>(dialog, "btnStart")->isEnabled());

    tree->cameras = tree->measured = 1;
    emit enumeration->enumerationChanged();
    EXPECT_TRUE(hintText(dialog).startsWith(GeneralHintStart));
    EXPECT_TRUE(widget<QPushButton>(dialog, "btnStart")->isEnabled());
}

TEST_F(BandwidthDialogTest, TreeErrorsGoToBothLogsWithoutTheirTimestamp)
{
    const auto messageLog = addService<CFakeMessageLogService>();
    auto* tree = treeOf(0);
    const auto dialog = makeDialog(tree);
    Core::Logging::CLogCapture log;
    emit tree->errorOccurred(QStringLiteral("cam-key"), QStringLiteral("Error accessing camera!"),
                             QDateTime::currentDateTime());
    ASSERT_EQ(messageLog->messages().size(), 1);
    const auto& message = messageLog->messages().at(0);
    EXPECT_EQ(std::make_tuple(message.severity, message.source, message.timestamp.isNull()),
              std::make_tuple(3, QStringLiteral("cam-key"), true));
    ASSERT_EQ(log.entries().size(), 1);
    EXPECT_EQ(log.entries().at(0).level, Core::Logging::LogLevelError);
    EXPECT_EQ(log.entries().at(0).categoryName, QStringLiteral("zenta.viewer.plugins.bandwidthManager.dialog"));
}

struct SOfferCase { const char* name; QString currentClass; /* empty: the current device is no camera */ bool grabbing;
    bool offered; QStringList calls; };

class GigEOfferAndPreselection : public BandwidthDialogTest, public ::testing::WithParamInterface<SOfferCase> {};

TEST_P(GigEOfferAndPreselection, FollowTheCurrentDevice)
{
    const SOfferCase& c = GetParam();
    const auto enumeration = addService<CFakeCameraEnumerationService>();
    const auto status = addService<CFakeCameraStatusService>();
    enumeration->addTransportLayer(QStringLiteral("DorvikUsb"), {CFakeCameraInfo::create("Usb", "usb-1", "U3V")});
    enumeration->addTransportLayer(QStringLiteral("DorvikGigE"), {CFakeCameraInfo::create("G1", "gev-1", "GEV"),
                                                                   CFakeCameraInfo::create("G2", "gev-2", "GEV")});
    if (c.currentClass.isEmpty())
        status->setCurrentDevice(Core::CameraPoolComponents::DeviceBaseInfoPtr(new CFakeDeviceInfo("eth0", "10.0.0.1")));
    else
        status->setCurrentDevice(CFakeCameraInfo::create("Current", "current", c.currentClass));
    status->setGrabbing(QStringLiteral("current"), c.grabbing);
    Core::Logging::CLogCapture log;

    CModalResponder responder;
    responder.expect(CModalResponder::clickButtonWithText(QStringLiteral("Optimize GigE Bandwidth")));
    auto* tree = treeOf(0);
    const auto dialog = makeDialog(tree);
    EXPECT_EQ(responder.seen(), c.offered ? QStringList{"MessageBoxCheckable"} : QStringList{});
    EXPECT_EQ(tree->calls, c.calls);

    // The optimisation is queued for the dialog's event loop.
    QTest::qWait(20);
    EXPECT_EQ(log.contains(QStringLiteral("All GigE cameras are being optimized.")), c.offered);
}

INSTANTIATE_TEST_SUITE_P(Dialog, GigEOfferAndPreselection, ::testing::Values(
        SOfferCase{"idle_gige_camera_current", "GEV", false, true,
                   {"startCameraByKey:gev-1", "startCameraByKey:gev-2", "startCameraByKey:current"}},
        SOfferCase{"grabbing_gige_camera_is_not_preselected", "GEV", true, true,
                   {"startCameraByKey:gev-1", "startCameraByKey:gev-2"}},
        SOfferCase{"usb_camera_current_gets_no_offer", "U3V", false, false, {"startCameraByKey:current"}},
        SOfferCase{"adapter_current_gets_the_offer", "", false, true,
                   {"startCameraByKey:gev-1", "startCameraByKey:gev-2"}}),
    [](const ::testing::TestParamInfo<SOfferCase>& info) { return std::string(info.param.name); });

TEST_F(BandwidthDialogTest, RealTreeReportsTheTriggerOfThePreselectedCamera)
{
    const auto camera = CFakeCameraInfo::create("G1", "gev-1", "GEV", {{"Interface", "192.0.2.7"}});
    addService<CFakeCameraEnumerationService>()->addTransportLayer(QStringLiteral("DorvikGigE"), {camera});
    addService<CFakeCameraStatusService>()->setCurrentDevice(camera);
    addService<CFakeCameraControlService>();
    const auto collection = QSharedPointer<ParameterFakes::CScriptedParameterCollection>::create();
    collection->addInteger(QStringLiteral("@StreamGrabber0/MaxNumBuffer"), 16, 1, 256);
    collection->addEnumeration(QStringLiteral("TriggerSelector"), QStringLiteral("FrameStart"),
                               {QStringLiteral("FrameStart"), QStringLiteral("AcquisitionStart")});
    collection->addEnumeration(QStringLiteral("TriggerMode"), QStringLiteral("On"),
                               {QStringLiteral("Off"), QStringLiteral("On")});
    collection->addEnumeration(QStringLiteral("TriggerSource"), QStringLiteral("Software"),
                               {QStringLiteral("Software"), QStringLiteral("Line1")});
    addService<CFakeParameterService>()->setDefaultCollection(collection);

    CModalResponder responder; // the GigE offer is declined
    BandwidthDialog dialog(m_manager.toWeakRef(), nullptr, Qt::WindowFlags(), nullptr);
    EXPECT_EQ(responder.seen(), QStringList{"MessageBoxCheckable"});
    auto* hint = dialog.findChild<QLabel*>(QStringLiteral("labelHintText"));
    auto* icon = dialog.findChild<QLabel*>(QStringLiteral("labelHintIcon"));
    EXPECT_EQ(hint->text(), QStringLiteral("Software trigger enabled on G1!"));
    EXPECT_EQ(icon->pixmap(Qt::ReturnByValue).toImage(), expectedIcon(ErrorIcon));

    collection->setValue(QStringLiteral("TriggerSource"), QStringLiteral("Line1"));
    dialog.onConfigureDialogClosed();
    EXPECT_EQ(hint->text(), QStringLiteral("Hardware trigger enabled on G1!"));
    EXPECT_EQ(icon->pixmap(Qt::ReturnByValue).toImage(), expectedIcon(WarningIcon));
    EXPECT_EQ(collection->value(QStringLiteral("TriggerSelector")).toString(), QStringLiteral("FrameStart"));
}

TEST_F(BandwidthDialogTest, F1TriggersAnEnabledHelpAction)
{
    QAction help;
    QSignalSpy triggered(&help, &QAction::triggered);
    const auto dialog = makeDialog(nullptr, &help);
    QTest::keyClick(dialog.get(), Qt::Key_F1);
    help.setEnabled(false);
    QTest::keyClick(dialog.get(), Qt::Key_F1);
    QTest::keyClick(dialog.get(), Qt::Key_F1, Qt::ShiftModifier);
    help.setEnabled(true);
    QTest::keyClick(dialog.get(), Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_EQ(triggered.count(), 1);
}

TEST_F(BandwidthDialogTest, ExportWritesTheReportAndItsCsvOrSaysWhyNot)
{
    const auto dialog = makeDialog();
    EXPECT_FALSE(widget<QPushButton>(dialog, "btnExport")->isEnabled()) << "nothing to export before a run";
    QTemporaryDir dir;
    CModalResponder responder;
    ASSERT_TRUE(dialog->exportRun(dir.filePath("run.json")));
    EXPECT_TRUE(QFile::exists(dir.filePath("run.json")));
    EXPECT_TRUE(QFile::exists(dir.filePath("run.csv")));
    EXPECT_TRUE(responder.seen().isEmpty());

    EXPECT_FALSE(dialog->exportRun(dir.filePath("missing/run.json")));
    EXPECT_EQ(responder.seen(), QStringList{"QMessageBox"});
}

} // namespace
