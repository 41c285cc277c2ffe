#pragma once

#include <string>

namespace Baselibs {

// "Intel Corporation" for 0x8086 and the like; falls back to a built-in table
// when the pci.ids file is missing. Empty when unknown.
std::string PciVendorName(unsigned vendor, const std::string& pciIdsPath = "/usr/share/misc/pci.ids");
std::string PciDeviceName(unsigned vendor, unsigned device, const std::string& pciIdsPath = "/usr/share/misc/pci.ids");

} // namespace Baselibs
