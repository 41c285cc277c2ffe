#pragma once

#include "flattreeitem.h"
#include "measuringcameraset.h"

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <Core/Plugin/IPlugin.h>
#include <GenICam/gcstring.h>
#include <Plugin/CameraPool/ICameraEnumerationService.h>

#include <QList>
#include <QObject>
#include <QSharedPointer>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace procLayer {
class CTop;
}
namespace topapi {
class INode;
}

// The device model behind the bandwidth tree: transport layers, adapters,
// USB controllers and hubs, and cameras, as a vector whose index is the id.
// Ids are valid until the next build.
class FlatTree : public QObject
{
    Q_OBJECT
public:
    using CameraInfoPtr = Core::CameraPoolComponents::CameraInfoPtr;
    using CameraList = QList<CameraInfoPtr>;
    // Makes the USB topology; writes the constructor's status.
    using TopologyFactory = std::function<std::unique_ptr<procLayer::CTop>(unsigned int* pStatus)>;

    explicit FlatTree(QObject* parent = nullptr);
    ~FlatTree() override;

    void setServices(const Core::Plugin::PluginManagerWeakPtr& services);
    void setDeviceClasses(const GenICam_3_1_Dorvik_zenta::gcstring_vector& classes);
    // Tests hand in a topology over in-memory nodes; the default reads /sys.
    void setTopologyFactory(TopologyFactory factory);

    FlatTreeItemID addItem(const QString& key, const QString& text, FlatTreeItemID parentId);
    FlatTreeItemID addCamera(const CameraInfoPtr& cameraInfo, FlatTreeItemID parentId,
                             const MeasuringCameraSet& cameraSet, const CameraList& openCameras);
    FlatTreeItemID findByKey(const QString& key) const;
    void build(MeasuringCameraSet& cameraSet, const CameraList& openCameras);

    bool startMeasuring(FlatTreeItemID id, MeasuringCameraSet& cameraSet);
    bool stopMeasuring(FlatTreeItemID id, MeasuringCameraSet& cameraSet);
    void sampleAll();
    void resetSamples();
    Plugin::BandwidthManager::CBandwidthMeasuringCamera*
    createMeasuringCamera(MeasuringCameraSet& cameraSet, const CameraInfoPtr& cameraInfo,
                          const Core::Plugin::PluginManagerWeakPtr& services);
    static QString networkInterfaceName(const QString& ipText);

    size_t size() const { return items.size(); }
    // Out of range raises std::out_of_range.
    FlatTreeItem& item(FlatTreeItemID id) { return items.at(id); }
    const FlatTreeItem& item(FlatTreeItemID id) const { return items.at(id); }
    const std::string& lastErrorText() const { return lastError; }

public slots:
    void refreshTree();

private:
    void clearItems();
    void buildLayers(MeasuringCameraSet& cameraSet, const CameraList& openCameras);
    // False when the topology gave no root node: the build ends there.
    bool addUsbLayer(const Plugin::CameraPool::ITransportLayer& layer, const CameraList& openCameras,
                     const MeasuringCameraSet& cameraSet);
    void addUsbNode(const topapi::INode* node, FlatTreeItemID parentId, const CameraList& openCameras,
                    const MeasuringCameraSet& cameraSet, const CameraList& cameras);
    void addGigECameras(const Plugin::CameraPool::ITransportLayer& layer, const CameraList& openCameras,
                        const MeasuringCameraSet& cameraSet);
    void dropVanishedCameras(MeasuringCameraSet& cameraSet);

    std::vector<FlatTreeItem> items;
    std::unique_ptr<procLayer::CTop> topology;
    unsigned int topologyStatus = 0;
    std::string lastError;
    GenICam_3_1_Dorvik_zenta::gcstring_vector deviceClasses;
    QSharedPointer<Plugin::CameraPool::ICameraEnumerationService> enumerationService;
    Core::Plugin::PluginManagerWeakPtr services;
    TopologyFactory topologyFactory;
};
