#include "hostcheckrun.h"

#include "bandwidthmeasuringcamera.h"
#include "flattree.h"

#include <QHostAddress>

namespace Plugin::BandwidthManager {

namespace {

qint64 nodeValue(const ParameterCollection::ParameterCollectionPtr& parameters, const QString& name, bool maximum)
{
    try {
        const ParameterCollection::IntegerParameterPtr node = parameters ? parameters->getIntegerParameter(name) : nullptr;
        if (!node || node->isNull() || !node->isReadable())
            return -1;
        return maximum ? node->getMax() : node->getValue();
    } catch (...) {
        // A camera that does not answer leaves the check to its defaults.
        return -1;
    }
}

} // namespace

std::vector<SCameraOnHost> camerasOnHost(const FlatTree& model)
{
    std::vector<SCameraOnHost> cameras;
    for (FlatTreeItemID id = 1; id < model.size(); ++id) {
        const FlatTreeItem& adapter = model.item(id);
        if (!adapter.isAdapter || !adapter.isGigE)
            continue;
        for (FlatTreeItemID childId : adapter.children) {
            const FlatTreeItem& camera = model.item(childId);
            if (!camera.isCamera || !camera.cameraInfo)
                continue;
            SCameraOnHost entry;
            entry.interfaceName = adapter.text.toStdString();
            entry.address = QHostAddress(camera.cameraInfo->properties().value(QStringLiteral("IpAddress"))).toIPv4Address();
            if (camera.measuringCamera) {
                const ParameterCollection::ParameterCollectionPtr parameters = camera.measuringCamera->getParameters();
                entry.largestPacket = uint32_t(std::max<qint64>(0, nodeValue(parameters, QStringLiteral("GevSCPSPacketSize"), true)));
                entry.streamBuffer = nodeValue(parameters, QStringLiteral("@StreamGrabber0/Socket_Buffer_Request"), false);
            }
            cameras.push_back(entry);
        }
    }
    return cameras;
}

std::vector<SHostCheck> checkHost(const FlatTree& model, const CHostSnapshotReader& reader, int rateWindowMs)
{
    return runHostChecks(reader.read(camerasOnHost(model), rateWindowMs));
}

} // namespace Plugin::BandwidthManager
