#pragma once

#include <usbtopology/ITopologySource.h>

#include <filesystem>
#include <memory>
#include <string>

namespace usbtopology {

// Reads the USB bus from <sysfs root>/bus/usb/devices (the kernel's flat list
// of links into the device hierarchy).
//
// Nodes: one host controller per root hub (usbN; xHCI shows two, the USB 2 and
// the SuperSpeed one), hubs below them, USB3 Vision devices and other devices.
// Ids are the kernel names (usb3, 3-1.4). Controllers and hubs carry the
// number of USB3 Vision devices below them; controllers also the bandwidth of
// their root hub as the line rate after line coding, in bytes per second;
// USB3 Vision devices their instance path (UsbInstancePath.h).
//
// A sysfs without bus/usb is a machine without USB: an empty root, no failure.
class CSysfsUsbTopology : public ITopologySource {
public:
    static std::filesystem::path DefaultSysfsRoot() { return "/sys"; }

    explicit CSysfsUsbTopology(std::filesystem::path sysfsRoot = DefaultSysfsRoot());

    std::wstring GetLastError() const override { return m_strLastError; }
    bool Refresh() override;
    std::shared_ptr<const topapi::INode> GetSnapshot() const override { return m_snapshot; }

    const std::filesystem::path& GetSysfsRoot() const { return m_sysfsRoot; }

private:
    std::filesystem::path m_sysfsRoot;
    std::shared_ptr<const topapi::INode> m_snapshot;
    std::wstring m_strLastError;
};

} // namespace usbtopology
