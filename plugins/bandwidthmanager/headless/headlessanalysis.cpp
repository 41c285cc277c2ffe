#include "headlessanalysis.h"

#include "analysissession.h"
#include "bandwidthtreewidget.h"
#include "flattree.h"
#include "hostcheckrun.h"
#include "hostfixer.h"

#include <Core/Plugin/ServiceLookup.h>
#include <Plugin/CameraPool/ICameraEnumerationService.h>
#include <Plugin/CameraPool/ICameraStatusService.h>

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSet>
#include <QSettings>

#include <cmath>

using Plugin::BandwidthManager::CAnalysisSession;
using Plugin::BandwidthManager::SCameraReading;

namespace {

constexpr int TickMs = 250;

// The hint's advice without its markup, for a terminal.
QString placeText(Plugin::BandwidthManager::ELossPlace place)
{
    QString text = Plugin::BandwidthManager::lossPlaceAdvice(place);
    return text.remove(QRegularExpression(QStringLiteral("<[^>]*>")));
}

QString megabytes(quint64 bytesPerSecond)
{
    return QString::number(double(bytesPerSecond) * 1e-6, 'f', 2);
}

} // namespace

CHeadlessAnalysis::CHeadlessAnalysis(const Core::Plugin::PluginManagerPtr& manager, SHeadlessOptions options,
                                     FILE* out, FILE* err)
    : m_manager(manager)
    , m_options(std::move(options))
    , m_out(out)
    , m_err(err)
    , m_tree(std::make_unique<BandwidthTreeWidget>())
{
    m_tree->setCameraServices(m_manager.toWeakRef());
    // The columns bring the limit editors that Optimize works through.
    QSettings settings;
    m_tree->setupColumns(&settings);
    m_tree->setDeviceClasses(QStringList{QStringLiteral("DorvikUsb"), QStringLiteral("DorvikGigE")});
    m_session = new CAnalysisSession(m_tree.get(), QStringLiteral("bwm-analyse"), this);
    connect(m_tree.get(), &BandwidthTreeWidget::errorOccurred, this,
            [this](const QString& key, const QString& message, const QDateTime&) {
                std::fprintf(m_err, "%s: %s\n", qPrintable(key), qPrintable(message));
            });
    m_discoveryLimit.setSingleShot(true);
    connect(&m_discoveryLimit, &QTimer::timeout, this, &CHeadlessAnalysis::onDiscoveryDone);
    m_tick.setInterval(TickMs);
    connect(&m_tick, &QTimer::timeout, this, &CHeadlessAnalysis::onTick);
}

CHeadlessAnalysis::~CHeadlessAnalysis() = default;

void CHeadlessAnalysis::start()
{
    const auto enumeration = Core::Plugin::getService<Plugin::CameraPool::ICameraEnumerationService>(m_manager);
    const auto status = Core::Plugin::getService<Plugin::CameraPool::ICameraStatusService>(m_manager);
    if (!enumeration || !status) {
        fail(1, QStringLiteral("No camera services."));
        return;
    }
    m_tree->setOpenCameras(enumeration->openCameras());
    connect(enumeration.data(), SIGNAL(enumerationChanged()), this, SLOT(onDeviceListChanged()));
    // Queued, as in the dialog: the measuring camera must have learnt of the loss before the rebuild.
    connect(status.data(), SIGNAL(cameraConnectionLost(Core::CameraPoolComponents::CameraInfoPtr)), this,
            SLOT(onDeviceListChanged()), Qt::QueuedConnection);
    // The first discovery's end, or the time limit, whichever comes first. Only
    // the first: a rebuild of the tree opens the limit editors again, and they
    // probe each camera's delay range while it streams.
    if (enumeration->metaObject()->indexOfSignal("scanFinished()") >= 0)
        connect(enumeration.data(), SIGNAL(scanFinished()), this, SLOT(onFirstScanFinished()));
    m_discoveryLimit.start(int(m_options.discoverySeconds * 1000));
}

void CHeadlessAnalysis::onFirstScanFinished()
{
    disconnect(sender(), SIGNAL(scanFinished()), this, SLOT(onFirstScanFinished()));
    m_tree->refreshTree();
    if (m_options.cameras.isEmpty() || allNamedCamerasListed())
        QTimer::singleShot(0, this, &CHeadlessAnalysis::onDiscoveryDone);
}

void CHeadlessAnalysis::onDeviceListChanged()
{
    m_tree->refreshTree();
    // Named cameras: no need to wait for the limit once they are all there.
    if (!m_measuring && !m_done && !m_options.cameras.isEmpty() && allNamedCamerasListed()) {
        m_discoveryLimit.stop();
        QTimer::singleShot(0, this, &CHeadlessAnalysis::onDiscoveryDone);
    }
}

bool CHeadlessAnalysis::allNamedCamerasListed() const
{
    QString error;
    chosenCameras(&error);
    return error.isEmpty();
}

// Matches a name against a camera's serial number, IP address, listed name or key.
std::vector<FlatTreeItemID> CHeadlessAnalysis::chosenCameras(QString* error) const
{
    const FlatTree& model = *m_tree->model();
    std::vector<FlatTreeItemID> chosen;
    QSet<QString> matched;
    QStringList listed;
    for (FlatTreeItemID id = 1; id < model.size(); ++id) {
        const FlatTreeItem& item = model.item(id);
        if (!item.isCamera || !item.cameraInfo)
            continue;
        const QMap<QString, QString> properties = item.cameraInfo->properties();
        const QStringList names{properties.value(QStringLiteral("SerialNumber")),
                                properties.value(QStringLiteral("IpAddress")), item.text, item.cameraInfo->key()};
        listed << item.text;
        bool wanted = m_options.cameras.isEmpty();
        for (const QString& name : m_options.cameras) {
            if (!name.isEmpty() && names.contains(name)) {
                matched.insert(name);
                wanted = true;
            }
        }
        if (wanted)
            chosen.push_back(id);
    }
    for (const QString& name : m_options.cameras) {
        if (!matched.contains(name)) {
            *error = QStringLiteral("No camera named \"%1\". Cameras found: %2")
                         .arg(name, listed.isEmpty() ? QStringLiteral("none") : listed.join(QStringLiteral(", ")));
            return {};
        }
    }
    return chosen;
}

void CHeadlessAnalysis::onDiscoveryDone()
{
    if (m_measuring || m_done)
        return;
    m_discoveryLimit.stop();
    m_tree->refreshTree();
    QString error;
    const std::vector<FlatTreeItemID> chosen = chosenCameras(&error);
    if (!error.isEmpty()) {
        fail(2, error);
        return;
    }
    for (FlatTreeItemID id : chosen)
        m_tree->startCamera(id);
    if (m_options.checkHost) {
        m_done = true;
        emit finished(checkHost());
        return;
    }
    if (m_tree->measuredCameraCount() == 0) {
        fail(1, QStringLiteral("No camera could be measured."));
        return;
    }
    m_measuring = true;
    m_session->start();
    if (m_options.optimize) {
        std::fprintf(m_out, "Optimizing every GigE adapter...\n");
        std::fflush(m_out);
        m_tree->OptimizeAllGigE();
    }
    m_tree->startAcquisition();
    // The report's times are measuring times: the clock starts with the acquisition.
    m_session->restartClock();
    m_nextPrint = m_options.printInterval;
    m_tick.start();
    // Precise: a coarse timer may end a 10 s run half a second early.
    QTimer::singleShot(int(m_options.seconds * 1000), Qt::PreciseTimer, this, &CHeadlessAnalysis::finish);
}

void CHeadlessAnalysis::onTick()
{
    m_tree->updateSamples();
    if (m_options.printInterval > 0 && m_session->elapsedSeconds() + 0.01 >= m_nextPrint) {
        printTable();
        m_nextPrint += m_options.printInterval;
    }
}

void CHeadlessAnalysis::printTable()
{
    const FlatTree& model = *m_tree->model();
    const std::vector<SCameraReading> readings = m_session->readings();
    std::fprintf(m_out, "%7.1f s  %-30s %7s %7s %8s %8s %7s %6s %8s %7s %6s\n", m_session->elapsedSeconds(), "camera",
                 "MB/s", "payload", "fps sent", "fps recv", "images", "errors", "pkt lost", "resent", "socket");
    QString adapter;
    for (const SCameraReading& reading : readings) {
        if (reading.adapterKey != adapter) {
            adapter = reading.adapterKey;
            const FlatTreeItemID id = model.findByKey(adapter);
            const QString name = id ? model.item(id).text : adapter;
            const auto figures = m_session->losses().adapter(adapter);
            const auto place = m_session->lossPlace(adapter);
            std::fprintf(m_out, "  %s %s: link use %.0f %% (highest %.0f %%), receive errors missed %llu fifo %llu "
                                "dropped %llu%s%s\n",
                         qPrintable(name), qPrintable(adapter), figures.linkUse * 100, figures.peakLinkUse * 100,
                         static_cast<unsigned long long>(figures.missed), static_cast<unsigned long long>(figures.fifo),
                         static_cast<unsigned long long>(figures.dropped),
                         place == Plugin::BandwidthManager::ELossPlace::None ? "" : "; lost at: ",
                         qPrintable(placeText(place)));
        }
        const auto& sample = reading.sample;
        const auto losses = m_session->losses().camera(reading.key);
        const QString received = sample.fpsReceived < 0 ? QStringLiteral("-") : QString::number(sample.fpsReceived, 'f', 1);
        const QString socket = losses.socketDrops < 0 ? QStringLiteral("-") : QString::number(losses.socketDrops);
        std::fprintf(m_out, "           %-30s %7s %7s %8.1f %8s %7llu %6llu %8llu %7llu %6s%s\n",
                     qPrintable(reading.name.left(30)), qPrintable(megabytes(sample.bandwidth)),
                     qPrintable(megabytes(sample.payloadReceived)), sample.fpsSent, qPrintable(received),
                     static_cast<unsigned long long>(sample.images), static_cast<unsigned long long>(sample.errors),
                     static_cast<unsigned long long>(losses.missingPackets),
                     static_cast<unsigned long long>(losses.resentPackets), qPrintable(socket),
                     sample.connectionLost ? "  connection lost" : "");
    }
    std::fflush(m_out);
}

void CHeadlessAnalysis::finish()
{
    if (m_done)
        return;
    m_done = true;
    m_tick.stop();
    m_tree->updateSamples();
    printTable();
    m_session->stop();
    m_tree->stopAcquisition();
    int status = 0;
    quint64 errors = 0;
    for (const auto& camera : m_session->history().cameras()) {
        if (!camera.points.empty()) {
            errors += camera.points.back().errors;
            if (camera.points.back().connectionLost)
                status = 1;
        }
    }
    const Plugin::BandwidthManager::SAnalysisRun run = m_session->run();
    if (errors > 0 || !run.events.empty())
        status = 1;
    if (!m_options.jsonPath.isEmpty() || !m_options.csvPath.isEmpty()) {
        QString error;
        if (!Plugin::BandwidthManager::saveAnalysisReport(m_session->history(), run, m_options.jsonPath,
                                                          m_options.csvPath, &error)) {
            std::fprintf(m_err, "Could not write the report: %s\n", qPrintable(error));
            status = 1;
        }
    }
    std::fprintf(m_out, "%llu errors, %zu events\n", static_cast<unsigned long long>(errors), run.events.size());
    std::fflush(m_out);
    emit finished(status);
}

int CHeadlessAnalysis::checkHost()
{
    const std::vector<Plugin::BandwidthManager::SHostCheck> checks = Plugin::BandwidthManager::hostCheckTask(*m_tree->model())();
    const Plugin::BandwidthManager::CHostFixer fixer = Plugin::BandwidthManager::CHostFixer::forThisProcess();
    int status = 0;
    for (const Plugin::BandwidthManager::SHostCheck& check : checks) {
        std::fprintf(m_out, "%s %s\n", check.passed ? "[ok]  " : "[fail]", qPrintable(check.text));
        if (check.passed)
            continue;
        if (!check.fix) {
            status = 1;
            continue;
        }
        if (!m_options.fix) {
            std::fprintf(m_out, "       fix: %s\n", HostFix::rootCommand(*check.fix).c_str());
            status = 1;
            continue;
        }
        const Plugin::BandwidthManager::CHostFixer::SOutcome outcome = fixer.apply(*check.fix);
        std::fprintf(m_out, "       %s\n", qPrintable(outcome.text));
        if (!outcome.applied)
            status = 1;
    }
    std::fflush(m_out);
    return status;
}

void CHeadlessAnalysis::fail(int status, const QString& message)
{
    m_done = true;
    m_discoveryLimit.stop();
    std::fprintf(m_err, "bwm-analyse: %s\n", qPrintable(message));
    emit finished(status);
}
