#include "AravisClient.h"
#include "EmulatorProcess.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <unistd.h>

namespace gigeemu::test {
namespace {

bool run(const std::string& command)
{
    return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
}

// A camera namespace behind a veth pair with the same MTU on both ends; removed on destruction.
class CVethNamespace {
public:
    CVethNamespace(int index, int mtu)
    {
        const std::string tag = std::to_string(::getpid() % 100000) + "x" + std::to_string(index);
        m_ns = "gemu" + tag;
        m_host = "gmh" + tag;
        m_camera = "gmc" + tag;
        const std::string subnet = "10.233." + std::to_string((::getpid() * 4 + index) % 250) + ".";
        m_hostAddress = subnet + "1";
        m_cameraAddress = subnet + "2";
        const std::string m = std::to_string(mtu);
        const std::string inNs = "ip netns exec " + m_ns + " ";
        if (!run("ip netns add " + m_ns))
            return;
        m_created = true;
        m_ready = run("ip link add " + m_host + " type veth peer name " + m_camera)
            && run("ip link set " + m_camera + " netns " + m_ns)
            && run("ip link set " + m_host + " mtu " + m + " up")
            && run("ip addr add " + m_hostAddress + "/24 brd + dev " + m_host)
            && run(inNs + "ip link set lo up")
            && run(inNs + "ip link set " + m_camera + " mtu " + m + " up")
            && run(inNs + "ip addr add " + m_cameraAddress + "/24 brd + dev " + m_camera);
    }
    ~CVethNamespace()
    {
        if (m_created) {
            run("ip netns del " + m_ns);
            run("ip link del " + m_host);
        }
    }
    bool created() const { return m_created; }
    bool ready() const { return m_ready; }
    std::vector<std::string> inside(std::vector<std::string> argv) const
    {
        argv.insert(argv.begin(), {"ip", "netns", "exec", m_ns});
        return argv;
    }
    const std::string& cameraAddress() const { return m_cameraAddress; }

private:
    std::string m_ns, m_host, m_camera, m_hostAddress, m_cameraAddress;
    bool m_created = false;
    bool m_ready = false;
};

struct SProbeCase {
    const char* name;
    int mtu;
};

class PacketSizeProbe : public testing::TestWithParam<SProbeCase> {};

TEST_P(PacketSizeProbe, FindsTheLinkMtuAndNothingLargerGetsThrough)
{
    const int mtu = GetParam().mtu;
    CVethNamespace net(mtu, mtu);
    if (!net.created())
        GTEST_SKIP() << "cannot create a network namespace here (needs CAP_NET_ADMIN)";
    ASSERT_TRUE(net.ready());
    CChildProcess emulator;
    // Stopping the emulator before the namespace goes keeps its pid ours to end.
    ASSERT_TRUE(emulator.start(net.inside(emulatorCommand(net.cameraAddress(), {"--width", "640", "--height", "480"}))))
        << emulator.firstLine();
    std::string error;
    CameraPtr camera = openCamera(net.cameraAddress(), error);
    ASSERT_TRUE(camera) << error;

    GError* e = nullptr;
    EXPECT_EQ(arv_camera_gv_auto_packet_size(camera.get(), &e), guint(mtu));
    ASSERT_EQ(e, nullptr) << e->message;
    EXPECT_EQ(integerFeature(camera.get(), "GevSCPSPacketSize"), mtu);

    // One step above the path MTU: every payload packet must be refused, not fragmented.
    arv_camera_gv_set_packet_size_adjustment(camera.get(), ARV_GV_PACKET_SIZE_ADJUSTMENT_NEVER);
    arv_camera_gv_set_packet_size(camera.get(), mtu + 4, nullptr);
    arv_camera_set_integer(camera.get(), "AcquisitionFrameRate", 50, nullptr);
    const SGrabResult r = grab(camera.get(), 3, 500);
    EXPECT_EQ(r.complete, 0);
    EXPECT_GT(integerFeature(camera.get(), "EmulatorPacketsDroppedForSize"), 0);
    camera.reset();
    emulator.stop();
}

INSTANTIATE_TEST_SUITE_P(Table, PacketSizeProbe,
                         testing::Values(SProbeCase{"mtu_1500", 1500}, SProbeCase{"jumbo_mtu_9000", 9000}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace gigeemu::test
