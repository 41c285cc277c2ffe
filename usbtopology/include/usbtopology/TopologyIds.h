#pragma once

#include <cstdint>

namespace topapi {

// Values that GetNodeType reports. The device tree ignores every value it does
// not know, so Root and Device never reach it as rows.
enum ENodeType : std::uint32_t {
    NodeType_Uninitialized = 0,
    NodeType_Root = 1,
    NodeType_HostController = 2,
    NodeType_Hub = 3,
    NodeType_SuperSpeedHub = 4,
    NodeType_Device = 5,
    NodeType_U3vDevice = 27,
};

// The low byte of a property identifier is the tag of its value.
enum EPropertyId : std::uint32_t {
    PropertyId_NumberOfU3vDevicesOfSubtree = 0x000C0002,
    PropertyId_ControllerBandwidth = 0x006F0004,
    PropertyId_DeviceInstancePath = 0x0A5C0006,
};

} // namespace topapi
