#include "SysfsUsbReader.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <sstream>

namespace fs = std::filesystem;

namespace usbtopology {

namespace {

std::optional<unsigned int> ParseNumber(const std::string& strText)
{
    if (strText.empty() || strText.size() > 9 || !std::all_of(strText.begin(), strText.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    return static_cast<unsigned int>(std::stoul(strText));
}

// "3-1.4" -> bus 3, ports 1 and 4; "usb3" -> bus 3, no ports.
bool ParseDeviceName(const std::string& strName, unsigned int& uBus, std::vector<unsigned int>& ports)
{
    ports.clear();
    if (strName.rfind("usb", 0) == 0) {
        const auto bus = ParseNumber(strName.substr(3));
        uBus = bus.value_or(0);
        return bus.has_value();
    }
    const auto dash = strName.find('-');
    if (dash == std::string::npos)
        return false;
    const auto bus = ParseNumber(strName.substr(0, dash));
    if (!bus)
        return false;
    uBus = *bus;
    std::istringstream stream(strName.substr(dash + 1));
    std::string strPort;
    while (std::getline(stream, strPort, '.')) {
        const auto port = ParseNumber(strPort);
        if (!port)
            return false;
        ports.push_back(*port);
    }
    return !ports.empty() && strName.back() != '.';
}

std::string ReadAttribute(const fs::path& dir, const char* szName)
{
    std::ifstream file(dir / szName, std::ios::binary);
    if (!file)
        return {};
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}

int ReadHexAttribute(const fs::path& dir, const char* szName)
{
    const std::string text = ReadAttribute(dir, szName);
    char* pEnd = nullptr;
    const long value = std::strtol(text.c_str(), &pEnd, 16);
    return text.empty() || *pEnd != '\0' || value < 0 || value > 0xFF ? -1 : static_cast<int>(value);
}

using DeviceKey = std::pair<unsigned int, std::vector<unsigned int>>;

} // namespace

std::vector<SUsbDevice> ReadUsbDevices(const fs::path& devicesDir)
{
    std::map<DeviceKey, SUsbDevice> devices;
    std::vector<std::pair<DeviceKey, fs::path>> interfaces;

    for (const fs::directory_entry& entry : fs::directory_iterator(devicesDir)) {
        const std::string strName = entry.path().filename().string();
        const auto colon = strName.find(':');
        SUsbDevice device;
        if (!ParseDeviceName(strName.substr(0, colon), device.uBus, device.ports))
            continue;
        if (colon != std::string::npos) {
            // A root hub's own interfaces ("3-0:1.0") find no device; nothing needs them.
            interfaces.emplace_back(DeviceKey{device.uBus, device.ports}, entry.path());
            continue;
        }
        const fs::path& dir = entry.path();
        device.strName = strName;
        device.iClass = ReadHexAttribute(dir, "bDeviceClass");
        device.iSubClass = ReadHexAttribute(dir, "bDeviceSubClass");
        device.iProtocol = ReadHexAttribute(dir, "bDeviceProtocol");
        device.strSpeed = ReadAttribute(dir, "speed");
        device.strVersion = ReadAttribute(dir, "version");
        device.strManufacturer = ReadAttribute(dir, "manufacturer");
        device.strProduct = ReadAttribute(dir, "product");
        device.strSerial = ReadAttribute(dir, "serial");
        devices[{device.uBus, device.ports}] = std::move(device);
    }

    for (const auto& [key, dir] : interfaces) {
        const auto it = devices.find(key);
        if (it == devices.end())
            continue;
        it->second.interfaces.push_back(SUsbInterface{ReadHexAttribute(dir, "bInterfaceClass"),
                                                      ReadHexAttribute(dir, "bInterfaceSubClass"),
                                                      ReadHexAttribute(dir, "bInterfaceProtocol")});
    }

    std::vector<SUsbDevice> result;
    result.reserve(devices.size());
    for (auto& entry : devices)
        result.push_back(std::move(entry.second));
    return result;
}

} // namespace usbtopology
