#include "TopologyTestSupport.h"

#include <usbtopology/CSysfsUsbTopology.h>

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <vector>

namespace fs = std::filesystem;
using namespace topologytest;

namespace {

fs::path Root(const QTemporaryDir& dir)
{
    return dir.path().toStdString();
}

// A bus with one root hub, written flat: the walk reads bus/usb/devices only.
void WriteRootHub(const fs::path& sysfs, const char* szSpeed)
{
    const fs::path hub = sysfs / "bus/usb/devices/usb1";
    WriteAttribute(hub, "bDeviceClass", "09");
    if (szSpeed)
        WriteAttribute(hub, "speed", szSpeed);
}

void WriteDevice(const fs::path& sysfs, const std::string& strName, const char* szClass, const char* szSpeed,
                 const std::vector<const char*>& interfaces)
{
    const fs::path devices = sysfs / "bus/usb/devices";
    WriteAttribute(devices / strName, "bDeviceClass", std::string(szClass).substr(0, 2));
    WriteAttribute(devices / strName, "bDeviceSubClass", std::string(szClass).substr(2, 2));
    WriteAttribute(devices / strName, "bDeviceProtocol", std::string(szClass).substr(4, 2));
    WriteAttribute(devices / strName, "speed", szSpeed);
    for (std::size_t i = 0; i < interfaces.size(); ++i) {
        const fs::path dir = devices / (strName + ":1." + std::to_string(i));
        WriteAttribute(dir, "bInterfaceClass", std::string(interfaces[i]).substr(0, 2));
        WriteAttribute(dir, "bInterfaceSubClass", std::string(interfaces[i]).substr(2, 2));
        WriteAttribute(dir, "bInterfaceProtocol", std::string(interfaces[i]).substr(4, 2));
    }
}

std::shared_ptr<const topapi::INode> Read(const fs::path& sysfs)
{
    usbtopology::CSysfsUsbTopology topology(sysfs);
    EXPECT_TRUE(topology.Refresh());
    return topology.GetSnapshot();
}

struct SDeviceCase {
    const char* szScenario;
    const char* szName;
    const char* szClass;
    const char* szSpeed;
    std::vector<const char*> interfaces;
    std::optional<topapi::ENodeType> type; // none: left out of the tree
};

class DeviceClassification : public ::testing::TestWithParam<SDeviceCase> {};

TEST_P(DeviceClassification, NodeType)
{
    const SDeviceCase& c = GetParam();
    QTemporaryDir dir;
    WriteRootHub(Root(dir), "5000");
    WriteDevice(Root(dir), c.szName, c.szClass, c.szSpeed, c.interfaces);
    const auto root = Read(Root(dir));
    const topapi::INode* pNode = FindById(root.get(), std::wstring(c.szName, c.szName + std::strlen(c.szName)));
    ASSERT_EQ(pNode != nullptr, c.type.has_value());
    if (pNode) {
        EXPECT_EQ(pNode->GetNodeType(), *c.type);
    }
    EXPECT_EQ(DeviceCount(*FindById(root.get(), L"usb1")), c.type == topapi::NodeType_U3vDevice ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    Sysfs, DeviceClassification,
    ::testing::Values(
        SDeviceCase{"control and streaming interfaces make a camera", "1-1", "ef0201", "5000",
                    {"ef0500", "ef0501", "ef0502"}, topapi::NodeType_U3vDevice},
        SDeviceCase{"control interface alone is no camera", "1-1", "ef0201", "5000", {"ef0500"},
                    topapi::NodeType_Device},
        SDeviceCase{"camera interfaces without the IAD device class", "1-1", "000000", "5000", {"ef0500", "ef0502"},
                    topapi::NodeType_Device},
        SDeviceCase{"hub at high speed", "1-1", "090002", "480", {"090000"}, topapi::NodeType_Hub},
        SDeviceCase{"hub at 10 Gbit per s", "1-1", "090003", "10000", {"090000"}, topapi::NodeType_SuperSpeedHub},
        SDeviceCase{"camera whose hub is missing is left out", "1-3.1", "ef0201", "5000", {"ef0500", "ef0502"},
                    std::nullopt}),
    [](const auto& info) { return ScenarioName(info.param.szScenario); });

struct SSpeedCase {
    const char* szScenario;
    const char* szSpeed; // null: no speed file
    std::optional<std::uint64_t> bandwidth;
};

class ControllerBandwidth : public ::testing::TestWithParam<SSpeedCase> {};

TEST_P(ControllerBandwidth, FromRootHubSpeed)
{
    QTemporaryDir dir;
    WriteRootHub(Root(dir), GetParam().szSpeed);
    const auto root = Read(Root(dir));
    EXPECT_EQ(Bandwidth(*FindById(root.get(), L"usb1")), GetParam().bandwidth);
}

INSTANTIATE_TEST_SUITE_P(Sysfs, ControllerBandwidth,
                         ::testing::Values(SSpeedCase{"low speed", "1.5", 187500},
                                           SSpeedCase{"full speed", "12", 1500000},
                                           SSpeedCase{"SuperSpeed Plus with 128b 132b coding", "10000", 1212121212},
                                           SSpeedCase{"two lanes of SuperSpeed Plus", "20000", 2424242424},
                                           SSpeedCase{"unreadable speed has no figure", "fast", std::nullopt},
                                           SSpeedCase{"missing speed file has no figure", nullptr, std::nullopt}),
                         [](const auto& info) { return ScenarioName(info.param.szScenario); });

TEST(SysfsTopology, SysfsWithoutUsbIsAnEmptyBusNotAFailure)
{
    QTemporaryDir dir;
    fs::create_directories(Root(dir) / "bus/pci/devices");
    usbtopology::CSysfsUsbTopology topology(Root(dir));
    ASSERT_TRUE(topology.Refresh());
    ASSERT_NE(topology.GetSnapshot(), nullptr);
    EXPECT_EQ(topology.GetSnapshot()->GetChildCount(), 0u);
    EXPECT_EQ(DeviceCount(*topology.GetSnapshot()), 0);
}

} // namespace
