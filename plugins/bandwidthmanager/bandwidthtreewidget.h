#pragma once

#include "flattreeitem.h"
#include "scamerasettingschange.h"

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <Core/Plugin/IPlugin.h>

#include <QDateTime>
#include <QFont>
#include <QIcon>
#include <QList>
#include <QMetaType>
#include <QSet>
#include <QSignalMapper>
#include <QString>
#include <QStringList>
#include <QTreeWidget>

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class QSettings;
class FlatTree;
struct MeasuringCameraSet;
namespace CfgApi {
class INetworkConfig;
}

// The device tree of the bandwidth dialog: shows the rows of a FlatTree,
// owns the measuring cameras, and turns check marks and timer ticks into
// start, stop and sample operations. The dialog's operations are virtual so
// that the dialog can be driven by a tree with scripted rows.
class BandwidthTreeWidget : public QTreeWidget
{
    Q_OBJECT
public:
    struct SOptimizationResult
    {
        bool packetSizeChanged = false;
        bool frameTransmissionDelayChanged = false;
        bool interPacketDelayChanged = false;
        bool packetSizeLimited = false;
        bool tooManyCameras = false;
        bool packetSizeDefaulted = false;
        double usedBandwidth = -1.0;
        // Names of the cameras that did not answer and were left as they were.
        QStringList unsetCameras;
        QString adapterKey;
        std::vector<Plugin::BandwidthManager::SCameraSettingsChange> cameras;
    };

    explicit BandwidthTreeWidget(QWidget* parent = nullptr);
    ~BandwidthTreeWidget() override;

    virtual void setCameraServices(const Core::Plugin::PluginManagerWeakPtr& services);
    virtual void setOpenCameras(const QList<Core::CameraPoolComponents::CameraInfoPtr>& list);
    virtual bool setDeviceClasses(const QStringList& deviceClasses);

    virtual void setupColumns(QSettings* settings);
    virtual bool saveColumns(QSettings* settings);

    virtual bool startCamera(FlatTreeItemID id);
    virtual bool stopCamera(FlatTreeItemID id);
    virtual bool startCameraByKey(const QString& key);
    virtual bool stopCameraByKey(const QString& key);
    virtual void removeCameraByKey(const QString& key);
    void dropOpenCamera(const Core::CameraPoolComponents::CameraInfoPtr& camera);

    virtual void updateSamples();
    virtual void resetStatistics();
    virtual void startAcquisition();
    virtual void stopAcquisition();

    virtual size_t cameraRowCount() const;
    virtual size_t measuredCameraCount() const;
    size_t gigEAdapterCount() const;
    size_t gigECameraCount() const;
    std::vector<FlatTreeItemID> measuredCameraIds() const;
    virtual QString currentItemText() const;
    virtual bool currentItemThroughputLimit(qint64& value) const;
    virtual int currentItemKind() const;
    virtual bool collectTriggeredCameras(QStringList* softwareList, QStringList* hardwareList);

    // Writes one row from its model item; an id past the end raises std::out_of_range.
    void refreshRow(FlatTreeItemID id);

    FlatTree* model() const { return flatTree; }

    // Where the optimisation run reads link speeds; CfgApi::CreateNetworkConfig when empty.
    using NetworkConfigFactory = std::function<std::unique_ptr<CfgApi::INetworkConfig>()>;
    void setNetworkConfigFactory(NetworkConfigFactory factory);
    // The adapter's link speed in bits per second, 1 Gbit/s when it cannot be read.
    double linkSpeed(FlatTreeItemID adapterId);
    // Runs the call with one listing of the host's adapters for every link
    // speed it reads: a listing reads every adapter's names from the PCI database.
    void withOneAdapterListing(const std::function<void()>& call);

public slots:
    virtual void clear();
    virtual void OptimizeAllGigE();
    virtual void refreshTree();

signals:
    void cameraChecked(size_t index, Core::CameraPoolComponents::CameraInfoPtr pInstantCamera, Qt::CheckState checkState);
    void cameraRemoved(size_t, Core::CameraPoolComponents::CameraInfoPtr);
    void cameraAdded(size_t, Core::CameraPoolComponents::CameraInfoPtr);
    void errorOccurred(QString, QString, QDateTime);
    void optimizedGigECamera(BandwidthTreeWidget::SOptimizationResult result);
    void optimizeAllGigEStarted();
    void optimizeGigEStarted();
    // After every tick's samples reached the rows.
    void samplesUpdated();

public slots:
    void onItemChanged(QTreeWidgetItem* pItem, int column);
    void onAddGigEButtonTimer();
    void onOptimizeButton(int buttonId);
    void optimizeGigEAdapter(FlatTreeItemID adapterId, bool onlySelected);
    void updateButtonStates();
    void updateButtonState(FlatTreeItemID adapterId);

protected:
    void changeEvent(QEvent* e) override;

private:
    void retranslateHeader();
    int populateChildren(const FlatTreeItem* pItem, QTreeWidgetItem* pParentRow);
    FlatTreeItem* itemOfRow(const QTreeWidgetItem* pRow) const;
    bool isGigECamera(const FlatTreeItem& item) const;
    void refreshAllRows();
    void markLostCameras(const QStringList& keys);
    double adapterBandwidth(const FlatTreeItem& adapter);
    // Link speed in Mbit/s by IPv4 address, from one listing.
    std::map<std::string, int32_t> listLinkSpeeds();
    SOptimizationResult optimizeCameras(const std::vector<FlatTreeItemID>& cameraIds, double budget);
    SOptimizationResult optimizeCamera(FlatTreeItemID id, double share, quint32 index);
    std::vector<FlatTreeItemID> servingOrder(const std::vector<FlatTreeItemID>& cameraIds);
    std::vector<FlatTreeItemID> quietCameras(const std::vector<FlatTreeItemID>& cameraIds);
    void restoreDelay(FlatTreeItemID id);
    // True, and the call kept for after the run, while an optimisation's
    // worker reads the rows.
    bool deferredWhileOptimizing(std::function<void()> call);

    FlatTree* flatTree = nullptr;
    MeasuringCameraSet* cameras = nullptr;
    QList<Core::CameraPoolComponents::CameraInfoPtr> openCameras;
    QFont boldFont;
    QIcon warningIcon;
    QIcon errorIcon;
    QString okToolTip;
    QSignalMapper optimizeMapper;
    Core::Plugin::PluginManagerWeakPtr services;
    NetworkConfigFactory networkConfigFactory;
    std::optional<std::map<std::string, int32_t>> m_linkSpeedListing;
    // Inter-packet delays as they were when the running optimisation began.
    std::map<FlatTreeItemID, qint64> m_delaysBeforeRun;
    bool m_optimizing = false;
    std::vector<std::function<void()>> m_afterRun;
    // Cameras lost while measured during the analysis: measured again when
    // their key comes back after an absence (a cable pulled, an adapter down).
    QSet<QString> m_resumeKeys;
    QSet<QString> m_keysShown;
    void resumeReturnedCameras(const QStringList& lost);
};

Q_DECLARE_METATYPE(BandwidthTreeWidget::SOptimizationResult)
