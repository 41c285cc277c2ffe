#include "analysissession.h"

#include "bandwidthlimiterinterpacketdelay.h"
#include "bandwidthmeasuringcamera.h"
#include "devicelinkthroughputlimiteditor.h"
#include "flattree.h"

#include <QHostInfo>
#include <QTreeWidgetItemIterator>

#include <algorithm>
#include <map>

namespace Plugin::BandwidthManager {

namespace {

const char* const TransportSettings[] = {"GevSCPSPacketSize", "GevSCPD", "GevSCFTD", "DeviceLinkThroughputLimit"};

QMap<QString, qint64> transportSettings(const CBandwidthMeasuringCamera& camera)
{
    QMap<QString, qint64> values;
    const ParameterCollection::ParameterCollectionPtr parameters = camera.getParameters();
    if (!parameters)
        return values;
    for (const char* name : TransportSettings) {
        try {
            const ParameterCollection::IntegerParameterPtr node = parameters->getIntegerParameter(QLatin1String(name));
            if (node && !node->isNull() && node->isReadable())
                values[QLatin1String(name)] = node->getValue();
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
    m_history.record(elapsedSeconds(), readings());
    emit recorded();
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

SAnalysisRun CAnalysisSession::run()
{
    if (!m_tree)
        return m_run;
    FlatTree& model = *m_tree->model();
    m_run.adapters.clear();
    for (FlatTreeItemID id = 1; id < model.size(); ++id) {
        const FlatTreeItem& item = model.item(id);
        if (item.isAdapter && item.isGigE)
            m_run.adapters.push_back(SReportAdapter{item.key, item.text, m_tree->linkSpeed(id)});
        else if (item.isCamera && item.measuringCamera && item.measuringCamera->isGigE() && item.cameraInfo)
            m_run.settings[item.cameraInfo->key()] = transportSettings(*item.measuringCamera);
    }
    return m_run;
}

bool CAnalysisSession::save(const QString& jsonPath, const QString& csvPath, QString* error)
{
    return saveAnalysisReport(m_history, run(), jsonPath, csvPath, error);
}

} // namespace Plugin::BandwidthManager
