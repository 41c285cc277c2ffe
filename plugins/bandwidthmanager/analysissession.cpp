#include "analysissession.h"

#include "bandwidthlimiterinterpacketdelay.h"
#include "bandwidthmeasuringcamera.h"
#include "devicelinkthroughputlimiteditor.h"
#include "flattree.h"
#include "integernode.h"

#include <QHostInfo>
#include <QTreeWidgetItemIterator>

#include <algorithm>
#include <map>

namespace Plugin::BandwidthManager {

namespace {

// Losses for this long before the hint names their place: one burst is no pattern.
constexpr double VerdictSeconds = 3.0;
constexpr double LossSampleSeconds = 0.95;

const char* const TransportSettings[] = {"GevSCPSPacketSize", "GevSCPD", "GevSCFTD", "DeviceLinkThroughputLimit"};

QMap<QString, qint64> transportSettings(const CBandwidthMeasuringCamera& camera)
{
    QMap<QString, qint64> values;
    for (const char* name : TransportSettings) {
        try {
            const qint64 value = integerValueOr(camera.getParameters(), QLatin1String(name), -1);
            if (value >= 0)
                values[QLatin1String(name)] = value;
        } catch (...) {
            // A camera that stops answering has no settings to report.
            break;
        }
    }
    return values;
}

} // namespace

CAnalysisSession::CAnalysisSession(BandwidthTreeWidget* tree, QString tool, QObject* parent)
    : QObject(parent)
    , m_tree(tree)
{
    m_run.tool = std::move(tool);
    connect(tree, &BandwidthTreeWidget::samplesUpdated, this, &CAnalysisSession::onSamplesUpdated);
    connect(tree, &BandwidthTreeWidget::errorOccurred, this, &CAnalysisSession::onErrorOccurred);
    connect(tree, &BandwidthTreeWidget::optimizedGigECamera, this, &CAnalysisSession::onOptimized);
}

void CAnalysisSession::start()
{
    m_history.clear();
    m_losses.clear();
    m_firstLoss.clear();
    m_linkSpeeds.clear();
    m_lastLossSample = -1.0;
    const QString tool = m_run.tool;
    m_run = SAnalysisRun();
    m_run.tool = tool;
    m_run.host = QHostInfo::localHostName();
    m_run.started = QDateTime::currentDateTime();
    m_clock.start();
    m_running = true;
}

void CAnalysisSession::stop()
{
    m_running = false;
}

double CAnalysisSession::elapsedSeconds() const
{
    return m_clock.isValid() ? double(m_clock.nsecsElapsed()) * 1e-9 : 0.0;
}

std::vector<SCameraReading> CAnalysisSession::readings() const
{
    std::vector<SCameraReading> readings;
    if (!m_tree)
        return readings;
    const FlatTree& model = *m_tree->model();
    std::map<const QTreeWidgetItem*, FlatTreeItemID> ids;
    for (FlatTreeItemID id = 1; id < model.size(); ++id) {
        if (model.item(id).row)
            ids[model.item(id).row] = id;
    }
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it) {
        const auto found = ids.find(*it);
        if (found == ids.end())
            continue;
        const FlatTreeItem& item = model.item(found->second);
        if (!item.isCamera || !item.measuringCamera || !item.cameraInfo)
            continue;
        const FlatTreeItem& adapter = model.item(item.parentId);
        SBandwidthSample sample = item;
        // What the tree's Bandwidth column shows: the limit in the camera's editor, where it has one.
        if (const auto* limiter = qobject_cast<const BandwidthLimiterInterPacketDelay*>(item.editor))
            sample.bandwidth = quint64(std::max(0, limiter->value())) * 1000000u;
        else if (const auto* link = qobject_cast<const DeviceLinkThroughputLimitEditor*>(item.editor))
            sample.bandwidth = quint64(std::max(0, link->value()));
        readings.push_back(SCameraReading{item.cameraInfo->key(), item.text, adapter.key, sample});
    }
    return readings;
}

void CAnalysisSession::onSamplesUpdated()
{
    if (!m_running)
        return;
    const double now = elapsedSeconds();
    m_history.record(now, readings());
    // Once a second: the counters go into tool tips and a verdict after seconds,
    // and the streams of a busy machine are better off without four readings a second.
    const bool sampleLossesNow = now - m_lastLossSample >= LossSampleSeconds || m_lastLossSample < 0;
    if (sampleLossesNow) {
        sampleLosses(now);
        m_lastLossSample = now;
    }
    emit recorded();
    if (sampleLossesNow)
        emit lossesSampled();
}

void CAnalysisSession::onErrorOccurred(const QString& key, const QString& message, const QDateTime&)
{
    if (!m_running)
        return;
    const double now = elapsedSeconds();
    m_run.events.push_back(SReportEvent{now, key, message});
    m_history.markLost(key, now);
}

void CAnalysisSession::onOptimized(const BandwidthTreeWidget::SOptimizationResult& result)
{
    SReportOptimization optimization;
    optimization.adapterKey = result.adapterKey;
    // The result's own sum starts at -1 for the dialog's sake; the report adds what each camera was charged.
    for (const SCameraSettingsChange& camera : result.cameras) {
        if (camera.usedBandwidth >= 0)
            optimization.usedBandwidthMBs = std::max(optimization.usedBandwidthMBs, 0.0) + double(camera.usedBandwidth) * 1e-6;
    }
    optimization.packetSizeChanged = result.packetSizeChanged;
    optimization.interPacketDelayChanged = result.interPacketDelayChanged;
    optimization.tooManyCameras = result.tooManyCameras;
    optimization.unsetCameras = result.unsetCameras;
    optimization.cameras = result.cameras;
    m_run.optimizations.push_back(optimization);
}

void CAnalysisSession::sampleLosses(double seconds)
{
    const FlatTree& model = *m_tree->model();
    std::vector<CLossMeter::SAdapter> adapters;
    std::vector<CLossMeter::SCamera> cameras;
    for (FlatTreeItemID id = 1; id < model.size(); ++id) {
        const FlatTreeItem& adapter = model.item(id);
        if (!adapter.isAdapter || !adapter.isGigE)
            continue;
        bool measured = false;
        for (FlatTreeItemID childId : adapter.children) {
            const FlatTreeItem& camera = model.item(childId);
            if (!camera.isCamera || !camera.measuringCamera || !camera.cameraInfo)
                continue;
            measured = true;
            cameras.push_back({camera.cameraInfo->key(), adapter.key, camera.measuringCamera->getParameters(), camera.errors});
        }
        if (!measured)
            continue;
        adapters.push_back({adapter.key, adapter.text, linkSpeed(id)});
    }
    m_losses.sample(seconds, adapters, cameras);
    for (const CLossMeter::SAdapter& adapter : adapters) {
        const SLossTotals totals = m_losses.totals(adapter.key);
        if ((totals.lostFrames > 0 || totals.missingPackets > 0) && !m_firstLoss.contains(adapter.key))
            m_firstLoss[adapter.key] = seconds;
    }
}

double CAnalysisSession::linkSpeed(FlatTreeItemID adapterId)
{
    const QString key = m_tree->model()->item(adapterId).key;
    if (!m_linkSpeeds.contains(key)) {
        m_tree->withOneAdapterListing([this] {
            const FlatTree& tree = *m_tree->model();
            for (FlatTreeItemID id = 0; id < tree.size(); ++id) {
                if (tree.item(id).isAdapter)
                    m_linkSpeeds[tree.item(id).key] = m_tree->linkSpeed(id);
            }
        });
    }
    return m_linkSpeeds.value(key);
}

ELossPlace CAnalysisSession::lossPlace(const QString& adapterKey) const
{
    const auto first = m_firstLoss.constFind(adapterKey);
    if (first == m_firstLoss.constEnd() || elapsedSeconds() - first.value() < VerdictSeconds)
        return ELossPlace::None;
    return Plugin::BandwidthManager::lossPlace(m_losses.totals(adapterKey));
}

SAnalysisRun CAnalysisSession::run()
{
    if (!m_tree)
        return m_run;
    FlatTree& model = *m_tree->model();
    // The counters as they stand now, not as they stood at the last reading up to a second ago.
    if (m_clock.isValid())
        sampleLosses(elapsedSeconds());
    m_run.adapters.clear();
    for (FlatTreeItemID id = 1; id < model.size(); ++id) {
        const FlatTreeItem& item = model.item(id);
        if (item.isAdapter && item.isGigE) {
            SReportAdapter adapter{item.key, item.text, linkSpeed(id), {}, ELossPlace::None};
            adapter.losses = m_losses.adapter(item.key);
            // The whole run's verdict: the hint waits for seconds of losses, the report does not.
            adapter.place = Plugin::BandwidthManager::lossPlace(m_losses.totals(item.key));
            m_run.adapters.push_back(adapter);
        } else if (item.isCamera && item.measuringCamera && item.measuringCamera->isGigE() && item.cameraInfo)
            m_run.settings[item.cameraInfo->key()] = transportSettings(*item.measuringCamera);
    }
    for (const SCameraHistory& camera : m_history.cameras())
        m_run.cameraLosses[camera.key] = m_losses.camera(camera.key);
    return m_run;
}

bool CAnalysisSession::save(const QString& jsonPath, const QString& csvPath, QString* error)
{
    return saveAnalysisReport(m_history, run(), jsonPath, csvPath, error);
}

} // namespace Plugin::BandwidthManager
