// The GigE optimisation run of the bandwidth tree: shares 90 % of an adapter's
// link among its cameras and writes packet size, frame transmission delay and
// the bandwidth limit through the measuring cameras and the rows' editors.
#include "bandwidthtreewidget.h"

#include "bandwidthlimiterinterpacketdelay.h"
#include "bandwidthmeasuringcameragige.h"
#include "devicelinkthroughputlimiteditor.h"
#include "flattree.h"

#include <Core/Logging/Logging.h>
#include <GenICam/GenericException.h>
#include <ParameterCollection/IParameterCollection.h>

#include <cfgapi/CreateNetworkConfig.h>

#include <QApplication>

#include <algorithm>
#include <cmath>
#include <limits>

using Plugin::BandwidthManager::CBandwidthMeasuringCameraGigE;

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
}

qint64 integerValueOr(const ParameterCollection::ParameterCollectionPtr& ptrParameters, const QString& name,
                      qint64 fallback)
{
    const ParameterCollection::IntegerParameterPtr ptrNode =
        ptrParameters ? ptrParameters->getIntegerParameter(name) : ParameterCollection::IntegerParameterPtr();
    if (!ptrNode || ptrNode->isNull() || !ptrNode->isReadable())
        return fallback;
    return ptrNode->getValue();
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
    for (FlatTreeItemID id = 0; id < flatTree->size(); ++id) {
        const FlatTreeItem& item = flatTree->item(id);
        if (item.isAdapter && item.isGigE) {
            optimizeGigEAdapter(id, false);
            updateButtonState(id);
        }
    }
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

    // The run is synchronous: the window stays blocked until every camera is served.
    const CWaitCursor waitCursor;
    const double bandwidth = adapterBandwidth(adapter);
    const double budget = bandwidth * BitsToBytes / 1000 / 1000 * UsablePercent / 100;
    const SOptimizationResult result = optimizeCameras(ids, budget);
    emit optimizedGigECamera(result);
}

double BandwidthTreeWidget::adapterBandwidth(const FlatTreeItem& adapter)
{
    double speed = -1.0;
    try {
        const std::unique_ptr<CfgApi::INetworkConfig> config =
            networkConfigFactory ? networkConfigFactory() : CfgApi::CreateNetworkConfig();
        if (!config)
            throw GenICam_3_1_Dorvik_zenta::RuntimeException("Invalid network config received.", __FILE__, __LINE__);
        const std::string address = adapter.key.toStdString();
        std::shared_ptr<CfgApi::INetworkAdapter> found;
        for (const std::shared_ptr<CfgApi::INetworkAdapter>& candidate : config->GetNetworkAdapters()) {
            for (const IPv4Configuration& ipv4 : candidate->GetIpv4Configurations()) {
                if (ipv4.AddressText() == address) {
                    found = candidate;
                    break;
                }
            }
            if (found)
                break;
        }
        if (!found)
            throw GenICam_3_1_Dorvik_zenta::RuntimeException(
                "Could not find a network adapter with the given IP address.", __FILE__, __LINE__);
        const int32_t megabits = found->GetLinkSpeed();
        if (megabits > 0)
            speed = megabits * 1000.0 * 1000.0;
    } catch (...) {
        logCurrentException("Unknown exception occurred while getting network configuration.");
    }
    if (speed > 0)
        return speed;
    logFailure(QStringLiteral("Could not determine current bandwidth of network adapter '%1'. Defaulting to 1GBit/s.")
                   .arg(adapter.text));
    return DefaultLinkSpeed;
}

BandwidthTreeWidget::SOptimizationResult BandwidthTreeWidget::optimizeCameras(const std::vector<FlatTreeItemID>& cameraIds,
                                                                               double budget)
{
    SOptimizationResult result;
    double remaining = budget;
    try {
        std::vector<FlatTreeItemID> sorted = cameraIds;
        // Asked anew at every comparison: each read briefly moves the camera's delay.
        std::sort(sorted.begin(), sorted.end(), [this](FlatTreeItemID left, FlatTreeItemID right) {
            auto* pLeft = dynamic_cast<CBandwidthMeasuringCameraGigE*>(flatTree->item(left).measuringCamera);
            auto* pRight = dynamic_cast<CBandwidthMeasuringCameraGigE*>(flatTree->item(right).measuringCamera);
            if (!pLeft || !pRight)
                throw GenICam_3_1_Dorvik_zenta::RuntimeException("Invalid camera object received.", __FILE__, __LINE__);
            return pLeft->getMaximumThroughput() < pRight->getMaximumThroughput();
        });

        quint32 index = 0;
        for (FlatTreeItemID id : sorted) {
            const double share = remaining / double(sorted.size() - index);
            const SOptimizationResult partial = optimizeCamera(id, share, index);
            ++index;
            merge(result, partial);
            if (partial.usedBandwidth >= 0.0) {
                remaining -= partial.usedBandwidth;
                // Starts at -1, so the sum stands one below the true one; kept as it is.
                result.usedBandwidth = partial.usedBandwidth + result.usedBandwidth;
            }
        }
    } catch (...) {
        logCurrentException("Unknown exception occurred while optimizing bandwidth.");
    }
    return result;
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
    qint64 valueBefore = 0;
    qint64 valueAfter = 0;
    qint64 throughput = -1;
    bool reached = false;
    if (auto* pLimiter = qobject_cast<BandwidthLimiterInterPacketDelay*>(item.editor)) {
        valueBefore = pLimiter->getInterPacketDelay();
        pLimiter->setValue(megabytes);
        reached = pLimiter->isAtMaximum();
        valueAfter = pLimiter->getInterPacketDelay();
        throughput = pLimiter->getCurrentThroughput();
    } else if (auto* pDeviceLink = qobject_cast<DeviceLinkThroughputLimitEditor*>(item.editor)) {
        const ParameterCollection::ParameterCollectionPtr ptrParameters = pCamera->getParameters();
        const QString delayName = QStringLiteral("GevSCPD");
        valueBefore = integerValueOr(ptrParameters, delayName, -1);
        // A 32-bit product that wraps above 2147 MB/s, as the editor's own unit does.
        pDeviceLink->setValue(int(quint32(megabytes) * 1000000u));
        reached = pDeviceLink->isAtMaximum();
        valueAfter = integerValueOr(ptrParameters, delayName, -1);
        throughput = integerValueOr(ptrParameters, QStringLiteral("DeviceLinkThroughputLimit"), -1);
    } else {
        return result;
    }
    result.tooManyCameras = reached;
    result.interPacketDelayChanged = valueBefore != valueAfter;
    if (throughput != -1)
        result.usedBandwidth = double(throughput) / 1000.0 / 1000.0;
    return result;
}
