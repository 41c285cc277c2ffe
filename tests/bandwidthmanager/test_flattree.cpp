#include "SFakeCameraHost.h"
#include "bandwidthmeasuringcamera.h"
#include "flattree.h"

#include <host/fakes/CFakeCameraStreamControlService.h>
#include <usbtopology/fakes/CFakeTopologySource.h>

#include <Core/Logging/CLogCapture.h>

#include <gtest/gtest.h>

#include <QPointer>

using namespace HostFakes;
using Core::CameraPoolComponents::CameraInfoPtr;
using usbtopology::fakes::CFakeNode;
using usbtopology::fakes::SFakeTopologyScript;

namespace {

// The model as lines "parent/child/...", depth first; cameras end in " *".
QStringList outline(const FlatTree& tree, FlatTreeItemID id = 0, const QString& prefix = QString())
{
    QStringList lines;
    for (FlatTreeItemID child : tree.item(id).children) {
        const FlatTreeItem& item = tree.item(child);
        const QString path = prefix.isEmpty() ? item.text : prefix + QLatin1Char('/') + item.text;
        lines << path + (item.isCamera ? QStringLiteral(" *") : QString());
        lines << outline(tree, child, path);
    }
    return lines;
}

class FlatTreeTest : public ::testing::Test, public SFakeCameraHost
{
protected:
    void SetUp() override
    {
        manager->addService(stream);
        collection->addInteger(QStringLiteral("@StreamGrabber0/MaxNumBuffer"), 16, 1, 256);
        parameters->setDefaultCollection(collection);
        tree.setServices(manager.toWeakRef());
        tree.setDeviceClasses({"DorvikUsb", "DorvikGigE"});
        tree.setTopologyFactory([this](unsigned int* pStatus) { return usbtopology::fakes::MakeFakeTop(pStatus, script); });
    }

    QSharedPointer<CFakeCameraStreamControlService> stream = QSharedPointer<CFakeCameraStreamControlService>::create();
    QSharedPointer<ParameterFakes::CScriptedParameterCollection> collection =
        QSharedPointer<ParameterFakes::CScriptedParameterCollection>::create();
    std::shared_ptr<SFakeTopologyScript> script = std::make_shared<SFakeTopologyScript>();
    MeasuringCameraSet cameras;
    FlatTree tree;
};

struct SLayerCase { const char* scenario; QList<QPair<QString, QList<CameraInfoPtr>>> layers; QStringList outline; };

class FlatTreeGigE : public FlatTreeTest, public ::testing::WithParamInterface<SLayerCase> {};

TEST_P(FlatTreeGigE, buildsTheRowsOfTheTransportLayers)
{
    for (const auto& layer : GetParam().layers)
        enumeration->addTransportLayer(layer.first, layer.second);
    tree.build(cameras, {});
    EXPECT_EQ(outline(tree), GetParam().outline);
    EXPECT_EQ(tree.item(0).text, QStringLiteral("Internal Error"));
}

const CameraInfoPtr g1 = CFakeCameraInfo::create("G1", "gev-1", "GEV", {{"Interface", "192.0.2.7"}});
const CameraInfoPtr g2 = CFakeCameraInfo::create("G2", "gev-2", "GEV", {{"Interface", "192.0.2.7"}});
const CameraInfoPtr g3 = CFakeCameraInfo::create("G3", "gev-3", "GEV", {{"Interface", "198.51.100.1"}});

INSTANTIATE_TEST_SUITE_P(Build, FlatTreeGigE, ::testing::Values(
        SLayerCase{"no_transport_layer_gives_the_root_alone", {}, {}},
        SLayerCase{"cameras_share_their_adapter",
                   {{"DorvikGigE", {g1, g2, g3}}},
                   {"DorvikGigE", "DorvikGigE/Network Interface (192.0.2.7)", "DorvikGigE/Network Interface (192.0.2.7)/G1 *",
                    "DorvikGigE/Network Interface (192.0.2.7)/G2 *", "DorvikGigE/Network Interface (198.51.100.1)",
                    "DorvikGigE/Network Interface (198.51.100.1)/G3 *"}},
        SLayerCase{"camera_without_interface_goes_to_the_placeholder_adapter",
                   {{"DorvikGigE", {CFakeCameraInfo::create("G", "gev", "GEV")}}},
                   {"DorvikGigE", "DorvikGigE/Network Interface (TODO: interface name)",
                    "DorvikGigE/Network Interface (TODO: interface name)/G *"}},
        SLayerCase{"loopback_adapter_takes_the_system_name",
                   {{"DorvikGigE", {CFakeCameraInfo::create("G", "gev", "GEV", {{"Interface", "127.0.0.1"}})}}},
                   {"DorvikGigE", "DorvikGigE/lo", "DorvikGigE/lo/G *"}},
        SLayerCase{"non_gev_camera_in_the_gige_list_has_no_row",
                   {{"DorvikGigE", {CFakeCameraInfo::create("U", "u3v", "U3V", {{"Interface", "192.0.2.7"}})}}}, {}},
        SLayerCase{"filtered_and_empty_layers_have_no_row",
                   {{"CamEmu", {CFakeCameraInfo::create("E", "emu", "GEV")}}, {"DorvikGigE", {}}}, {}}),
    [](const auto& info) { return std::string(info.param.scenario); });

TEST_F(FlatTreeTest, findByKeyGivesTheFirstOfTwoEqualKeys)
{
    const FlatTreeItemID first = tree.addItem("k", "first", 0);
    const FlatTreeItemID other = tree.addItem("o", "other", 0);
    const FlatTreeItemID second = tree.addItem("k", "second", other);
    ASSERT_NE(first, second);
    EXPECT_EQ(tree.findByKey("k"), first);
    EXPECT_EQ(tree.findByKey("K"), 0u);
    EXPECT_EQ(tree.findByKey(""), 0u);
    // The same key under the same parent is the same item, and keeps its text.
    EXPECT_EQ(tree.addItem("k", "renamed", 0), first);
    EXPECT_EQ(tree.item(first).text, QStringLiteral("first"));
}

TEST_F(FlatTreeTest, measuringCamerasAndTheirFiguresSurviveARebuildAndGoWithTheirCamera)
{
    const auto layer = enumeration->addTransportLayer("DorvikGigE", {g1, g2});
    tree.build(cameras, {});
    ASSERT_TRUE(tree.startMeasuring(tree.findByKey("gev-1"), cameras));
    ASSERT_TRUE(tree.startMeasuring(tree.findByKey("gev-2"), cameras));
    QPointer<Plugin::BandwidthManager::CBandwidthMeasuringCamera> kept = tree.item(tree.findByKey("gev-1")).measuringCamera;
    QPointer<Plugin::BandwidthManager::CBandwidthMeasuringCamera> gone = tree.item(tree.findByKey("gev-2")).measuringCamera;
    tree.item(tree.findByKey("gev-1")).images = 211;

    layer->setCameras({g1});
    tree.build(cameras, {});
    EXPECT_EQ(tree.item(tree.findByKey("gev-1")).measuringCamera, kept.data());
    EXPECT_EQ(tree.item(tree.findByKey("gev-1")).images, 211u) << "the row shows its last figures until the next sample";
    EXPECT_TRUE(kept);
    EXPECT_FALSE(gone);
    EXPECT_EQ(cameras.cameras.size(), 1u);
}

TEST_F(FlatTreeTest, stopMeasuringStopsAGrabbingCameraAndDeletesItsMeasuringCamera)
{
    enumeration->addTransportLayer("DorvikGigE", {g1});
    tree.build(cameras, {});
    const FlatTreeItemID id = tree.findByKey("gev-1");
    ASSERT_TRUE(tree.startMeasuring(id, cameras));
    status->setGrabbing("gev-1", true);
    EXPECT_TRUE(tree.stopMeasuring(id, cameras));
    EXPECT_EQ(tree.item(id).measuringCamera, nullptr);
    EXPECT_TRUE(cameras.cameras.empty());
    EXPECT_EQ(stream->calls(), QStringList{"stopGrab:gev-1"});
    EXPECT_TRUE(control->calls().contains("close:gev-1"));
    EXPECT_FALSE(tree.stopMeasuring(tree.findByKey("gev-1") - 1, cameras)) << "an adapter row is no camera";
}

// The USB walk: a controller with a hub, scripted per scenario, and two cameras known to enumeration.
struct SUsbCase { const char* scenario; std::function<void(CFakeNode& root)> bus; QStringList outline; QString logged;
};

class FlatTreeUsb : public FlatTreeTest, public ::testing::WithParamInterface<SUsbCase> {};

TEST_P(FlatTreeUsb, placesCamerasWhereTheySitOnTheBus)
{
    enumeration->addTransportLayer("DorvikUsb", {CFakeCameraInfo::create("Cam A", "U3V\\Vendor\\Model\\A1", "U3V"),
                                                 CFakeCameraInfo::create("Cam B", "U3V\\Vendor\\Model\\B2", "U3V")});
    GetParam().bus(*script->root);
    Core::Logging::CLogCapture log;
    tree.build(cameras, {});
    EXPECT_EQ(outline(tree), GetParam().outline);
    if (!GetParam().logged.isEmpty()) {
        EXPECT_TRUE(log.contains(GetParam().logged)) << log.texts().join('\n').toStdString();
    }
}

CFakeNode& controller(CFakeNode& root, int devices)
{
    return root.AddChild(topapi::NodeType_HostController, L"xHCI", L"usb2").SetDeviceCount(devices).SetBandwidth(625000000);
}
CFakeNode& hub(CFakeNode& root, topapi::ENodeType type)
{
    return controller(root, 1).AddChild(type, L"Hub", L"2-1");
}
void u3v(CFakeNode& parent, const wchar_t* location, const wchar_t* path)
{
    CFakeNode& node = parent.AddChild(topapi::NodeType_U3vDevice, L"a", location);
    if (path)
        node.SetInstancePath(path);
}
const wchar_t A1[] = L"U3V\\Vendor\\Model\\A1";

INSTANTIATE_TEST_SUITE_P(Walk, FlatTreeUsb, ::testing::Values(
        SUsbCase{"camera_behind_a_hub", [](CFakeNode& r) { u3v(hub(r, topapi::NodeType_SuperSpeedHub).SetDeviceCount(1), L"2-1.1", A1); },
                 {"DorvikUsb", "DorvikUsb/xHCI", "DorvikUsb/xHCI/Hub", "DorvikUsb/xHCI/Hub/Cam A *"}, {}},
        SUsbCase{"uninitialised_node_is_skipped_and_its_sibling_stays",
                 [](CFakeNode& r) {
                     CFakeNode& hc = controller(r, 1);
                     hc.AddChild(topapi::NodeType_Uninitialized, L"?", L"2-9");
                     u3v(hc, L"2-2", L"U3V\\Vendor\\Model\\B2");
                 },
                 {"DorvikUsb", "DorvikUsb/xHCI", "DorvikUsb/xHCI/Cam B *"}, "Discovered uninitialized node in USB topology."},
        SUsbCase{"hub_without_the_count_property_has_no_row", [](CFakeNode& r) { u3v(hub(r, topapi::NodeType_Hub), L"2-1.1", A1); },
                 {"DorvikUsb", "DorvikUsb/xHCI"}, "Discovered hub/controller without NUMBEROFU3VDEVICESOFSUBTREE property."},
        SUsbCase{"hub_with_no_devices_has_no_row",
                 [](CFakeNode& r) { u3v(hub(r, topapi::NodeType_Hub).SetDeviceCount(0), L"2-1.1", A1); },
                 {"DorvikUsb", "DorvikUsb/xHCI"}, {}},
        SUsbCase{"device_without_a_path_has_no_row", [](CFakeNode& r) { u3v(controller(r, 1), L"2-1", nullptr); },
                 {"DorvikUsb", "DorvikUsb/xHCI"}, "Discovered U3V node %ls without device instance path property "},
        SUsbCase{"unmatched_device_has_no_row", [](CFakeNode& r) { u3v(controller(r, 1), L"2-1", L"U3V\\Other\\X\\9"); },
                 {"DorvikUsb", "DorvikUsb/xHCI"}, "Failed to match discovered USB Device 'U3V\\Other\\X\\9' to a zenta device"},
        SUsbCase{"path_differing_in_case_matches", [](CFakeNode& r) { u3v(controller(r, 1), L"2-1", L"u3v\\VENDOR\\model\\a1"); },
                 {"DorvikUsb", "DorvikUsb/xHCI", "DorvikUsb/xHCI/Cam A *"}, {}}),
    [](const auto& info) { return std::string(info.param.scenario); });

TEST_F(FlatTreeTest, twoBuildsMakeTheTopologyOnceAndRefreshIt)
{
    enumeration->addTransportLayer("DorvikUsb", {CFakeCameraInfo::create("Cam A", "U3V\\V\\M\\A1", "U3V")});
    u3v(controller(*script->root, 1), L"2-1", L"U3V\\V\\M\\A1");
    tree.build(cameras, {});
    const QStringList first = outline(tree);
    tree.build(cameras, {});
    EXPECT_EQ(outline(tree), first);
    EXPECT_EQ(script->sourcesCreated, 1);
    EXPECT_EQ(script->refreshes, 1);
    const FlatTreeItem& hc = tree.item(tree.findByKey("usb2"));
    EXPECT_TRUE(hc.isAdapter);
    EXPECT_FALSE(hc.isGigE);
    EXPECT_EQ(hc.bandwidth, 625000000u);
}

// Two cameras of one model without serial numbers: a row each, with keys of their own.
TEST_F(FlatTreeTest, camerasWithoutSerialNumbersGetARowEach)
{
    enumeration->addTransportLayer("DorvikUsb", {CFakeCameraInfo::create("Cam A", "U3V\\V\\M\\\\G1", "U3V"),
                                                 CFakeCameraInfo::create("Cam B", "U3V\\V\\M\\\\G2", "U3V")});
    CFakeNode& hc = controller(*script->root, 2);
    u3v(hc, L"2-1", L"U3V\\V\\M\\");
    u3v(hc, L"2-2", L"U3V\\V\\M\\");
    tree.build(cameras, {});
    EXPECT_EQ(outline(tree), (QStringList{"DorvikUsb", "DorvikUsb/xHCI", "DorvikUsb/xHCI/Cam A *", "DorvikUsb/xHCI/Cam B *"}));
    EXPECT_NE(tree.findByKey("U3V\\V\\M\\\\G1"), tree.findByKey("U3V\\V\\M\\\\G2"));
}

TEST_F(FlatTreeTest, nullRootEndsTheBuild)
{
    script->root = nullptr;
    enumeration->addTransportLayer("DorvikUsb", {CFakeCameraInfo::create("Cam A", "U3V\\V\\M\\A1", "U3V")});
    enumeration->addTransportLayer("DorvikGigE", {g1});
    Core::Logging::CLogCapture log;
    tree.build(cameras, {});
    EXPECT_EQ(outline(tree), QStringList{});
    EXPECT_TRUE(log.contains("Topology returned nullpointer as root node. Done here."));
}

} // namespace
