// The GigE optimisation run of the bandwidth tree: shares 90 % of an adapter's
// link among its cameras and writes packet size, frame transmission delay and
// the bandwidth limit through the measuring cameras and the rows' editors.
#include "bandwidthtreewidget.h"

#include "bandwidthlimiterinterpacketdelay.h"
#include "bandwidthmeasuringcameragige.h"
#include "devicelinkthroughputlimiteditor.h"
#include "flattree.h"
#include "framepacer.h"
#include "integernode.h"

#include <Core/Logging/Logging.h>
#include <GenICam/GenericException.h>
#include <ParameterCollection/IParameterCollection.h>

#include <cfgapi/CreateNetworkConfig.h>

#include <QApplication>
#include <QEventLoop>
#include <QScopeGuard>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <thread>

using Plugin::BandwidthManager::CBandwidthMeasuringCamera;
using Plugin::BandwidthManager::CBandwidthMeasuringCameraGigE;
using Plugin::BandwidthManager::CFramePacer;
using Plugin::BandwidthManager::integerValueOr;

namespace {

constexpr double UsablePercent = 90.0;
constexpr double BitsToBytes = 0.125;
constexpr double DefaultLinkSpeed = 1000000000.0;
constexpr qint64 DefaultPacketSize = 1500;
constexpr quint64 PacketOverhead = 18;

quint64 logCategory()
{
    static const quint64 id = Core::Logging::getCatId("zenta.viewer.plugins.bandwidthManager.treeWidget");
    return id;
}

void logFailure(const QString& text)
{
    Core::Logging::createLogEntry(Core::Logging::LogLevelFailure, logCategory(), text);
}

// Call from a catch block.
void logCurrentException(const char* unknownText)
{
    try {
        throw;
    } catch (const GenICam_3_1_Dorvik_zenta::GenericException& e) {
        logFailure(QString::fromUtf8(e.GetDescription()));
    } catch (const std::exception& e) {
        logFailure(QString::fromUtf8(e.what()));
    } catch (...) {
        logFailure(QString::fromLatin1(unknownText));
    }
}

// The frame transmission delay flag is deliberately not merged: the dialog's
// texts that name that delay are not reached from a run.
void merge(BandwidthTreeWidget::SOptimizationResult& result, const BandwidthTreeWidget::SOptimizationResult& partial)
{
    result.packetSizeChanged = result.packetSizeChanged || partial.packetSizeChanged;
    result.interPacketDelayChanged = result.interPacketDelayChanged || partial.interPacketDelayChanged;
    result.packetSizeLimited = result.packetSizeLimited || partial.packetSizeLimited;
    result.tooManyCameras = result.tooManyCameras || partial.tooManyCameras;
    result.packetSizeDefaulted = result.packetSizeDefaulted || partial.packetSizeDefaulted;
    result.cameras.insert(result.cameras.end(), partial.cameras.begin(), partial.cameras.end());
}

int flooredMegabytes(double share)
{
    const double floored = std::floor(share);
    if (!(floored > double(std::numeric_limits<int>::min())))
        return std::numeric_limits<int>::min();
    if (floored > double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    return int(floored);
}

void callOnThreadOf(QObject* pContext, const std::function<void()>& call)
{
    if (QThread::currentThread() == pContext->thread())
        call();
    else
        QMetaObject::invokeMethod(pContext, call, Qt::BlockingQueuedConnection);
}

class CWaitCursor
{
public:
    CWaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~CWaitCursor() { QApplication::restoreOverrideCursor(); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
};

} // namespace

void BandwidthTreeWidget::setNetworkConfigFactory(NetworkConfigFactory factory)
{
    networkConfigFactory = std::move(factory);
}

void BandwidthTreeWidget::OptimizeAllGigE()
{
    emit optimizeAllGigEStarted();
    withOneAdapterListing([this] {
        for (FlatTreeItemID id = 0; id < flatTree->size(); ++id) {
            const FlatTreeItem& item = flatTree->item(id);
            if (item.isAdapter && item.isGigE) {
                optimizeGigEAdapter(id, false);
                updateButtonState(id);
            }
        }
    });
}

void BandwidthTreeWidget::onOptimizeButton(int buttonId)
{
    emit optimizeGigEStarted();
    optimizeGigEAdapter(static_cast<FlatTreeItemID>(buttonId), true);
}

void BandwidthTreeWidget::optimizeGigEAdapter(FlatTreeItemID adapterId, bool onlySelected)
{
    if (adapterId >= flatTree->size())
        return;
    const FlatTreeItem adapter = flatTree->item(adapterId);
    if (!adapter.isAdapter || !adapter.isGigE)
        return;

    std::vector<FlatTreeItemID> ids;
    if (onlySelected) {
        for (FlatTreeItemID childId : adapter.children) {
            const QTreeWidgetItem* row = flatTree->item(childId).row;
            if (row && row->checkState(0) == Qt::Checked)
                ids.push_back(childId);
        }
    } else {
        ids = adapter.children;
    }
    if (ids.empty())
        return;

    // The run is synchronous for its callers, but its register traffic goes
    // on a thread of its own: a probe takes a good part of a second, and a
    // camera that has died holds every access for the GigE Vision timeouts.
    // The window keeps painting meanwhile; user input waits for the result,
    // and samples and rebuilds wait for the run.
    const CWaitCursor waitCursor;
    const double bandwidth = adapterBandwidth(adapter);
    const double budget = bandwidth * BitsToBytes / 1000 / 1000 * UsablePercent / 100;
    SOptimizationResult result;
    m_optimizing = true;
    QEventLoop loop;
    std::thread worker([&] {
        result = optimizeCameras(ids, budget);
        QMetaObject::invokeMethod(&loop, "quit", Qt::QueuedConnection);
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    worker.join();
    m_optimizing = false;
    result.adapterKey = adapter.key;
    const std::vector<std::function<void()>> deferred = std::move(m_afterRun);
    m_afterRun.clear();
    for (const std::function<void()>& call : deferred)
        call();
    emit optimizedGigECamera(result);
}

bool BandwidthTreeWidget::deferredWhileOptimizing(std::function<void()> call)
{
    if (!m_optimizing)
        return false;
    m_afterRun.push_back(std::move(call));
    return true;
}

double BandwidthTreeWidget::linkSpeed(FlatTreeItemID adapterId)
{
    return adapterBandwidth(flatTree->item(adapterId));
}

void BandwidthTreeWidget::withOneAdapterListing(const std::function<void()>& call)
{
    // Nested (a tick during a run's event loop): the outer listing serves.
    if (m_linkSpeedListing) {
        call();
        return;
    }
    try {
        m_linkSpeedListing = listLinkSpeeds();
    } catch (...) {
        // Each read lists again and logs its own failure.
    }
    const auto forget = qScopeGuard([this] { m_linkSpeedListing.reset(); });
    call();
}

std::map<std::string, int32_t> BandwidthTreeWidget::listLinkSpeeds()
{
    const std::unique_ptr<CfgApi::INetworkConfig> config =
        networkConfigFactory ? networkConfigFactory() : CfgApi::CreateNetworkConfig();
    if (!config)
        throw GenICam_3_1_Dorvik_zenta::RuntimeException("Invalid network config received.", __FILE__, __LINE__);
    std::map<std::string, int32_t> speeds;
    for (const std::shared_ptr<CfgApi::INetworkAdapter>& adapter : config->GetNetworkAdapters()) {
        for (const IPv4Configuration& ipv4 : adapter->GetIpv4Configurations())
            speeds.emplace(ipv4.AddressText(), adapter->GetLinkSpeed());
    }
    return speeds;
}

double BandwidthTreeWidget::adapterBandwidth(const FlatTreeItem& adapter)
{
    double speed = -1.0;
    try {
        const std::map<std::string, int32_t> speeds = m_linkSpeedListing ? *m_linkSpeedListing : listLinkSpeeds();
        const auto found = speeds.find(adapter.key.toStdString());
        if (found == speeds.end())
            throw GenICam_3_1_Dorvik_zenta::RuntimeException(
                "Could not find a network adapter with the given IP address.", __FILE__, __LINE__);
        if (found->second > 0)
            speed = found->second * 1000.0 * 1000.0;
    } catch (...) {
        logCurrentException("Unknown exception occurred while getting network configuration.");
    }
    if (speed > 0)
        return speed;
    logFailure(QStringLiteral("Could not determine current bandwidth of network adapter '%1'. Defaulting to 1GBit/s.")
                   .arg(adapter.text));
    return DefaultLinkSpeed;
}

std::vector<FlatTreeItemID> BandwidthTreeWidget::servingOrder(const std::vector<FlatTreeItemID>& cameraIds)
{
    if (cameraIds.size() < 2)
        return cameraIds;
    // Each camera is asked once: a read moves its delay for a moment, and two
    // reads that differ would make the order inconsistent for the sort.
    std::vector<std::pair<qint64, FlatTreeItemID>> keyed;
    for (FlatTreeItemID id : cameraIds) {
        auto* pCamera = dynamic_cast<CBandwidthMeasuringCameraGigE*>(flatTree->item(id).measuringCamera);
        if (!pCamera)
            throw GenICam_3_1_Dorvik_zenta::RuntimeException("Invalid camera object received.", __FILE__, __LINE__);
        keyed.emplace_back(pCamera->getMaximumThroughput(), id);
    }
    std::sort(keyed.begin(), keyed.end(),
              [](const auto& left, const auto& right) { return left.first < right.first; });
    std::vector<FlatTreeItemID> sorted;
    for (const auto& entry : keyed)
        sorted.push_back(entry.second);
    return sorted;
}

// The link is taken below its capacity before the first probe: on an
// overloaded link the probe's test packets are dropped with the rest, and it
// settles on a smaller packet size than the path carries. Gives back the
// cameras that did not answer.
std::vector<FlatTreeItemID> BandwidthTreeWidget::quietCameras(const std::vector<FlatTreeItemID>& cameraIds)
{
    m_delaysBeforeRun.clear();
    std::vector<FlatTreeItemID> silent;
    for (FlatTreeItemID id : cameraIds) {
        const CBandwidthMeasuringCamera* pCamera = flatTree->item(id).measuringCamera;
        const ParameterCollection::ParameterCollectionPtr ptrParameters = pCamera ? pCamera->getParameters() : ParameterCollection::ParameterCollectionPtr();
        if (!ptrParameters)
            continue;
        try {
            const ParameterCollection::IntegerParameterPtr ptrDelay = ptrParameters->getIntegerParameter(QStringLiteral("GevSCPD"));
            if (!ptrDelay || ptrDelay->isNull())
                continue;
            if (ptrDelay->isReadable())
                m_delaysBeforeRun[id] = ptrDelay->getValue();
            if (ptrDelay->isWritable()) {
                ptrDelay->trySetToMaximum();
            } else {
                const ParameterCollection::IntegerParameterPtr ptrLimit =
                    ptrParameters->getIntegerParameter(QStringLiteral("DeviceLinkThroughputLimit"));
                if (ptrLimit && !ptrLimit->isNull() && ptrLimit->isWritable())
                    ptrLimit->trySetToMinimum();
            }
        } catch (...) {
            logCurrentException("Unknown exception occurred while optimizing bandwidth.");
            silent.push_back(id);
        }
    }
    return silent;
}

BandwidthTreeWidget::SOptimizationResult BandwidthTreeWidget::optimizeCameras(const std::vector<FlatTreeItemID>& cameraIds,
                                                                               double budget)
{
    SOptimizationResult result;
    double remaining = budget;
    std::vector<FlatTreeItemID> sorted;
    try {
        sorted = servingOrder(cameraIds);
    } catch (...) {
        logCurrentException("Unknown exception occurred while optimizing bandwidth.");
        return result;
    }
    const std::vector<FlatTreeItemID> silent = quietCameras(sorted);

    quint32 index = 0;
    // Cameras that did not answer take no share.
    size_t left = sorted.size() - silent.size();
    for (FlatTreeItemID id : sorted) {
        SOptimizationResult partial;
        // A camera that stops answering is passed over: the cameras after it
        // still need their share, or the link keeps overflowing.
        bool answered = std::find(silent.begin(), silent.end(), id) == silent.end();
        if (answered) {
            const double share = remaining / double(left--);
            try {
                partial = optimizeCamera(id, share, index);
            } catch (...) {
                logCurrentException("Unknown exception occurred while optimizing bandwidth.");
                answered = false;
                restoreDelay(id);
            }
        }
        if (!answered) {
            result.unsetCameras << flatTree->item(id).text;
            continue;
        }
        ++index;
        merge(result, partial);
        if (partial.usedBandwidth >= 0.0) {
            remaining -= partial.usedBandwidth;
            // Starts at -1, so the sum stands one below the true one; kept as it is.
            result.usedBandwidth = partial.usedBandwidth + result.usedBandwidth;
        }
    }
    m_delaysBeforeRun.clear();
    return result;
}

void BandwidthTreeWidget::restoreDelay(FlatTreeItemID id)
{
    const auto before = m_delaysBeforeRun.find(id);
    const CBandwidthMeasuringCamera* pCamera = flatTree->item(id).measuringCamera;
    if (before == m_delaysBeforeRun.end() || !pCamera || !pCamera->getParameters())
        return;
    try {
        const ParameterCollection::IntegerParameterPtr ptrDelay =
            pCamera->getParameters()->getIntegerParameter(QStringLiteral("GevSCPD"));
        if (ptrDelay && !ptrDelay->isNull())
            ptrDelay->trySetValue(before->second);
    } catch (...) {
        logCurrentException("Unknown exception occurred while optimizing bandwidth.");
    }
}

BandwidthTreeWidget::SOptimizationResult BandwidthTreeWidget::optimizeCamera(FlatTreeItemID id, double share,
                                                                              quint32 index)
{
    SOptimizationResult result;
    const FlatTreeItem item = flatTree->item(id);
    if (!isGigECamera(item))
        return result;
    auto* pCamera = dynamic_cast<CBandwidthMeasuringCameraGigE*>(item.measuringCamera);
    if (!pCamera)
        return result;

    qint64 after = 0;
    qint64 before = 0;
    pCamera->probePacketSize(&after, &before);
    bool defaulted = false;
    if (after == before && after < DefaultPacketSize) {
        after = DefaultPacketSize;
        defaulted = pCamera->setPacketSize(quint64(DefaultPacketSize));
    }
    result.packetSizeChanged = after != before;
    result.packetSizeLimited = after <= DefaultPacketSize;
    result.packetSizeDefaulted = defaulted;

    // Staggered by whole packets so that the cameras' first packets do not meet in the switch.
    const bool wasSet = pCamera->isFrameTransmissionDelaySet();
    const quint64 delay = (quint64(after) + PacketOverhead) * index;
    pCamera->setFrameTransmissionDelay(delay);
    // Compares the flag with the new delay, not the old delay; deliberate.
    result.frameTransmissionDelayChanged = quint64(wasSet) != delay;

    const int megabytes = flooredMegabytes(share);
    const auto delayBeforeRun = m_delaysBeforeRun.find(id);
    qint64 valueBefore = 0;
    qint64 valueAfter = 0;
    qint64 throughput = -1;
    bool reached = false;
    if (auto* pLimiter = qobject_cast<BandwidthLimiterInterPacketDelay*>(item.editor)) {
        valueBefore = delayBeforeRun != m_delaysBeforeRun.end() ? delayBeforeRun->second : pLimiter->getInterPacketDelay();
        const int reachedMegabytes = pLimiter->applyWish(megabytes);
        const int shown = reachedMegabytes >= 0 ? reachedMegabytes : megabytes;
        QMetaObject::invokeMethod(
            pLimiter, [pLimiter, shown] { pLimiter->ComboSlider::setValue(shown); }, Qt::QueuedConnection);
        reached = pLimiter->isAtMaximum();
        valueAfter = pLimiter->getInterPacketDelay();
        throughput = pLimiter->getCurrentThroughput();
        if (valueAfter == -1 && throughput == -1)
            throw GenICam_3_1_Dorvik_zenta::RuntimeException("The camera did not answer.", __FILE__, __LINE__);
        // Water filling hands a camera that needs less than its share the whole
        // share, which the search cannot reach: left at its smallest delay it
        // would send every frame at line rate on top of the others' paced
        // traffic and overflow the switch. It is paced instead, and charged
        // with the rate at which it sends while it sends.
        const qint64 paced = CFramePacer(pCamera->getParameters()).pace(qint64(share * 1e6));
        if (paced > 0) {
            valueAfter = pLimiter->getInterPacketDelay();
            throughput = paced;
        }
    } else if (auto* pDeviceLink = qobject_cast<DeviceLinkThroughputLimitEditor*>(item.editor)) {
        const ParameterCollection::ParameterCollectionPtr ptrParameters = pCamera->getParameters();
        const QString delayName = QStringLiteral("GevSCPD");
        valueBefore = delayBeforeRun != m_delaysBeforeRun.end() ? delayBeforeRun->second
                                                                : integerValueOr(ptrParameters, delayName, -1);
        // A 32-bit product that wraps above 2147 MB/s, as the editor's own unit does.
        const int bytesPerSecond = int(quint32(megabytes) * 1000000u);
        // The editor writes the limit from its own widget value: one write, on the window's thread.
        callOnThreadOf(pDeviceLink, [pDeviceLink, bytesPerSecond] { pDeviceLink->setValue(bytesPerSecond); });
        reached = pDeviceLink->isAtMaximum();
        valueAfter = integerValueOr(ptrParameters, delayName, -1);
        throughput = integerValueOr(ptrParameters, QStringLiteral("DeviceLinkThroughputLimit"), -1);
        if (valueAfter == -1 && throughput == -1)
            throw GenICam_3_1_Dorvik_zenta::RuntimeException("The camera did not answer.", __FILE__, __LINE__);
    } else {
        restoreDelay(id);
        return result;
    }
    result.tooManyCameras = reached;
    result.interPacketDelayChanged = valueBefore != valueAfter;
    if (throughput != -1)
        result.usedBandwidth = double(throughput) / 1000.0 / 1000.0;
    Plugin::BandwidthManager::SCameraSettingsChange change;
    change.key = item.cameraInfo ? item.cameraInfo->key() : item.key;
    change.packetSizeBefore = before;
    change.packetSizeAfter = after;
    change.interPacketDelayBefore = valueBefore;
    change.interPacketDelayAfter = valueAfter;
    change.frameTransmissionDelay = qint64(delay);
    change.usedBandwidth = throughput;
    result.cameras.push_back(change);
    return result;
}
