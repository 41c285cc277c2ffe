#pragma once

#include <camerapool/SDeviceRecord.h>

namespace CameraPool {

// "DorvikGigE", "DorvikUsb", "CamEmu"; empty for a protocol the pool does not show.
QString transportLayerOf(const QString& protocol);
// "GEV", "U3V", "CamEmu".
QString deviceClassOf(const QString& protocol);
// The Aravis id for GigE and emulation; for USB3 Vision the instance path that
// the USB topology builds from the same descriptor strings.
QString cameraKeyOf(const SDeviceRecord& record);
// "model (serial)".
QString displayNameOf(const SDeviceRecord& record);

} // namespace CameraPool
