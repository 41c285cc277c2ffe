// Pacing accuracy and CPU cost of the stream channel, sending for real to a loopback socket
// that nobody reads (the kernel drops there; the sending cost is what is measured).
#include "CameraModel.h"
#include "GvspStreamer.h"
#include "MonotonicClock.h"
#include "UdpPacketSink.h"

#include <benchmark/benchmark.h>

#include <arpa/inet.h>
#include <atomic>
#include <chrono>
#include <mutex>
#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

using namespace gigeemu;

namespace {

class CCountingSink : public IPacketSink {
public:
    explicit CCountingSink(IPacketSink& inner) : m_inner(inner) {}
    void send(SOutPacket* packets, std::size_t count, bool allow) override
    {
        m_inner.send(packets, count, allow);
        for (std::size_t i = 0; i < count; ++i)
            if (packets[i].error == 0)
                m_bytes += packets[i].size + 28;
    }
    std::uint16_t localPort() const override { return m_inner.localPort(); }
    std::atomic<std::uint64_t> m_bytes{0};

private:
    IPacketSink& m_inner;
};

class CLockedSource : public ISettingsSource {
public:
    explicit CLockedSource(CCameraModel& m) : m_model(m) {}
    SStreamSettings streamSettings() override
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_model.streamSettings();
    }
    void acquisitionDone(std::uint32_t) override {}

private:
    std::mutex m_mutex;
    CCameraModel& m_model;
};

double cpuSeconds()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return double(u.ru_utime.tv_sec + u.ru_stime.tv_sec) + double(u.ru_utime.tv_usec + u.ru_stime.tv_usec) * 1e-6;
}

// Args: packet size, packet delay in ns, link Mb/s.
void BM_StreamPacing(benchmark::State& state)
{
    SConfig c;
    c.width = c.sensorWidth = 1920;
    c.height = c.sensorHeight = 1200;
    c.packetSize = std::uint32_t(state.range(0));
    c.linkMbps = std::uint32_t(state.range(2));
    const int receiver = socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    bind(receiver, reinterpret_cast<sockaddr*>(&a), sizeof a);
    socklen_t len = sizeof a;
    getsockname(receiver, reinterpret_cast<sockaddr*>(&a), &len);

    double ratio = 0, cpuPer100 = 0, rate = 0, dct = 0;
    for (auto _ : state) {
        CMonotonicClock clock;
        CUdpPacketSink udp;
        std::string error;
        if (!udp.open(INADDR_LOOPBACK, error)) {
            state.SkipWithError(error.c_str());
            break;
        }
        CCountingSink sink(udp);
        CCameraModel model(c);
        model.setFrameRateEnable(0);
        model.setScpd(std::uint32_t(state.range(1)));
        model.setDestination(INADDR_LOOPBACK);
        model.setHostPort(ntohs(a.sin_port));
        dct = double(model.deviceThroughput());
        CLockedSource source(model);
        CGvspStreamer streamer(c, sink, clock, source);
        model.startAcquisition();
        streamer.start();
        // Measure whole seconds after the first frame, so the start-up does not count.
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        const std::uint64_t bytes0 = sink.m_bytes;
        const double cpu0 = cpuSeconds();
        const auto t0 = std::chrono::steady_clock::now();
        std::this_thread::sleep_for(std::chrono::seconds(1));
        const std::uint64_t bytes1 = sink.m_bytes;
        const double cpu1 = cpuSeconds();
        const double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        streamer.stop();
        rate = double(bytes1 - bytes0) / elapsed;
        ratio = rate / dct;
        cpuPer100 = (cpu1 - cpu0) / elapsed * 100.0 / (rate / 100e6);
        state.SetIterationTime(elapsed);
    }
    close(receiver);
    state.counters["sent_over_dct"] = ratio;
    state.counters["sent_MBps"] = rate / 1e6;
    state.counters["dct_MBps"] = dct / 1e6;
    state.counters["cpu_pct_per_100MBps"] = cpuPer100;
}

} // namespace

BENCHMARK(BM_StreamPacing)
    ->ArgNames({"packet", "scpd_ns", "link_mbps"})
    ->Args({1500, 0, 1000})
    ->Args({9000, 0, 1000})
    ->Args({1500, 20000, 1000})
    ->Args({1500, 0, 200})
    ->Iterations(1)
    ->Repetitions(10)
    ->ReportAggregatesOnly(true)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
