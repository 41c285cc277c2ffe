#include "TopologyTestSupport.h"

#include <usbtopology/CTop.h>
#include <usbtopology/fakes/CFakeTopologySource.h>

#include <gtest/gtest.h>

using namespace usbtopology::fakes;
using topologytest::DeviceCount;

namespace {

std::shared_ptr<SFakeTopologyScript> ScriptWithOneCamera()
{
    auto script = std::make_shared<SFakeTopologyScript>();
    script->root->AddChild(topapi::NodeType_HostController, L"xHCI", L"usb3")
        .SetDeviceCount(1)
        .SetBandwidth(500000000)
        .AddChild(topapi::NodeType_U3vDevice, L"Cam", L"3-1")
        .SetInstancePath(L"U3V\\A\\B\\1");
    return script;
}

struct SStatusCase {
    const char* szScenario;
    bool failConstruction;
    bool nullRoot;
    unsigned int status;
    bool hasRoot;
};

class CTopConstruction : public ::testing::TestWithParam<SStatusCase> {};

TEST_P(CTopConstruction, StatusAndRoot)
{
    auto script = ScriptWithOneCamera();
    script->failConstruction = GetParam().failConstruction;
    if (GetParam().nullRoot)
        script->root = nullptr;
    unsigned int status = 99;
    const auto top = MakeFakeTop(&status, script);
    EXPECT_EQ(status, GetParam().status);
    EXPECT_EQ(top->GetRootNode() != nullptr, GetParam().hasRoot);
    EXPECT_EQ(top->SetRootNode(procLayer::DetailGrade_Full), GetParam().hasRoot);
    EXPECT_EQ(script->refreshes, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Fake, CTopConstruction,
    ::testing::Values(SStatusCase{"healthy", false, false, procLayer::TopStatus_Ok, true},
                      SStatusCase{"failed_construction_still_serves_the_root", true, false,
                                  procLayer::TopStatus_SourceFailed, true},
                      SStatusCase{"null_root", false, true, procLayer::TopStatus_Ok, false}),
    [](const auto& info) { return std::string(info.param.szScenario); });

TEST(CTop, RefreshReportsToTheCallbackOnSuccessOnly)
{
    auto script = ScriptWithOneCamera();
    int events = 0;
    unsigned int status = 99;
    procLayer::CTop top(&status, procLayer::DetailGrade_Full,
                        [](void* pContext, unsigned int uEvent) {
                            if (uEvent == procLayer::TopEvent_Refreshed)
                                ++*static_cast<int*>(pContext);
                        },
                        &events, L"USB", std::make_unique<CFakeTopologySource>(script));
    EXPECT_TRUE(top.GetITopologyEx()->Refresh());
    script->failRefresh = true;
    EXPECT_FALSE(top.GetITopologyEx()->Refresh());
    EXPECT_FALSE(top.GetITopologyEx()->GetLastError().empty());
    EXPECT_EQ(events, 1);
    EXPECT_EQ(script->refreshes, 2);
}

TEST(CTop, SetRootNodeTakesTheNewTreeAndTheTopOwnsItsSource)
{
    auto script = ScriptWithOneCamera();
    unsigned int status = 99;
    auto top = MakeFakeTop(&status, script);
    script->root = CFakeNode::MakeRoot();
    script->root->AddChild(topapi::NodeType_HostController, L"EHCI", L"usb1").SetDeviceCount(0);

    ASSERT_TRUE(top->GetITopologyEx()->Refresh());
    EXPECT_EQ(top->GetRootNode()->GetChild(0)->GetId(), L"usb3");
    ASSERT_TRUE(top->SetRootNode(procLayer::DetailGrade_Full));
    EXPECT_EQ(top->GetRootNode()->GetChild(0)->GetId(), L"usb1");
    EXPECT_EQ(DeviceCount(*top->GetRootNode()->GetChild(0)), 0);

    EXPECT_EQ(script->sourcesAlive, 1);
    top.reset();
    EXPECT_EQ(script->sourcesAlive, 0);
    EXPECT_EQ(script->sourcesCreated, 1);
}

} // namespace
