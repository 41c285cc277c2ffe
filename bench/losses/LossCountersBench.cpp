// One tick of the loss meter with 8 cameras on 2 adapters: the adapters' link
// statistics over rtnetlink (loopback stands for both), each camera's five
// stream statistics (scripted here: the backend keeps them in memory), and each
// stream socket's drops through sock_diag, on 8 real UDP sockets.
#include "lossmeter.h"

#include <camerapool/SocketDrops.h>
#include <parameters/fakes/CScriptedParameterCollection.h>

#include <benchmark/benchmark.h>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <vector>

using Plugin::BandwidthManager::CLossMeter;

namespace {

constexpr int Cameras = 8;

quint16 boundPort(int fd)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address);
    socklen_t length = sizeof address;
    getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length);
    return ntohs(address.sin_port);
}

void lossTick(benchmark::State& state)
{
    std::vector<int> sockets;
    std::vector<quint16> ports;
    std::vector<CLossMeter::SCamera> cameras;
    for (int index = 0; index < Cameras; ++index) {
        sockets.push_back(::socket(AF_INET, SOCK_DGRAM, 0));
        ports.push_back(boundPort(sockets.back()));
        auto nodes = QSharedPointer<ParameterFakes::CScriptedParameterCollection>::create();
        for (const char* name : {"Failed_Packet", "Resend_Packet", "Resend_Request", "Buffer_Underrun", "Socket_Drop"})
            nodes->addInteger(QStringLiteral("@StreamGrabber0/Statistic_%1_Count").arg(QLatin1String(name)), 0, 0, 1 << 30);
        cameras.push_back({QStringLiteral("camera-%1").arg(index), index < 4 ? "a" : "b", nodes, 0});
    }
    const std::vector<CLossMeter::SAdapter> adapters{{"a", "lo", 1e9}, {"b", "lo", 1e9}};
    CLossMeter meter;
    double seconds = 0;
    for (auto _ : state) {
        meter.sample(seconds += 0.25, adapters, cameras);
        for (quint16 port : ports)
            benchmark::DoNotOptimize(CameraPool::udpSocketDrops(port));
    }
    for (int fd : sockets)
        ::close(fd);
}

} // namespace

BENCHMARK(lossTick)->Unit(benchmark::kMicrosecond);
BENCHMARK_MAIN();
