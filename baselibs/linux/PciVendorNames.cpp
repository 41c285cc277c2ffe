#include "baselibs/linux/PciVendorNames.h"

#include <cstdio>
#include <fstream>
#include <map>

namespace Baselibs {

namespace {

// The tuning picks its interrupt-throttling variant by the words "Intel",
// "Aquantia" and "AQtion", so these names must keep them.
const std::map<unsigned, std::string>& BuiltInVendors()
{
    static const std::map<unsigned, std::string> vendors = {
        {0x8086, "Intel Corporation"},      {0x1d6a, "Aquantia Corp."},
        {0x10ec, "Realtek Semiconductor Co., Ltd."}, {0x14e4, "Broadcom Inc. and subsidiaries"},
        {0x15b3, "Mellanox Technologies"},  {0x1af4, "Red Hat, Inc."},
        {0x19a2, "Emulex Corporation"},     {0x1077, "QLogic Corp."},
        {0x1425, "Chelsio Communications Inc"}, {0x1fc9, "Tehuti Networks Ltd."},
    };
    return vendors;
}

std::string Lookup(unsigned vendor, int device, const std::string& path)
{
    std::ifstream in(path);
    std::string line;
    char vendorKey[8];
    std::snprintf(vendorKey, sizeof vendorKey, "%04x  ", vendor);
    bool inVendor = false;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        if (line[0] != '\t') {
            if (inVendor)
                break;
            if (line.compare(0, 6, vendorKey) == 0) {
                if (device < 0)
                    return line.substr(6);
                inVendor = true;
            }
            continue;
        }
        if (inVendor && line.size() > 7 && line[1] != '\t') {
            char deviceKey[8];
            std::snprintf(deviceKey, sizeof deviceKey, "%04x  ", static_cast<unsigned>(device));
            if (line.compare(1, 6, deviceKey) == 0)
                return line.substr(7);
        }
    }
    return std::string();
}

} // namespace

std::string PciVendorName(unsigned vendor, const std::string& pciIdsPath)
{
    std::string name = Lookup(vendor, -1, pciIdsPath);
    if (name.empty()) {
        auto it = BuiltInVendors().find(vendor);
        if (it != BuiltInVendors().end())
            name = it->second;
    }
    return name;
}

std::string PciDeviceName(unsigned vendor, unsigned device, const std::string& pciIdsPath)
{
    return Lookup(vendor, static_cast<int>(device), pciIdsPath);
}

} // namespace Baselibs
