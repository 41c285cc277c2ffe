#include "TopologyTestSupport.h"

#include <usbtopology/CSysfsUsbTopology.h>
#include <usbtopology/CTop.h>
#include <usbtopology/UsbInstancePath.h>

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace fs = std::filesystem;
using namespace topologytest;
using topapi::INode;

namespace {

std::unique_ptr<procLayer::CTop> MakeTop(const fs::path& root, unsigned int& status)
{
    return std::make_unique<procLayer::CTop>(&status, procLayer::DetailGrade_Full, nullptr, nullptr, L"USB",
                                             std::make_unique<usbtopology::CSysfsUsbTopology>(root));
}

std::vector<std::wstring> ChildIds(const INode& node)
{
    std::vector<std::wstring> ids;
    for (std::size_t i = 0; i < node.GetChildCount(); ++i)
        ids.push_back(node.GetChild(i)->GetId());
    return ids;
}

struct SExpectedNode {
    const char* szScenario;
    std::wstring strId;
    topapi::ENodeType type;
    std::wstring strName;
    std::wstring strParentId;
    std::vector<std::wstring> children;
    std::optional<std::int32_t> count;
    std::optional<std::uint64_t> bandwidth;
    std::optional<std::wstring> path;
};

const SExpectedNode kFixture[] = {
    {"USB 2 controller with only a webcam counts 0", L"usb1", topapi::NodeType_HostController,
     L"EHCI Host Controller (USB 2.00, bus 1, 0000:00:1d.0)", L"", {L"1-1"}, 0, 60000000, {}},
    {"hub without strings is named by its port", L"1-1", topapi::NodeType_Hub, L"1-1", L"usb1", {L"1-1.2"}, 0, {}, {}},
    {"webcam with the IAD device class is no camera", L"1-1.2", topapi::NodeType_Device,
     L"Sonix Technology Co., Ltd. USB 2.0 Camera", L"1-1", {}, {}, {}, {}},
    {"xHCI USB 2 root hub", L"usb2", topapi::NodeType_HostController,
     L"xHCI Host Controller (USB 2.00, bus 2, 0000:00:14.0)", L"", {L"2-1"}, 0, 60000000, {}},
    {"USB 2 companion of a SuperSpeed hub", L"2-1.1", topapi::NodeType_Hub, L"VIA Labs, Inc. USB2.0 Hub", L"2-1",
     {}, 0, {}, {}},
    {"SuperSpeed root hub holds both cameras", L"usb3", topapi::NodeType_HostController,
     L"xHCI Host Controller (USB 3.00, bus 3, 0000:00:14.0)", L"", {L"3-1", L"3-2"}, 2, 500000000, {}},
    {"first hub of the chain", L"3-1", topapi::NodeType_SuperSpeedHub, L"GenesysLogic USB3.2 Hub", L"usb3",
     {L"3-1.1", L"3-1.3"}, 1, {}, {}},
    {"second hub of the chain", L"3-1.1", topapi::NodeType_SuperSpeedHub, L"VIA Labs, Inc. USB3.0 Hub", L"3-1",
     {L"3-1.1.4"}, 1, {}, {}},
    {"camera behind two hubs", L"3-1.1.4", topapi::NodeType_U3vDevice, L"Kamera Werk KW-1300u", L"3-1.1", {}, {}, {},
     L"U3V\\Kamera Werk\\KW-1300u\\40123456"},
    {"mass storage is no camera", L"3-1.3", topapi::NodeType_Device, L"Samsung Flash Drive", L"3-1", {}, {}, {}, {}},
    {"camera on the root hub with a non-ASCII manufacturer", L"3-2", topapi::NodeType_U3vDevice,
     L"Optikwerk Z\u00FCrich OA-500c", L"usb3", {}, {}, {}, L"U3V\\Optikwerk Z?rich\\OA-500c\\AB12cd"},
};

class SysfsFixture : public ::testing::TestWithParam<SExpectedNode> {};

TEST_P(SysfsFixture, NodeAsOnTheMachine)
{
    const SExpectedNode& expected = GetParam();
    unsigned int status = 99;
    const auto top = MakeTop(BWM_USB_FIXTURE_DIR, status);
    ASSERT_EQ(status, procLayer::TopStatus_Ok);
    const INode* pNode = FindById(top->GetRootNode(), expected.strId);
    ASSERT_NE(pNode, nullptr);
    EXPECT_EQ(pNode->GetNodeType(), expected.type);
    EXPECT_EQ(pNode->GetName(), expected.strName);
    EXPECT_EQ(pNode->GetParent()->GetId(), expected.strParentId);
    EXPECT_EQ(ChildIds(*pNode), expected.children);
    EXPECT_EQ(DeviceCount(*pNode), expected.count);
    EXPECT_EQ(Bandwidth(*pNode), expected.bandwidth);
    EXPECT_EQ(InstancePath(*pNode), expected.path);
}

INSTANTIATE_TEST_SUITE_P(TwoControllers, SysfsFixture, ::testing::ValuesIn(kFixture),
                         [](const auto& info) { return ScenarioName(info.param.szScenario); });

TEST(SysfsTopology, RootListsTheRootHubsInBusOrderAndTheCameraBackendFindsItsPath)
{
    unsigned int status = 99;
    const auto top = MakeTop(BWM_USB_FIXTURE_DIR, status);
    ASSERT_NE(top->GetRootNode(), nullptr);
    EXPECT_EQ(ChildIds(*top->GetRootNode()), (std::vector<std::wstring>{L"usb1", L"usb2", L"usb3"}));
    EXPECT_EQ(DeviceCount(*top->GetRootNode()), 2);
    // What Aravis reports: the descriptor strings through libusb's ASCII reduction.
    EXPECT_EQ(InstancePath(*FindById(top->GetRootNode(), L"3-2")),
              usbtopology::BuildUsbInstancePath("Optikwerk Z?rich", "OA-500c", "AB12cd"));
}

// A second camera of the kind on 3-2, fallen back to USB 2 behind the hub companions.
void AddFallbackCamera(const fs::path& root)
{
    const fs::path from = root / "devices/pci0000:00/0000:00:14.0/usb3/3-2";
    const fs::path to = "devices/pci0000:00/0000:00:14.0/usb2/2-1/2-1.1/2-1.1.3";
    fs::copy(from, root / to, fs::copy_options::recursive);
    WriteAttribute(root / to, "speed", "480");
    WriteAttribute(root / to, "serial", "AB12ce");
    fs::create_directory_symlink("../../.." / to, root / "bus/usb/devices/2-1.1.3");
    for (const char* szInterface : {":1.0", ":1.1"}) {
        fs::rename(root / to / (std::string("3-2") + szInterface), root / to / ("2-1.1.3" + std::string(szInterface)));
        fs::create_directory_symlink("../../.." / to / ("2-1.1.3" + std::string(szInterface)),
                                     root / "bus/usb/devices" / ("2-1.1.3" + std::string(szInterface)));
    }
}

TEST(SysfsTopology, RefreshSeesAnAddedCameraOnceTheRootIsSetAgain)
{
    QTemporaryDir dir;
    const fs::path root = dir.path().toStdString();
    fs::copy(BWM_USB_FIXTURE_DIR, root, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    unsigned int status = 99;
    const auto top = MakeTop(root, status);
    const INode* pOldRoot = top->GetRootNode();
    AddFallbackCamera(root);

    ASSERT_TRUE(top->GetITopologyEx()->Refresh());
    EXPECT_EQ(top->GetRootNode(), pOldRoot);
    EXPECT_EQ(DeviceCount(*FindById(pOldRoot, L"usb2")), 0);

    ASSERT_TRUE(top->SetRootNode(procLayer::DetailGrade_Full));
    const INode* pRoot = top->GetRootNode();
    EXPECT_EQ(DeviceCount(*pRoot), 3);
    EXPECT_EQ(DeviceCount(*FindById(pRoot, L"usb2")), 1);
    EXPECT_EQ(DeviceCount(*FindById(pRoot, L"2-1")), 1);
    const INode* pCamera = FindById(pRoot, L"2-1.1.3");
    ASSERT_NE(pCamera, nullptr);
    EXPECT_EQ(pCamera->GetNodeType(), topapi::NodeType_U3vDevice);
    EXPECT_EQ(InstancePath(*pCamera), L"U3V\\Optikwerk Z?rich\\OA-500c\\AB12ce");
}

TEST(SysfsTopology, FailedRefreshKeepsTheLastTree)
{
    QTemporaryDir dir;
    const fs::path root = dir.path().toStdString() + "/sys";
    fs::copy(BWM_USB_FIXTURE_DIR, root, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    unsigned int status = 99;
    const auto top = MakeTop(root, status);
    fs::remove_all(root);

    EXPECT_FALSE(top->GetITopologyEx()->Refresh());
    EXPECT_FALSE(top->GetITopologyEx()->GetLastError().empty());
    ASSERT_TRUE(top->SetRootNode(procLayer::DetailGrade_Full));
    EXPECT_EQ(DeviceCount(*top->GetRootNode()), 2);
}

TEST(SysfsTopology, MissingSysfsFailsConstructionWithoutRoot)
{
    unsigned int status = 0;
    const auto top = MakeTop("/nonexistent/sysfs", status);
    EXPECT_EQ(status, procLayer::TopStatus_SourceFailed);
    EXPECT_EQ(top->GetRootNode(), nullptr);
}

TEST(SysfsTopology, ThisMachinesSysfs)
{
    unsigned int status = 99;
    procLayer::CTop top(&status, procLayer::DetailGrade_Full, nullptr, nullptr, nullptr);
    ASSERT_EQ(status, procLayer::TopStatus_Ok);
    const INode* pRoot = top.GetRootNode();
    ASSERT_NE(pRoot, nullptr);
    if (!fs::exists("/sys/bus/usb/devices")) {
        EXPECT_EQ(pRoot->GetChildCount(), 0u) << "no USB here, so no controllers";
    }
    for (std::size_t i = 0; i < pRoot->GetChildCount(); ++i) {
        EXPECT_EQ(pRoot->GetChild(i)->GetNodeType(), topapi::NodeType_HostController);
    }
}

} // namespace
