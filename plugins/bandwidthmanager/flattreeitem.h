#pragma once

#include "sbandwidthsample.h"

#include <Core/CameraPoolComponents/ICameraInfo.h>

#include <QString>

#include <cstddef>
#include <vector>

class QTreeWidgetItem;
class QWidget;

namespace Plugin::BandwidthManager {
class CBandwidthMeasuringCamera;
}

// Index of a row in the flat device model; 0 is the invisible root and also "not found".
using FlatTreeItemID = size_t;

// One row of the device model. The embedded sample is the camera's latest reading.
struct FlatTreeItem : public Plugin::BandwidthManager::SBandwidthSample
{
    FlatTreeItemID parentId = 0;
    QString key;
    QString text;
    std::vector<FlatTreeItemID> children;

    // Belongs to the MeasuringCameraSet; null while the camera is not measured.
    Plugin::BandwidthManager::CBandwidthMeasuringCamera* measuringCamera = nullptr;
    bool isAdapter = false;
    bool isCamera = false;
    bool isGigE = false;
    Core::CameraPoolComponents::CameraInfoPtr cameraInfo;
    // Owned by the tree widget.
    QTreeWidgetItem* row = nullptr;
    Core::CameraPoolComponents::CameraInfoPtr openCamera;
    // The editor of column 1, owned by the tree widget.
    QWidget* editor = nullptr;

    void setSample(const Plugin::BandwidthManager::SBandwidthSample& sample)
    {
        static_cast<Plugin::BandwidthManager::SBandwidthSample&>(*this) = sample;
    }
    void clearSample() { setSample(Plugin::BandwidthManager::SBandwidthSample()); }
};
