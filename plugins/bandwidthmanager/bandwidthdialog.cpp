#include "bandwidthdialog.h"

#include "bandwidthhistoryplot.h"
#include "exceptiontext.h"
#include "flattree.h"
#include "hostcheckrun.h"
#include "hostchecksdialog.h"

#include <Core/Logging/Logging.h>
#include <Core/Plugin/ServiceLookup.h>
#include <Plugin/CameraPool/ICameraEnumerationService.h>
#include <Plugin/CameraPool/ICameraStatusService.h>
#include <Utilities/LayoutPersistence.h>
#include <Utilities/MessageBoxCheckable.h>
#include <Utilities/ValueFormatting.h>

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QEvent>
#include <QDir>
#include <QFileDialog>
#include <QStyle>
#include <QFileInfo>
#include <QMessageBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPixmap>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QStringList>
#include <QTimer>
#include <QTimerEvent>

using Core::CameraPoolComponents::CameraInfoPtr;
using Core::CameraPoolComponents::ICameraInfo;

#include <algorithm>

namespace {

const char SettingsGroup[] = "BandwidthManager";
const char GigEInterfaceName[] = "DorvikGigE";
const QString InfoIcon = QStringLiteral(":/zentaviewercomponents/Resources/Info_32.png");
const QString WarningIcon = QStringLiteral(":/zentaviewercomponents/Resources/Warning_16_black.png");
const QString ErrorIcon = QStringLiteral(":/zentaviewercomponents/Resources/Error_16.png");
constexpr int RefreshIntervalMs = 250;
constexpr int SeverityInfo = 1;
constexpr int SeverityError = 3;

quint64 dialogCategory()
{
    static const quint64 id = Core::Logging::getCatId("zenta.viewer.plugins.bandwidthManager.dialog");
    return id;
}

// Each maximum keeps value times unit below 2^31, the range of QBasicTimer::start.
int millisecondsPerUnit(int unitIndex)
{
    switch (unitIndex) {
    case 0: return 1000;
    case 1: return 60000;
    case 2: return 3600000;
    case 3: return 86400000;
    default: return 1;
    }
}

int maximumForUnit(int unitIndex)
{
    switch (unitIndex) {
    case 0: return 2147483;
    case 1: return 35791;
    case 2: return 596;
    case 3: return 24;
    default: return 1;
    }
}

QPixmap hintIcon(const QString& iconPath)
{
    return QPixmap(iconPath).scaled(24, 24, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

QSharedPointer<Plugin::CameraPool::ITransportLayer>
gigETransportLayer(const QSharedPointer<Plugin::CameraPool::ICameraEnumerationService>& enumeration)
{
    const auto layers = enumeration->transportLayers();
    for (const auto& layer : layers) {
        if (layer && layer->name() == QLatin1String(GigEInterfaceName))
            return layer;
    }
    return {};
}

} // namespace

BandwidthDialog::BandwidthDialog(const Core::Plugin::PluginManagerWeakPtr& pluginManager, QWidget* parent,
                                 Qt::WindowFlags flags, QAction* helpAction)
    : BandwidthDialog(pluginManager, parent, flags, helpAction, new BandwidthTreeWidget())
{
}

// The flags are ignored on purpose: the window always gets the same decoration.
BandwidthDialog::BandwidthDialog(const Core::Plugin::PluginManagerWeakPtr& pluginManager, QWidget* parent,
                                 Qt::WindowFlags /*flags*/, QAction* helpAction, BandwidthTreeWidget* tree)
    : QDialog(parent)
    , m_helpAction(helpAction)
{
    setWindowFlags((windowFlags() | Qt::WindowMaximizeButtonHint) & ~Qt::WindowContextHelpButtonHint);
    setFocusPolicy(Qt::StrongFocus);
    ui.setupUi(this, tree);

    BandwidthTreeWidget* treeBandwidth = ui.treeBandwidth;
    treeBandwidth->setCameraServices(pluginManager);
    treeBandwidth->setDeviceClasses(QStringList{QStringLiteral("DorvikUsb"), QString::fromLatin1(GigEInterfaceName)});
    updateHints();
    updateButtons();

    if (!pluginManager.isNull()) {
        const auto enumeration = Core::Plugin::getService<Plugin::CameraPool::ICameraEnumerationService>(pluginManager);
        const auto status = Core::Plugin::getService<Plugin::CameraPool::ICameraStatusService>(pluginManager);
        if (enumeration && status) {
            treeBandwidth->setOpenCameras(enumeration->openCameras());
            // Through the dialog: a rebuilt tree changes what the hints and buttons say.
            connect(enumeration.data(), SIGNAL(enumerationChanged()), this, SLOT(deviceListChanged()));
            // Queued: the measuring camera learns of the loss from the same signal, and must
            // have learnt it when the tree is rebuilt.
            connect(status.data(), SIGNAL(cameraConnectionLost(Core::CameraPoolComponents::CameraInfoPtr)), this,
                    SLOT(deviceListChanged()), Qt::QueuedConnection);
        }
    }

    readSettings(parent);

    treeBandwidth->refreshTree();
    treeBandwidth->expandAll();

    connect(ui.btnStart, SIGNAL(clicked()), this, SLOT(onStartStopClicked()));
    connect(ui.btnStop, SIGNAL(clicked()), this, SLOT(onStartStopClicked()));
    connect(ui.btnReset, SIGNAL(clicked()), this, SLOT(onResetClicked()));
    connect(ui.btnClose, SIGNAL(clicked()), this, SLOT(onCloseClicked()));
    connect(treeBandwidth,
            SIGNAL(cameraChecked(size_t, Core::CameraPoolComponents::CameraInfoPtr, Qt::CheckState)), this,
            SLOT(onCameraChecked(size_t, Core::CameraPoolComponents::CameraInfoPtr, Qt::CheckState)));
    connect(ui.checkStopAfter, SIGNAL(stateChanged(int)), this, SLOT(onStopAfterChecked(int)));
    connect(ui.comboTimeUnits, SIGNAL(currentIndexChanged(int)), this, SLOT(onTimeUnitChanged(int)));
    connect(treeBandwidth, SIGNAL(errorOccurred(QString, QString, QDateTime)), this,
            SLOT(onBandwidthTreeErrorOccurred(QString, QString, QDateTime)));
    connect(treeBandwidth, SIGNAL(currentItemChanged(QTreeWidgetItem*, QTreeWidgetItem*)), this,
            SLOT(onCurrentTreeItemChanged()));
    connect(treeBandwidth, SIGNAL(optimizedGigECamera(BandwidthTreeWidget::SOptimizationResult)), this,
            SLOT(onOptimizedGigECamera(BandwidthTreeWidget::SOptimizationResult)));
    connect(treeBandwidth, SIGNAL(optimizeAllGigEStarted()), this, SLOT(onOptimizeAllGigEStarted()));
    connect(treeBandwidth, SIGNAL(optimizeGigEStarted()), this, SLOT(onOptimizeGigEStarted()));
    m_session = new Plugin::BandwidthManager::CAnalysisSession(treeBandwidth, QStringLiteral("zenta-viewer"), this);
    ui.plotHistory->setHistory(&m_session->history());
    connect(m_session, &Plugin::BandwidthManager::CAnalysisSession::recorded, ui.plotHistory,
            &Plugin::BandwidthManager::CBandwidthHistoryPlot::refresh);
    connect(m_session, &Plugin::BandwidthManager::CAnalysisSession::lossesSampled, this, &BandwidthDialog::showLosses);
    connect(ui.btnExport, SIGNAL(clicked()), this, SLOT(onExportClicked()));
    connect(ui.btnCheckHost, SIGNAL(clicked()), this, SLOT(onCheckHostClicked()));
    checkHostQuietly();
    m_messageLogService = Core::Plugin::getService<Plugin::MessageLogCore::IMessageLogService>(pluginManager);

    offerGigEOptimization(pluginManager);
    preselectCurrentCamera(pluginManager);

    updateHints();
    updateButtons();
    ui.btnStart->setDefault(true);
}

BandwidthDialog::~BandwidthDialog()
{
    m_refreshTimer.stop();
    // The tree goes with the widgets, after this part of the dialog: what it
    // signals on its way out must not reach these slots.
    disconnect(ui.treeBandwidth, nullptr, this, nullptr);
    disconnect(ui.treeBandwidth, nullptr, m_session, nullptr);
    ui.plotHistory->setHistory(nullptr);
}

void BandwidthDialog::readSettings(QWidget* parent)
{
    QSettings settings;
    settings.beginGroup(QLatin1String(SettingsGroup));
    if (parent)
        restoreWidgetPositionAndSize(&settings, this, parent);
    ui.treeBandwidth->setupColumns(&settings);

    const int stopAfterValue = settings.value(QStringLiteral("StopAfterValue"), 30).toInt();
    const int stopAfterUnit = settings.value(QStringLiteral("StopAfterUnit"), 0).toInt();
    // Written as a bool, which an INI file gives back as the text "true"; toBool
    // reads that as well as a stored integer.
    const bool stopAfterActive = settings.value(QStringLiteral("StopAfterActive"), 0).toBool();

    // Deliberate order: the value is set while the spin box still has its
    // default range of 0 to 99, so 500 comes back as 99 and 0 as 1.
    ui.spinTime->setValue(stopAfterValue);
    ui.comboTimeUnits->setCurrentIndex(stopAfterUnit);
    const int unit = ui.comboTimeUnits->currentIndex();
    ui.spinTime->setMinimum(1);
    ui.spinTime->setMaximum(maximumForUnit(unit));
    ui.checkStopAfter->setCheckState(stopAfterActive ? Qt::Checked : Qt::Unchecked);
}

void BandwidthDialog::offerGigEOptimization(const Core::Plugin::PluginManagerWeakPtr& pluginManager)
{
    const auto enumeration = Core::Plugin::getService<Plugin::CameraPool::ICameraEnumerationService>(pluginManager);
    if (!enumeration)
        return;
    const auto gigE = gigETransportLayer(enumeration);
    if (!gigE || gigE->cameras().isEmpty())
        return;

    if (const auto status = Core::Plugin::getService<Plugin::CameraPool::ICameraStatusService>(pluginManager)) {
        const CameraInfoPtr current = status->currentDevice().dynamicCast<ICameraInfo>();
        if (current && current->deviceClass() != QLatin1String("GEV"))
            return;
    }

    MessageBoxCheckable box(QStringLiteral("BandwidthManagerGigePopup"), this);
    box.setWindowTitle(tr("Bandwidth Manager"));
    box.setText(tr("<p>zenta has detected one or more GigE camera(s).The transport layer settings "
                   "<strong>Inter-Packet Delay</strong> and <strong>Packet Size</strong> can have an impact on "
                   "the performance of your GigE camera(s).</p><p>To automatically optimize these settings for "
                   "all cameras in your environment, click the <strong>Optimize GigE Bandwidth</strong> button in "
                   "this dialog.This ensures optimum performance of your GigE cameras.</p>"));
    QPushButton* optimizeButton = box.addButton(tr("Optimize GigE Bandwidth"), QMessageBox::AcceptRole);
    box.addButton(QMessageBox::Ok);
    box.setDefaultButton(QMessageBox::Ok);
    box.setEscapeButton(QMessageBox::Ok);
    box.setIconPixmap(QPixmap(InfoIcon));
    box.setSaveResultOnButton(QMessageBox::Ok);
    box.setSaveResultOnButton(optimizeButton);
    box.exec();
    if (box.clickedButton() != optimizeButton)
        return;

    if (const auto layer = gigETransportLayer(enumeration)) {
        const auto cameras = layer->cameras();
        for (const CameraInfoPtr& camera : cameras) {
            if (camera)
                ui.treeBandwidth->startCameraByKey(camera->key());
        }
    }
    QTimer::singleShot(0, ui.treeBandwidth, SLOT(OptimizeAllGigE()));
}

void BandwidthDialog::preselectCurrentCamera(const Core::Plugin::PluginManagerWeakPtr& pluginManager)
{
    const auto status = Core::Plugin::getService<Plugin::CameraPool::ICameraStatusService>(pluginManager);
    if (!status)
        return;
    const CameraInfoPtr camera = status->currentDevice().dynamicCast<ICameraInfo>();
    if (camera && !status->isCameraGrabbing(camera))
        ui.treeBandwidth->startCameraByKey(camera->key());
}

void BandwidthDialog::onStartStopClicked()
{
    const bool wasRunning = m_analysisRunning;
    m_analysisRunning = !wasRunning;
    if (wasRunning) {
        if (m_refreshTimer.isActive())
            logMessage(SeverityInfo, QT_TR_NOOP("Stop Bandwidth analysis."));
        // The timers first: a stop that fails must leave no tick that samples
        // on, nor a stop-after tick that starts the analysis again.
        m_refreshTimer.stop();
        m_stopAfterTimer.stop();
        m_session->stop();
        try {
            ui.treeBandwidth->stopAcquisition();
        } catch (...) {
            Core::Logging::createLogEntry(Core::Logging::LogLevelFailure, dialogCategory(),
                                          Plugin::BandwidthManager::describeCurrentException(QStringLiteral("stopping the analysis")));
        }
    } else {
        m_refreshTimer.start(RefreshIntervalMs, this);
        if (ui.checkStopAfter->isChecked()) {
            const int unit = ui.comboTimeUnits->currentIndex();
            m_stopAfterTimer.start(ui.spinTime->value() * millisecondsPerUnit(unit), this);
        }
        ui.treeBandwidth->startAcquisition();
        m_session->start();
        m_lossAdvice.clear();
        ui.plotHistory->refresh();
        showBudgets();
        logMessage(SeverityInfo, QT_TR_NOOP("Bandwidth analysis has been started."));
    }
    updateHints();
    updateButtons();
    ui.btnStart->setDefault(!m_analysisRunning);
    ui.btnStop->setDefault(m_analysisRunning);
}

void BandwidthDialog::onResetClicked()
{
    ui.treeBandwidth->resetStatistics();
}

void BandwidthDialog::onCloseClicked()
{
    done(1);
    close();
}

void BandwidthDialog::onCameraChecked(size_t index, Core::CameraPoolComponents::CameraInfoPtr /*ptrInstantCamera*/,
                                      Qt::CheckState checkState)
{
    if (checkState == Qt::Checked)
        ui.treeBandwidth->startCamera(index);
    else if (checkState == Qt::Unchecked)
        ui.treeBandwidth->stopCamera(index);
    updateHints();
    updateButtons();
}

void BandwidthDialog::onStopAfterChecked(int /*checkState*/)
{
    updateButtons();
}

void BandwidthDialog::done(int r)
{
    if (m_analysisRunning)
        onStartStopClicked();
    QDialog::done(r);
}

void BandwidthDialog::deviceListChanged()
{
    ui.treeBandwidth->refreshTree();
    updateHints();
    updateButtons();
}

void BandwidthDialog::removeCamera(Core::CameraPoolComponents::CameraInfoPtr ptrInstantCamera)
{
    if (ptrInstantCamera)
        ui.treeBandwidth->removeCameraByKey(ptrInstantCamera->key());
    deviceListChanged();
}

void BandwidthDialog::onConfigureDialogClosed()
{
    updateHints();
}

void BandwidthDialog::onTimeUnitChanged(int index)
{
    ui.spinTime->setMinimum(1);
    ui.spinTime->setMaximum(maximumForUnit(index));
}

void BandwidthDialog::onBandwidthTreeErrorOccurred(QString strSource, QString strMessage, QDateTime /*timestamp*/)
{
    Core::Logging::createLogEntry(Core::Logging::LogLevelError, dialogCategory(), strMessage);
    if (m_messageLogService)
        m_messageLogService->addMessage(SeverityError, strSource, strMessage, QDateTime());
}

void BandwidthDialog::onCurrentTreeItemChanged()
{
    updateHints();
    const FlatTree* model = ui.treeBandwidth->model();
    QString key;
    for (FlatTreeItemID id = 1; model && id < model->size(); ++id) {
        const FlatTreeItem& item = model->item(id);
        if (item.row && item.row == ui.treeBandwidth->currentItem() && item.isCamera && item.cameraInfo)
            key = item.cameraInfo->key();
    }
    ui.plotHistory->highlight(key);
}

// The budget of every adapter with a measured camera; read once per analysis.
void BandwidthDialog::showBudgets()
{
    std::vector<Plugin::BandwidthManager::CBandwidthHistoryPlot::SBudget> budgets;
    const FlatTree* model = ui.treeBandwidth->model();
    for (FlatTreeItemID id = 1; model && id < model->size(); ++id) {
        const FlatTreeItem& adapter = model->item(id);
        if (!adapter.isAdapter || !adapter.isGigE)
            continue;
        const bool measured = std::any_of(adapter.children.begin(), adapter.children.end(),
                                          [model](FlatTreeItemID child) { return model->item(child).measuringCamera; });
        if (measured)
            budgets.push_back({adapter.key, adapter.text, m_session->linkSpeed(id) / 8 * 1e-6 * 0.9});
    }
    ui.plotHistory->setBudgets(budgets);
}

void BandwidthDialog::markHostChecks(const std::vector<Plugin::BandwidthManager::SHostCheck>& results)
{
    const auto failed = std::count_if(results.begin(), results.end(), [](const auto& check) { return !check.passed; });
    ui.btnCheckHost->setIcon(failed ? style()->standardIcon(QStyle::SP_MessageBoxWarning) : QIcon());
    ui.btnCheckHost->setToolTip(failed ? tr("%1 host check(s) found something to change.").arg(failed) : QString());
}

void BandwidthDialog::checkHostQuietly()
{
    auto* checks = new Plugin::BandwidthManager::CHostChecksDialog(Plugin::BandwidthManager::hostCheckTask(*ui.treeBandwidth->model()), m_hostFixer, this);
    connect(checks, &Plugin::BandwidthManager::CHostChecksDialog::checked, this, [this, checks] {
        markHostChecks(checks->results());
        checks->deleteLater();
    });
    checks->runChecks();
}

void BandwidthDialog::onCheckHostClicked()
{
    Plugin::BandwidthManager::CHostChecksDialog checks(Plugin::BandwidthManager::hostCheckTask(*ui.treeBandwidth->model()), m_hostFixer, this);
    connect(&checks, &Plugin::BandwidthManager::CHostChecksDialog::checked, this,
            [this, &checks] { markHostChecks(checks.results()); });
    checks.runChecks();
    checks.exec();
}

void BandwidthDialog::onExportClicked()
{
    QSettings settings;
    settings.beginGroup(QLatin1String(SettingsGroup));
    const QString folder = settings.value(QStringLiteral("ExportFolder")).toString();
    const QString suggested = QStringLiteral("bandwidth-%1.json")
                                  .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss")));
    const QString path = QFileDialog::getSaveFileName(this, tr("Export Analysis"), QDir(folder).filePath(suggested),
                                                      tr("Analysis report (*.json)"));
    if (path.isEmpty())
        return;
    if (exportRun(path))
        settings.setValue(QStringLiteral("ExportFolder"), QFileInfo(path).absolutePath());
}

bool BandwidthDialog::exportRun(const QString& jsonPath)
{
    const QFileInfo info(jsonPath);
    const QString csvPath = info.dir().filePath(info.completeBaseName() + QStringLiteral(".csv"));
    QString error;
    if (m_session->save(jsonPath, csvPath, &error)) {
        const QString text = tr("The analysis has been saved to %1 and %2.").arg(jsonPath, csvPath);
        Core::Logging::createLogEntry(Core::Logging::LogLevelInfo, dialogCategory(), text);
        if (m_messageLogService)
            m_messageLogService->addMessage(SeverityInfo, tr("Bandwidth Manager"), text, QDateTime());
        return true;
    }
    QMessageBox::warning(this, tr("Export Analysis"), tr("The analysis could not be saved: %1").arg(error));
    return false;
}

void BandwidthDialog::onOptimizedGigECamera(BandwidthTreeWidget::SOptimizationResult result)
{
    QString text;
    const bool packetSize = result.packetSizeChanged;
    const bool interPacketDelay = result.interPacketDelayChanged;
    const bool frameTransmissionDelay = result.frameTransmissionDelayChanged;
    // The grammar and the missing full stops of these texts are kept as they are.
    if (packetSize && interPacketDelay && frameTransmissionDelay)
        text = tr("The <b>Packet Size</b>, <b>Inter-Packet Delay</b> and <b>Frame Transmission Delay</b> settings "
                  "have been optimized.");
    else if (packetSize && interPacketDelay)
        text = tr("The <b>Packet Size</b> and <b>Inter-Packet Delay</b> settings has been optimized.");
    else if (packetSize && frameTransmissionDelay)
        text = tr("The <b>Packet Size</b> and <b>Frame Transmission Delay</b> settings has been optimized.");
    else if (packetSize)
        text = tr("The <b>Packet Size</b> setting has been optimized");
    else if (interPacketDelay && frameTransmissionDelay)
        text = tr("The <b>Inter-Packet Delay</b> and <b>Frame Transmission Delay</b> settings has been optimized.");
    else if (interPacketDelay)
        text = tr("The <b>Inter-Packet Delay</b> setting has been optimized");
    else if (frameTransmissionDelay)
        text = tr("The <b>Frame Transmission Delay</b> setting has been optimized");
    else
        text = tr("Settings have been checked and are ok. No changes have been made.");

    if (result.packetSizeLimited)
        text += tr("<br>The <b>Packet Size</b> setting has been increased to its maximum value. If you want to "
                   "increase performance further, enable jumbo frames on your network adapter.");
    if (result.tooManyCameras)
        text += tr("<br>Currently, there are too many cameras connected to your network adapter. The Bandwidth "
                   "Manager can't optimize the performance under these conditions. Try disconnecting one or more "
                   "cameras to resolve this.");
    if (result.packetSizeDefaulted)
        text += tr("<br>The <b>Packet Size</b> setting could not be optimized. A default value of 1500 has been "
                   "set.");

    // A camera that stopped answering during the run is named, so that the
    // main text is not read as covering it too.
    if (!result.unsetCameras.isEmpty())
        text += tr("<br>These cameras did not answer and could not be set: %1")
                    .arg(result.unsetCameras.join(QStringLiteral(", ")).toHtmlEscaped());

    setResultLine(text, result.unsetCameras.isEmpty() ? InfoIcon : WarningIcon);
    updateButtons();
}

void BandwidthDialog::onOptimizeAllGigEStarted()
{
    logMessage(SeverityInfo, QT_TR_NOOP("All GigE cameras are being optimized."));
}

void BandwidthDialog::onOptimizeGigEStarted()
{
    // Deliberately the only message that reaches the category log translated.
    logMessage(SeverityInfo, QT_TR_NOOP("Selected GigE cameras are being optimized."), true);
}

void BandwidthDialog::timerEvent(QTimerEvent* e)
{
    if (e->timerId() == m_refreshTimer.timerId()) {
        e->accept();
        ui.treeBandwidth->updateSamples();
    } else if (e->timerId() == m_stopAfterTimer.timerId()) {
        e->accept();
        onStartStopClicked();
    } else {
        QDialog::timerEvent(e);
    }
}

void BandwidthDialog::keyPressEvent(QKeyEvent* e)
{
    const bool helpKey = e->key() == Qt::Key_F1 || e->key() == Qt::Key_Help;
    if (helpKey && e->modifiers() == Qt::NoModifier && m_helpAction && m_helpAction->isEnabled()) {
        m_helpAction->trigger();
        return;
    }
    QDialog::keyPressEvent(e);
}

void BandwidthDialog::closeEvent(QCloseEvent* e)
{
    QSettings settings;
    settings.beginGroup(QLatin1String(SettingsGroup));
    ui.treeBandwidth->saveColumns(&settings);
    if (QWidget* parentWidget = qobject_cast<QWidget*>(parent()))
        saveWidgetPositionAndSize(&settings, this, parentWidget);
    settings.setValue(QStringLiteral("StopAfterValue"), ui.spinTime->value());
    settings.setValue(QStringLiteral("StopAfterUnit"), ui.comboTimeUnits->currentIndex());
    settings.setValue(QStringLiteral("StopAfterActive"), ui.checkStopAfter->checkState() == Qt::Checked);
    settings.endGroup();
    QDialog::closeEvent(e);
}

// The form puts placeholders in the tree's first header cell and the hint
// lines: the tree renames its columns itself, and the hints are made anew,
// which drops a result line written in the language before.
void BandwidthDialog::changeEvent(QEvent* e)
{
    if (e->type() == QEvent::LanguageChange) {
        const QString firstHeader = ui.treeBandwidth->headerItem()->text(0);
        ui.retranslateUi(this);
        ui.treeBandwidth->headerItem()->setText(0, firstHeader);
        updateHints();
    }
    QDialog::changeEvent(e);
}

void BandwidthDialog::updateHints()
{
    setResultLine(QString(), QString());
    m_hintShowsAnalysis = false;

    QString software;
    QString hardware;
    if (ui.treeBandwidth->cameraRowCount() == 0) {
        setHintLine(tr("No camera connected!<br/>Connect at least one USB camera to the computer. After the camera "
                       "has been detected by the zenta Viewer, you are ready to use the Bandwidth Manager."),
                    WarningIcon);
    } else if (collectTriggerMessages(software, hardware)) {
        QString text = software;
        if (!software.isEmpty() && !hardware.isEmpty())
            text += QStringLiteral("<br/>");
        text += hardware;
        setHintLine(text, software.isEmpty() ? WarningIcon : ErrorIcon);
    } else if (m_analysisRunning) {
        setHintLine(analysisHint(), InfoIcon);
        m_hintShowsAnalysis = true;
        return;
    } else {
        qint64 limit = -1;
        if (ui.treeBandwidth->currentItemKind() == 2 && ui.treeBandwidth->currentItemThroughputLimit(limit)
            && limit != -1) {
            const double value = static_cast<double>(limit);
            const QString plain =
                formatDoubleValueAndUnits(value, 0, FormatMultiplierNone, tr("B/s"), FormatNoFlags, QLocale());
            const QString scaled = formatDoubleValueAndUnits(value, 0, FormatMultiplierMega, QStringLiteral("B/s"),
                                                             FormatUnitPrefix, QLocale());
            setHintLine(tr("The current value for <b>%1</b> is: <b>%2</b> (%3)<br/>Tip: If you want to preserve the "
                           "current camera settings, save them to a user set.")
                            .arg(ui.treeBandwidth->currentItemText(), plain, scaled),
                        InfoIcon);
        } else {
            setHintLine(
                tr("The <b>Bandwidth (MB/s)</b> value of GigE cameras shows the approximate bandwidth that is "
                   "available for the individual network adapter. It is influenced by the <b>Inter-Packet "
                   "Delay</b> and <b>Packet Size</b> settings in the <b>Transport Layer</b> category.<br/>If you "
                   "enable jumbo frames on your network adapter and increase the packet size of your camera you "
                   "can increase the overall performance of your system.<br/><br/>The <b>Bandwidth (MB/s)</b> "
                   "value of USB cameras corresponds to the <b>Device Link Throughput Limit</b> value in the "
                   "<b>Device Control</b> category.<br/><br/>Select the cameras whose bandwidth you want to "
                   "analyze.<br/>Click <b>Start Analysis</b> to start the analysis.<br/><br/>Tip: If you want to "
                   "preserve the current camera settings, save them to a user set.<br/>"),
                InfoIcon);
        }
    }
}

QString BandwidthDialog::analysisHint() const
{
    return tr("Analyzing bandwidth.<br/>You can limit the amount of bandwidth used by a camera using the "
              "controls in the <b>Bandwidth (MB/s)</b> column.<br/>Click <b>Stop Analysis</b> to stop the "
              "analysis.")
           + (ui.treeBandwidth->measuredCameraCount() == 0
                  ? tr("<br/><br/><b>No camera is being measured.</b> A camera lost during the analysis "
                       "is measured again when it comes back.")
                  : QString())
           + (m_lossAdvice.isEmpty() ? QString() : QStringLiteral("<br/><br/>") + m_lossAdvice);
}

void BandwidthDialog::showLosses()
{
    using Plugin::BandwidthManager::CLossMeter;
    using Plugin::BandwidthManager::ELossPlace;
    const FlatTree* model = ui.treeBandwidth->model();
    QString advice;
    quint64 mostLost = 0;
    const QLocale locale = ui.treeBandwidth->locale();
    for (FlatTreeItemID id = 1; model && id < model->size(); ++id) {
        const FlatTreeItem& item = model->item(id);
        if (!item.row)
            continue;
        if (item.isAdapter && item.isGigE) {
            const CLossMeter::SAdapterFigures figures = m_session->losses().adapter(item.key);
            item.row->setToolTip(0, tr("Link use %1 % (highest %2 %)\nReceive errors since the start: missed %3, "
                                       "FIFO %4, dropped %5")
                                        .arg(locale.toString(figures.linkUse * 100, 'f', 0),
                                             locale.toString(figures.peakLinkUse * 100, 'f', 0))
                                        .arg(figures.missed)
                                        .arg(figures.fifo)
                                        .arg(figures.dropped));
            const ELossPlace place = m_session->lossPlace(item.key);
            const quint64 lost = m_session->losses().totals(item.key).lostFrames;
            if (place != ELossPlace::None && (advice.isEmpty() || lost > mostLost)) {
                advice = Plugin::BandwidthManager::lossPlaceAdvice(place);
                mostLost = lost;
            }
        } else if (item.isCamera && item.measuringCamera && item.isGigE && item.cameraInfo) {
            const CLossMeter::SCameraFigures figures = m_session->losses().camera(item.cameraInfo->key());
            item.row->setToolTip(7, tr("Since the start:\npackets missing after resends: %1\npackets resent: %2\n"
                                       "resend requests: %3\nframes without a free buffer: %4\n"
                                       "packets dropped by the stream socket: %5")
                                        .arg(figures.missingPackets)
                                        .arg(figures.resentPackets)
                                        .arg(figures.resendRequests)
                                        .arg(figures.underruns)
                                        .arg(figures.socketDrops < 0 ? QStringLiteral("-")
                                                                     : QString::number(figures.socketDrops)));
        }
    }
    if (advice == m_lossAdvice)
        return;
    m_lossAdvice = advice;
    // The hint only: updating all of them would clear an Optimize's result line.
    if (m_analysisRunning && m_hintShowsAnalysis)
        setHintLine(analysisHint(), InfoIcon);
}

void BandwidthDialog::updateButtons()
{
    const size_t cameras = ui.treeBandwidth->cameraRowCount();
    const size_t measured = ui.treeBandwidth->measuredCameraCount();
    const bool stopAfterChecked = ui.checkStopAfter->checkState() == Qt::Checked;

    ui.btnReset->setEnabled(cameras != 0);
    ui.btnExport->setEnabled(!m_session || !m_session->history().cameras().empty() || m_analysisRunning);
    ui.btnStart->setEnabled(!m_analysisRunning && measured != 0);
    ui.btnStart->setVisible(!m_analysisRunning);
    ui.btnStop->setEnabled(m_analysisRunning);
    ui.btnStop->setVisible(m_analysisRunning);
    ui.checkStopAfter->setEnabled(!m_analysisRunning);
    ui.spinTime->setEnabled(!m_analysisRunning && stopAfterChecked);
    ui.comboTimeUnits->setEnabled(!m_analysisRunning && stopAfterChecked);
}

void BandwidthDialog::setHintLine(const QString& text, const QString& iconPath)
{
    if (!iconPath.isEmpty())
        ui.labelHintIcon->setPixmap(hintIcon(iconPath));
    else
        ui.labelHintIcon->clear();
    ui.labelHintText->setText(text);
}

void BandwidthDialog::setResultLine(const QString& text, const QString& iconPath)
{
    ui.labelHintText2->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::LinksAccessibleByMouse
                                               | Qt::LinksAccessibleByKeyboard);
    ui.labelHintText2->setOpenExternalLinks(true);
    if (text.isEmpty()) {
        ui.labelHintIcon2->hide();
        ui.labelHintText2->hide();
        return;
    }
    ui.labelHintIcon2->show();
    ui.labelHintText2->show();
    if (!iconPath.isEmpty())
        ui.labelHintIcon2->setPixmap(hintIcon(iconPath));
    else
        ui.labelHintIcon2->clear();
    ui.labelHintText2->setText(text);
}

bool BandwidthDialog::collectTriggerMessages(QString& softwareOut, QString& hardwareOut)
{
    QStringList software;
    QStringList hardware;
    ui.treeBandwidth->collectTriggeredCameras(&software, &hardware);
    if (!software.isEmpty())
        softwareOut = tr("Software trigger enabled on %1!").arg(software.join(QStringLiteral(", ")));
    if (!hardware.isEmpty())
        hardwareOut = tr("Hardware trigger enabled on %1!").arg(hardware.join(QStringLiteral(", ")));
    return !software.isEmpty() || !hardware.isEmpty();
}

void BandwidthDialog::logMessage(int severity, const char* text, bool translateForCategoryLog)
{
    const QString translated = tr(text);
    Core::Logging::createLogEntry(static_cast<Core::Logging::ELogLevel>(severity), dialogCategory(),
                                  translateForCategoryLog ? translated : QString::fromUtf8(text));
    if (m_messageLogService)
        m_messageLogService->addMessage(severity, tr("Bandwidth Manager"), translated, QDateTime());
}
