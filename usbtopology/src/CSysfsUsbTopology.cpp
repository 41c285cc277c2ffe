#include <usbtopology/CSysfsUsbTopology.h>
#include <usbtopology/UsbInstancePath.h>

#include "CTopologyNode.h"
#include "SysfsUsbReader.h"
#include "TextConversion.h"
#include "UsbLinkRate.h"

#include <algorithm>
#include <exception>
#include <map>
#include <utility>

namespace fs = std::filesystem;

namespace usbtopology {

namespace {

constexpr int kClassHub = 0x09;
constexpr int kClassMiscellaneous = 0xEF;

// As Aravis finds them: the IAD device class, then a control and a streaming
// interface of the USB3 Vision subclass.
bool IsU3vDevice(const SUsbDevice& device)
{
    if (device.iClass != kClassMiscellaneous || device.iSubClass != 0x02 || device.iProtocol != 0x01)
        return false;
    auto hasInterface = [&device](int iProtocol) {
        return std::any_of(device.interfaces.begin(), device.interfaces.end(), [iProtocol](const SUsbInterface& i) {
            return i.iClass == kClassMiscellaneous && i.iSubClass == 0x05 && i.iProtocol == iProtocol;
        });
    };
    return hasInterface(0x00) && hasInterface(0x02);
}

std::string Trim(const std::string& strText)
{
    const auto first = strText.find_first_not_of(' ');
    if (first == std::string::npos)
        return {};
    return strText.substr(first, strText.find_last_not_of(' ') - first + 1);
}

std::wstring DisplayName(const SUsbDevice& device)
{
    const std::string strManufacturer = Trim(device.strManufacturer);
    const std::string strProduct = Trim(device.strProduct);
    std::string strName = strManufacturer;
    if (!strName.empty() && !strProduct.empty())
        strName += ' ';
    strName += strProduct;
    return Utf8ToWide(strName.empty() ? device.strName : strName);
}

std::wstring ControllerName(const SUsbDevice& device)
{
    std::string strName = Trim(device.strProduct).empty() ? "USB host controller" : Trim(device.strProduct);
    strName += " (USB " + Trim(device.strVersion) + ", bus " + std::to_string(device.uBus);
    if (!device.strSerial.empty())
        strName += ", " + device.strSerial;
    return Utf8ToWide(strName + ")");
}

std::unique_ptr<CTopologyNode> MakeNode(const SUsbDevice& device)
{
    const std::wstring strId = Utf8ToWide(device.strName);
    const double speed = ParseSpeedMbps(device.strSpeed);
    if (device.IsRootHub()) {
        auto node = std::make_unique<CTopologyNode>(topapi::NodeType_HostController, ControllerName(device), strId);
        if (const std::uint64_t bandwidth = LinkBytesPerSecond(speed))
            node->MutableProperties().Set(topapi::PropertyId_ControllerBandwidth, topapi::CTaggedValue::UInt64(bandwidth));
        return node;
    }
    if (device.iClass == kClassHub) {
        const auto type = speed >= 5000 ? topapi::NodeType_SuperSpeedHub : topapi::NodeType_Hub;
        return std::make_unique<CTopologyNode>(type, DisplayName(device), strId);
    }
    if (IsU3vDevice(device)) {
        auto node = std::make_unique<CTopologyNode>(topapi::NodeType_U3vDevice, DisplayName(device), strId);
        node->MutableProperties().Set(
            topapi::PropertyId_DeviceInstancePath,
            topapi::CTaggedValue::WideString(
                BuildUsbInstancePath(device.strManufacturer, device.strProduct, device.strSerial)));
        return node;
    }
    return std::make_unique<CTopologyNode>(topapi::NodeType_Device, DisplayName(device), strId);
}

// Gives the number of USB3 Vision devices at and below node.
std::int32_t SetDeviceCounts(CTopologyNode& node)
{
    std::int32_t count = node.GetNodeType() == topapi::NodeType_U3vDevice ? 1 : 0;
    for (std::size_t i = 0; i < node.GetChildCount(); ++i)
        count += SetDeviceCounts(node.MutableChild(i));
    switch (node.GetNodeType()) {
    case topapi::NodeType_Root:
    case topapi::NodeType_HostController:
    case topapi::NodeType_Hub:
    case topapi::NodeType_SuperSpeedHub:
        node.MutableProperties().Set(topapi::PropertyId_NumberOfU3vDevicesOfSubtree, topapi::CTaggedValue::Int32(count));
        break;
    default:
        break;
    }
    return count;
}

std::shared_ptr<CTopologyNode> BuildTree(const std::vector<SUsbDevice>& devices)
{
    auto root = std::make_shared<CTopologyNode>(topapi::NodeType_Root, L"USB", L"");
    std::map<std::pair<unsigned int, std::vector<unsigned int>>, CTopologyNode*> placed;
    // Parents come first, so a device whose parent is missing is an orphan
    // (a half-enumerated hub, say) and is left out with its subtree.
    for (const SUsbDevice& device : devices) {
        CTopologyNode* pParent = root.get();
        if (!device.IsRootHub()) {
            const std::vector<unsigned int> parentPorts(device.ports.begin(), device.ports.end() - 1);
            const auto it = placed.find({device.uBus, parentPorts});
            if (it == placed.end())
                continue;
            pParent = it->second;
        }
        placed[{device.uBus, device.ports}] = &pParent->AddChild(MakeNode(device));
    }
    SetDeviceCounts(*root);
    return root;
}

} // namespace

CSysfsUsbTopology::CSysfsUsbTopology(fs::path sysfsRoot) : m_sysfsRoot(std::move(sysfsRoot)) {}

bool CSysfsUsbTopology::Refresh()
{
    try {
        if (!fs::is_directory(m_sysfsRoot)) {
            m_strLastError = L"No sysfs at " + m_sysfsRoot.wstring();
            return false;
        }
        const fs::path devicesDir = m_sysfsRoot / "bus" / "usb" / "devices";
        std::vector<SUsbDevice> devices;
        if (fs::exists(devicesDir))
            devices = ReadUsbDevices(devicesDir);
        m_snapshot = BuildTree(devices);
        m_strLastError.clear();
        return true;
    } catch (const std::exception& e) {
        m_strLastError = Utf8ToWide(e.what());
        return false;
    }
}

} // namespace usbtopology
