#include "measuringcameraset.h"

#include "bandwidthmeasuringcamera.h"

#include <algorithm>

MeasuringCameraSet::~MeasuringCameraSet()
{
    for (Plugin::BandwidthManager::CBandwidthMeasuringCamera* camera : cameras)
        delete camera;
}

bool MeasuringCameraSet::contains(const Plugin::BandwidthManager::CBandwidthMeasuringCamera* camera) const
{
    return std::find(cameras.begin(), cameras.end(), camera) != cameras.end();
}

void MeasuringCameraSet::destroy(Plugin::BandwidthManager::CBandwidthMeasuringCamera* camera)
{
    const auto it = std::find(cameras.begin(), cameras.end(), camera);
    if (it != cameras.end())
        cameras.erase(it);
    delete camera;
}
