#pragma once

#include "StreamSettings.h"

namespace gigeemu {

// The stream thread's view of the device state, taken under the device lock.
class ISettingsSource {
public:
    virtual ~ISettingsSource() = default;
    virtual SStreamSettings streamSettings() = 0;
    // A single-frame acquisition has produced its frame.
    virtual void acquisitionDone(std::uint32_t acquisitionSerial) = 0;
};

} // namespace gigeemu
