#include <camerapool/CameraKey.h>

#include <gtest/gtest.h>

using namespace CameraPool;

namespace {

SDeviceRecord record(const char* protocol, const char* id, const char* vendor, const char* model, const char* serial,
                     const char* physicalId = "")
{
    SDeviceRecord r;
    r.physicalId = QString::fromUtf8(physicalId);
    r.protocol = QString::fromUtf8(protocol);
    r.id = QString::fromUtf8(id);
    r.vendor = QString::fromUtf8(vendor);
    r.model = QString::fromUtf8(model);
    r.serial = QString::fromUtf8(serial);
    return r;
}

struct SKeyCase
{
    const char* scenario;
    SDeviceRecord device;
    const char* key;
    const char* deviceClass;
    const char* layer;
};

class CameraKeyTest : public testing::TestWithParam<SKeyCase>
{
};

} // namespace

TEST_P(CameraKeyTest, BuildsKeyClassAndLayer)
{
    const SKeyCase& c = GetParam();
    EXPECT_EQ(cameraKeyOf(c.device).toStdString(), c.key);
    EXPECT_EQ(deviceClassOf(c.device.protocol).toStdString(), c.deviceClass);
    EXPECT_EQ(transportLayerOf(c.device.protocol).toStdString(), c.layer);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CameraKeyTest,
    testing::Values(
        SKeyCase{"gige_uses_the_aravis_id", record("GigEVision", "Aravis-Fake-GV03", "Aravis", "Fake", "GV03"),
                 "Aravis-Fake-GV03", "GEV", "DorvikGigE"},
        SKeyCase{"usb_uses_the_instance_path",
                 record("USB3Vision", "Kam-0123-SN7", "Kam", "Pro 5", "SN7"), "U3V\\Kam\\Pro 5\\SN7", "U3V",
                 "DorvikUsb"},
        SKeyCase{"usb_non_ascii_becomes_question_marks",
                 record("USB3Vision", "x", "Kamera \xc3\xa9", "M", "S"), "U3V\\Kamera ?\\M\\S", "U3V", "DorvikUsb"},
        SKeyCase{"usb_without_serial_keeps_four_parts", record("USB3Vision", "x", "V", "M", ""), "U3V\\V\\M\\",
                 "U3V", "DorvikUsb"},
        SKeyCase{"usb_without_serial_is_told_apart_by_its_guid",
                 record("USB3Vision", "x", "V", "M", "", "G-0001"), "U3V\\V\\M\\\\G-0001", "U3V", "DorvikUsb"},
        SKeyCase{"usb_with_serial_keeps_its_path", record("USB3Vision", "x", "V", "M", "S", "G-0001"),
                 "U3V\\V\\M\\S", "U3V", "DorvikUsb"},
        SKeyCase{"emulation_uses_the_aravis_id", record("Fake", "Fake_1", "Aravis", "Fake", "1"), "Fake_1",
                 "CamEmu", "CamEmu"}),
    [](const testing::TestParamInfo<SKeyCase>& info) { return std::string(info.param.scenario); });

TEST(CameraKey, DisplayNameIsModelAndSerial)
{
    EXPECT_EQ(displayNameOf(record("GigEVision", "i", "V", "Fake", "GV03")).toStdString(), "Fake (GV03)");
}
