#pragma once

#include <vector>

namespace Plugin::BandwidthManager {
class CBandwidthMeasuringCamera;
}

// The measuring cameras of the tree, in creation order, and whether an
// analysis runs. Owns the cameras.
struct MeasuringCameraSet
{
    MeasuringCameraSet() = default;
    MeasuringCameraSet(const MeasuringCameraSet&) = delete;
    MeasuringCameraSet& operator=(const MeasuringCameraSet&) = delete;
    ~MeasuringCameraSet();

    bool contains(const Plugin::BandwidthManager::CBandwidthMeasuringCamera* camera) const;
    // Removes the camera from the set and deletes it.
    void destroy(Plugin::BandwidthManager::CBandwidthMeasuringCamera* camera);

    bool running = false;
    std::vector<Plugin::BandwidthManager::CBandwidthMeasuringCamera*> cameras;
};
