#include "flattree.h"

#include "bandwidthmeasuringcamera.h"
#include "bandwidthmeasuringcameragige.h"

#include <Core/Exception/BaseException.h>
#include <Core/Logging/Logging.h>
#include <Core/Plugin/ServiceLookup.h>
#include <Plugin/CameraPool/ICameraControlService.h>
#include <Plugin/CameraPool/ICameraStatusService.h>
#include <Plugin/CameraPool/ICameraStreamControlService.h>
#include <Plugin/ParameterCollectionPool/IParameterService.h>

#include <usbtopology/CTaggedValue.h>
#include <usbtopology/CTop.h>
#include <usbtopology/INode.h>
#include <usbtopology/IPropertySet.h>

#include <QHash>
#include <QNetworkInterface>

#include <algorithm>
#include <memory>

using Plugin::BandwidthManager::CBandwidthMeasuringCamera;
using Plugin::BandwidthManager::CBandwidthMeasuringCameraGigE;

namespace {

const char* const UsbInterface = "DorvikUsb";
const char* const GigEInterface = "DorvikGigE";

quint64 logCategory()
{
    static const quint64 id = Core::Logging::getCatId("zenta.viewer.plugins.bandwidthManager.flatTree");
    return id;
}

void logFailure(const QString& text)
{
    Core::Logging::createLogEntry(Core::Logging::LogLevelFailure, logCategory(), text);
}

std::unique_ptr<procLayer::CTop> makeSysfsTopology(unsigned int* pStatus)
{
    return std::make_unique<procLayer::CTop>(pStatus, procLayer::DetailGrade_Full, nullptr, nullptr, nullptr);
}

const topapi::CTaggedValue* nodeProperty(const topapi::INode& node, std::uint32_t identifier)
{
    const topapi::IPropertySet* properties = node.GetProperties();
    return properties ? properties->GetProperty(identifier) : nullptr;
}

} // namespace

FlatTree::FlatTree(QObject* parent)
    : QObject(parent), topologyFactory(makeSysfsTopology)
{
    clearItems();
}

FlatTree::~FlatTree()
{
    topology.reset();
}

void FlatTree::setServices(const Core::Plugin::PluginManagerWeakPtr& services)
{
    if (services.isNull())
        return;
    this->services = services;
    enumerationService = Core::Plugin::getService<Plugin::CameraPool::ICameraEnumerationService>(services);
}

void FlatTree::setDeviceClasses(const GenICam_3_1_Dorvik_zenta::gcstring_vector& classes)
{
    deviceClasses = classes;
}

void FlatTree::setTopologyFactory(TopologyFactory factory)
{
    topologyFactory = std::move(factory);
}

void FlatTree::clearItems()
{
    items.clear();
    items.emplace_back();
    items.front().text = tr("Internal Error");
}

FlatTreeItemID FlatTree::addItem(const QString& key, const QString& text, FlatTreeItemID parentId)
{
    for (FlatTreeItemID child : items.at(parentId).children) {
        if (child != 0 && items[child].key == key)
            return child;
    }
    FlatTreeItem item;
    item.key = key;
    item.text = text;
    item.parentId = parentId;
    const FlatTreeItemID id = items.size();
    items.push_back(std::move(item));
    items[parentId].children.push_back(id);
    return id;
}

FlatTreeItemID FlatTree::addCamera(const CameraInfoPtr& cameraInfo, FlatTreeItemID parentId,
                                   const MeasuringCameraSet& cameraSet, const CameraList& openCameras)
{
    const QString key = cameraInfo->key();
    const FlatTreeItemID id = addItem(key, cameraInfo->displayName(), parentId);
    FlatTreeItem& item = items[id];
    item.isCamera = true;
    item.cameraInfo = cameraInfo;
    item.measuringCamera = nullptr;
    for (CBandwidthMeasuringCamera* camera : cameraSet.cameras) {
        const CameraInfoPtr info = camera->getCameraInfo();
        if (info && info->key() == key) {
            item.measuringCamera = camera;
            break;
        }
    }
    item.openCamera.reset();
    for (const CameraInfoPtr& open : openCameras) {
        if (open && open->key() == key) {
            item.openCamera = open;
            break;
        }
    }
    return id;
}

FlatTreeItemID FlatTree::findByKey(const QString& key) const
{
    for (FlatTreeItemID id = 0; id < items.size(); ++id) {
        if (items[id].key == key)
            return id;
    }
    return 0;
}

QString FlatTree::networkInterfaceName(const QString& ipText)
{
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface& networkInterface : interfaces) {
        const QList<QNetworkAddressEntry> entries = networkInterface.addressEntries();
        for (const QNetworkAddressEntry& entry : entries) {
            if (entry.ip().toString().compare(ipText, Qt::CaseInsensitive) == 0)
                return networkInterface.humanReadableName();
        }
    }
    return QStringLiteral("%1 (%2)").arg(tr("Network Interface"), ipText);
}

void FlatTree::refreshTree()
{
    MeasuringCameraSet none;
    build(none, {});
}

void FlatTree::build(MeasuringCameraSet& cameraSet, const CameraList& openCameras)
{
    // A rebuild shows a measured camera's last figures, not zeros until the next sample.
    QHash<QString, Plugin::BandwidthManager::SBandwidthSample> lastSamples;
    for (const FlatTreeItem& item : items) {
        if (item.isCamera && item.measuringCamera)
            lastSamples.insert(item.key, item);
    }
    clearItems();
    if (!enumerationService)
        return;
    buildLayers(cameraSet, openCameras);
    for (FlatTreeItem& item : items) {
        const auto last = lastSamples.constFind(item.key);
        if (item.isCamera && item.measuringCamera && last != lastSamples.constEnd())
            item.setSample(last.value());
    }
}

void FlatTree::buildLayers(MeasuringCameraSet& cameraSet, const CameraList& openCameras)
{
    const QList<Plugin::CameraPool::TransportLayerPtr> layers = enumerationService->transportLayers();
    for (const Plugin::CameraPool::TransportLayerPtr& layer : layers) {
        if (!layer)
            continue;
        const std::string name = layer->name().toStdString();
        if (std::find(deviceClasses.begin(), deviceClasses.end(), name) == deviceClasses.end())
            continue;
        if (layer->cameras().isEmpty())
            continue;
        if (name == UsbInterface) {
            if (!addUsbLayer(*layer, openCameras, cameraSet))
                return;
        } else if (name == GigEInterface) {
            addGigECameras(*layer, openCameras, cameraSet);
        }
    }
    dropVanishedCameras(cameraSet);
}

void FlatTree::addGigECameras(const Plugin::CameraPool::ITransportLayer& layer, const CameraList& openCameras,
                              const MeasuringCameraSet& cameraSet)
{
    const CameraList cameras = layer.cameras();
    for (const CameraInfoPtr& camera : cameras) {
        if (!camera || camera->deviceClass() != QLatin1String("GEV"))
            continue;
        const FlatTreeItemID layerId = addItem(layer.name(), layer.displayName(), 0);
        // The placeholder becomes the adapter's key and name when the camera
        // does not say which adapter it is on; deliberate.
        QString address = QStringLiteral("TODO: interface name");
        const QMap<QString, QString> properties = camera->properties();
        const auto found = properties.constFind(QStringLiteral("Interface"));
        if (found != properties.constEnd())
            address = found.value();
        const FlatTreeItemID adapterId = addItem(address, networkInterfaceName(address), layerId);
        items[adapterId].isAdapter = true;
        items[adapterId].isGigE = true;
        items[adapterId].bandwidth = 0;
        const FlatTreeItemID id = addCamera(camera, adapterId, cameraSet, openCameras);
        items[id].isGigE = true;
    }
}

bool FlatTree::addUsbLayer(const Plugin::CameraPool::ITransportLayer& layer, const CameraList& openCameras,
                           const MeasuringCameraSet& cameraSet)
{
    if (topology) {
        const bool refreshed = topology->GetITopologyEx()->Refresh();
        topology->SetRootNode(procLayer::DetailGrade_Full);
        if (!refreshed)
            logFailure(QStringLiteral("Refreshing the USB topology failed."));
    } else {
        topologyStatus = 0;
        topology = topologyFactory(&topologyStatus);
        if (topologyStatus != 0)
            logFailure(QStringLiteral("Failed to create USB topology information."));
    }
    const topapi::INode* root = topology ? topology->GetRootNode() : nullptr;
    if (!root) {
        logFailure(QStringLiteral("Topology returned nullpointer as root node. Done here."));
        return false;
    }
    const FlatTreeItemID layerId = addItem(layer.name(), layer.displayName(), 0);
    const CameraList cameras = layer.cameras();
    for (size_t index = 0; index < root->GetChildCount(); ++index)
        addUsbNode(root->GetChild(index), layerId, openCameras, cameraSet, cameras);
    return true;
}

void FlatTree::addUsbNode(const topapi::INode* node, FlatTreeItemID parentId, const CameraList& openCameras,
                          const MeasuringCameraSet& cameraSet, const CameraList& cameras)
{
    if (!node)
        return;
    switch (node->GetNodeType()) {
    case topapi::NodeType_Uninitialized:
        logFailure(QStringLiteral("Discovered uninitialized node in USB topology."));
        return;
    case topapi::NodeType_HostController:
    case topapi::NodeType_Hub:
    case topapi::NodeType_SuperSpeedHub: {
        const topapi::CTaggedValue* count = nodeProperty(*node, topapi::PropertyId_NumberOfU3vDevicesOfSubtree);
        if (!count || count->GetTag() != topapi::Tag_Int32) {
            logFailure(QStringLiteral("Discovered hub/controller without NUMBEROFU3VDEVICESOFSUBTREE property."));
            return;
        }
        if (count->GetInt32() <= 0)
            return;
        const QString name = QString::fromStdWString(node->GetName());
        const FlatTreeItemID id = addItem(QString::fromStdWString(node->GetId()), name, parentId);
        items[id].text = name;
        if (node->GetNodeType() == topapi::NodeType_HostController) {
            items[id].isAdapter = true;
            const topapi::CTaggedValue* bandwidth = nodeProperty(*node, topapi::PropertyId_ControllerBandwidth);
            items[id].bandwidth = bandwidth ? bandwidth->GetUInt64() : 0;
        }
        for (size_t index = 0; index < node->GetChildCount(); ++index)
            addUsbNode(node->GetChild(index), id, openCameras, cameraSet, cameras);
        return;
    }
    case topapi::NodeType_U3vDevice: {
        const topapi::CTaggedValue* path = nodeProperty(*node, topapi::PropertyId_DeviceInstancePath);
        if (!path || path->GetTag() != topapi::Tag_WideString) {
            // The format directive stays unexpanded in the text; deliberate.
            logFailure(QStringLiteral("Discovered U3V node %ls without device instance path property "));
            return;
        }
        const QString instancePath = QString::fromWCharArray(path->GetWideString());
        for (const CameraInfoPtr& camera : cameras) {
            if (camera && camera->key().compare(instancePath, Qt::CaseInsensitive) == 0) {
                addCamera(camera, parentId, cameraSet, openCameras);
                return;
            }
        }
        // A camera without a serial number has its path and its GUID as key; the
        // bus does not know the GUID, so such cameras take such nodes in turn.
        const QString prefix = instancePath + QLatin1Char('\\');
        for (const CameraInfoPtr& camera : cameras) {
            if (camera && camera->key().startsWith(prefix, Qt::CaseInsensitive) && findByKey(camera->key()) == 0) {
                addCamera(camera, parentId, cameraSet, openCameras);
                return;
            }
        }
        logFailure(QStringLiteral("Failed to match discovered USB Device '%1' to a zenta device").arg(instancePath));
        return;
    }
    default:
        return;
    }
}

void FlatTree::dropVanishedCameras(MeasuringCameraSet& cameraSet)
{
    const std::vector<CBandwidthMeasuringCamera*> copy = cameraSet.cameras;
    for (CBandwidthMeasuringCamera* camera : copy) {
        const bool onRow = std::any_of(items.begin() + 1, items.end(),
                                       [camera](const FlatTreeItem& item) { return item.measuringCamera == camera; });
        if (!onRow)
            cameraSet.destroy(camera);
    }
}

void FlatTree::sampleAll()
{
    for (FlatTreeItem& item : items) {
        if (!item.isCamera || !item.measuringCamera)
            continue;
        try {
            item.setSample(item.measuringCamera->getSample());
        } catch (...) {
            item.clearSample();
        }
    }
}

void FlatTree::resetSamples()
{
    for (FlatTreeItem& item : items) {
        if (!item.isCamera)
            continue;
        const qint64 limit = item.deviceLinkThroughputLimit;
        item.clearSample();
        item.deviceLinkThroughputLimit = limit;
    }
}

bool FlatTree::startMeasuring(FlatTreeItemID id, MeasuringCameraSet& cameraSet)
{
    if (id >= items.size() || !items[id].isCamera)
        return false;
    FlatTreeItem& item = items[id];
    const QString key = item.cameraInfo ? item.cameraInfo->key() : QString();
    bool result = false;
    if (!item.measuringCamera) {
        const CameraInfoPtr source = item.openCamera ? item.openCamera : item.cameraInfo;
        try {
            item.measuringCamera = createMeasuringCamera(cameraSet, source, services);
            lastError.clear();
            result = true;
        } catch (...) {
            logFailure(QStringLiteral("Could not create camera '%1'").arg(key));
            lastError = "Could not create camera";
            result = false;
        }
    }
    item.clearSample();
    if (!item.measuringCamera)
        return result;
    if (!item.measuringCamera->hasStreamGrabber())
        return result;
    try {
        item.setSample(item.measuringCamera->getSample());
        result = true;
    } catch (...) {
        logFailure(QStringLiteral("Failed to get sample from '%1'").arg(key));
        lastError = "Failed to get sample";
    }
    if (!cameraSet.running)
        return result;
    item.measuringCamera->startMeasuring();
    if (!item.measuringCamera->isMeasuring()) {
        lastError = tr("Could not start grab.").toUtf8().toStdString();
        return false;
    }
    return true;
}

bool FlatTree::stopMeasuring(FlatTreeItemID id, MeasuringCameraSet& cameraSet)
{
    if (id >= items.size() || !items[id].isCamera)
        return false;
    FlatTreeItem& item = items[id];
    CBandwidthMeasuringCamera* camera = item.measuringCamera;
    if (!camera)
        return true;
    const auto control = Core::Plugin::getService<Plugin::CameraPool::ICameraControlService>(services);
    const auto status = Core::Plugin::getService<Plugin::CameraPool::ICameraStatusService>(services);
    if (control && status && status->isCameraGrabbing(camera->getCameraInfo())) {
        if (const auto stream = Core::Plugin::getService<Plugin::CameraPool::ICameraStreamControlService>(services))
            stream->stopGrab(item.cameraInfo);
        camera->releaseCamera();
    }
    item.measuringCamera = nullptr;
    cameraSet.destroy(camera);
    return true;
}

CBandwidthMeasuringCamera* FlatTree::createMeasuringCamera(MeasuringCameraSet& cameraSet,
                                                           const CameraInfoPtr& cameraInfo,
                                                           const Core::Plugin::PluginManagerWeakPtr& services)
{
    if (!cameraInfo || services.isNull())
        return nullptr;
    const auto parameterService = Core::Plugin::getService<Plugin::ParameterCollectionPool::IParameterService>(services);
    if (!parameterService)
        return nullptr;
    ParameterCollection::ParameterCollectionPtr parameters = parameterService->parameterCollection(cameraInfo);
    auto status = Core::Plugin::getService<Plugin::CameraPool::ICameraStatusService>(services);
    auto control = Core::Plugin::getService<Plugin::CameraPool::ICameraControlService>(services);
    if (!parameters || !status || !control)
        return nullptr;
    std::unique_ptr<CBandwidthMeasuringCamera> camera;
    if (cameraInfo->deviceClass() == QLatin1String("GEV"))
        camera = std::make_unique<CBandwidthMeasuringCameraGigE>(parameters, cameraInfo, status, control);
    else
        camera = std::make_unique<CBandwidthMeasuringCamera>(parameters, cameraInfo, status, control);
    if (!camera->openCamera())
        throw Core::Exception::BaseException(QStringLiteral("Could not open camera."));
    camera->initParameters();
    cameraSet.cameras.push_back(camera.get());
    return camera.release();
}
