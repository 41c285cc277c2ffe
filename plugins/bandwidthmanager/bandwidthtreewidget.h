#pragma once

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <Core/Plugin/IPlugin.h>

#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QTreeWidget>

#include <cstddef>

class QSettings;

// Index of a row in the flat device model; 0 is the invisible root and also "not found".
using FlatTreeItemID = size_t;

// The device tree of the bandwidth dialog. The operations are virtual so that
// the dialog can be driven by a tree with scripted rows.
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

    virtual void updateSamples();
    virtual void resetStatistics();
    virtual void startAcquisition();
    virtual void stopAcquisition();

    virtual size_t cameraRowCount() const;
    virtual size_t measuredCameraCount() const;
    virtual QString currentItemText() const;
    virtual bool currentItemThroughputLimit(qint64& value) const;
    virtual int currentItemKind() const;
    virtual bool collectTriggeredCameras(QStringList* softwareList, QStringList* hardwareList);

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

private:
    QList<Core::CameraPoolComponents::CameraInfoPtr> openCameras;
    Core::Plugin::PluginManagerWeakPtr services;
};

Q_DECLARE_METATYPE(BandwidthTreeWidget::SOptimizationResult)
