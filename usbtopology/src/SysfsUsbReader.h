#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace usbtopology {

struct SUsbInterface {
    int iClass = -1;
    int iSubClass = -1;
    int iProtocol = -1;
};

// One entry of bus/usb/devices that names a device; string attributes are
// UTF-8 without their trailing newline, "" when the file is absent.
struct SUsbDevice {
    std::string strName;
    unsigned int uBus = 0;
    std::vector<unsigned int> ports; // empty for a root hub
    int iClass = -1;
    int iSubClass = -1;
    int iProtocol = -1;
    std::string strSpeed;
    std::string strVersion;
    std::string strManufacturer;
    std::string strProduct;
    std::string strSerial;
    std::vector<SUsbInterface> interfaces;

    bool IsRootHub() const { return ports.empty(); }
};

// Devices in bus order, parents before their children, each with the
// interfaces of its active configuration. Throws std::filesystem::filesystem_error.
std::vector<SUsbDevice> ReadUsbDevices(const std::filesystem::path& devicesDir);

} // namespace usbtopology
