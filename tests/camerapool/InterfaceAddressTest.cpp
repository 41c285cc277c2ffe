#include <camerapool/InterfaceAddress.h>

#include <gtest/gtest.h>

#include <QHostAddress>

using namespace CameraPool;

namespace {

quint32 ip(const char* text)
{
    return QHostAddress(QString::fromLatin1(text)).toIPv4Address();
}

SLocalIPv4 local(const char* adapter, const char* address, int prefix)
{
    return SLocalIPv4{QString::fromLatin1(adapter), ip(address), prefix};
}

struct SInterfaceCase
{
    const char* scenario;
    const char* camera;
    QList<SLocalIPv4> locals;
    const char* routed;  // what the kernel would send from, or nullptr for no route
    const char* expected;
};

class InterfaceAddressTest : public testing::TestWithParam<SInterfaceCase>
{
};

} // namespace

TEST_P(InterfaceAddressTest, ChoosesTheAdapterOfTheCamera)
{
    const SInterfaceCase& c = GetParam();
    int routeQueries = 0;
    const QString chosen = chooseInterfaceAddress(ip(c.camera), c.locals, [&](quint32) {
        ++routeQueries;
        return c.routed ? ip(c.routed) : 0u;
    });
    EXPECT_EQ(chosen.toStdString(), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, InterfaceAddressTest,
    testing::Values(
        SInterfaceCase{"longest_prefix_wins", "10.1.2.3",
                       {local("wide", "10.9.9.9", 8), local("narrow", "10.1.2.1", 24)}, nullptr, "10.1.2.1"},
        SInterfaceCase{"adapter_is_published_by_its_first_address", "192.168.78.20",
                       {local("eth1", "192.168.77.1", 24), local("eth1", "192.168.78.5", 24)}, nullptr,
                       "192.168.77.1"},
        SInterfaceCase{"loopback_camera_shows_the_first_lo_address", "127.0.0.2",
                       {local("lo", "127.0.0.1", 8), local("eth0", "192.0.2.2", 24)}, nullptr, "127.0.0.1"},
        SInterfaceCase{"no_subnet_match_takes_the_routed_adapter", "172.16.5.5",
                       {local("eth0", "192.0.2.2", 24), local("eth0", "192.0.2.9", 24), local("eth1", "10.0.0.1", 24)},
                       "192.0.2.9", "192.0.2.2"},
        SInterfaceCase{"no_match_and_no_route_gives_nothing", "172.16.5.5", {local("eth1", "10.0.0.1", 24)},
                       nullptr, ""},
        SInterfaceCase{"host_prefix_matches_only_itself", "10.0.0.2",
                       {local("p2p", "10.0.0.1", 32), local("lan", "10.0.0.3", 30)}, nullptr, "10.0.0.3"}),
    [](const testing::TestParamInfo<SInterfaceCase>& info) { return std::string(info.param.scenario); });

TEST(InterfaceAddress, RoutedSourceOfALoopbackCameraIsLoopback)
{
    EXPECT_EQ(routedSourceAddress(ip("127.0.0.1")), ip("127.0.0.1"));
}
