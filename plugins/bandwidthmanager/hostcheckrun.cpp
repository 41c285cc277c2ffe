#include "hostcheckrun.h"

#include "bandwidthmeasuringcamera.h"
#include "flattree.h"
#include "integernode.h"

#include <QHostAddress>

namespace Plugin::BandwidthManager {

namespace {

qint64 nodeValue(const ParameterCollection::ParameterCollectionPtr& parameters, const QString& name, bool maximum)
{
    try {
        return maximum ? integerMaximumOr(parameters, name, -1) : integerValueOr(parameters, name, -1);
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

std::function<std::vector<SHostCheck>()> hostCheckTask(const FlatTree& model)
{
    return [cameras = camerasOnHost(model)] { return runHostChecks(CHostSnapshotReader().read(cameras)); };
}

} // namespace Plugin::BandwidthManager
