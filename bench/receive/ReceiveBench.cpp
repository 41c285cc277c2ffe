// Host CPU per MB received: the viewer's camera backend grabbing an emulated
// GigE stream (no live view, no copy of the frames) next to Aravis' own
// arv-camera-test-0.8 on the same emulator, as a ratio. 1920x1200 Mono8 at 20
// and 40 fps, packet sizes 1500 and 9000; arv-camera-test once on the socket
// path the backend uses and once on its default packet socket.
//
//   bench_receive [SECONDS [REPEATS]]   (10 s of streaming, medians of 3)
#include "CCameraProcess.h"

#include <camerapool/CameraPoolServices.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QThread>

#include <fcntl.h>
#include <net/if.h>
#include <sched.h>
#include <signal.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <vector>
#include <cstdio>
#include <cstring>

extern char** environ;

namespace {

constexpr double Payload = 1920.0 * 1200.0;

void enterPrivateNetwork()
{
    if (geteuid() != 0 || unshare(CLONE_NEWNET) != 0) {
        std::fprintf(stderr, "not root: the camera shares loopback with the machine's others\n");
        return;
    }
    const int fd = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request{};
    std::strncpy(request.ifr_name, "lo", IFNAMSIZ - 1);
    if (fd >= 0 && ioctl(fd, SIOCGIFFLAGS, &request) == 0) {
        request.ifr_flags |= IFF_UP;
        ioctl(fd, SIOCSIFFLAGS, &request);
    }
    if (fd >= 0)
        close(fd);
}

double cpuSeconds(const rusage& usage)
{
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
        + double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

void waitMs(int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < milliseconds) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
}

struct SCost
{
    double cpuSeconds = 0;
    double megabytes = 0;
    double perMegabyte() const { return megabytes > 0 ? cpuSeconds / megabytes : -1; }
};

// The backend as the plug-in uses it: the pool opens the camera, grabs, and
// every result reaches a direct connection on the stream thread.
SCost measureBackend(const QString& serial, int seconds)
{
    CameraPool::SCameraPoolServices services = CameraPool::createCameraPoolServices({false, 0});
    Core::CameraPoolComponents::CameraInfoPtr info;
    for (int attempt = 0; attempt < 100 && !info; ++attempt) {
        services.enumeration->onRefresh();
        waitMs(100);
        for (const auto& candidate : services.enumeration->cameras()) {
            if (candidate->key().contains(serial))
                info = candidate;
        }
    }
    if (!info)
        return {};
    const Plugin::CameraPool::ICameraPtr camera = services.control->openCamera(info);
    std::atomic<quint64> bytes{0};
    QObject::connect(
        camera.data(), &Plugin::CameraPool::ICamera::cameraImageGrabbed, camera.data(),
        [&bytes](const auto&, const Zenta::CGrabResultPtr& result) {
            if (result->GrabSucceeded())
                bytes += result->GetPayloadSize();
        },
        Qt::DirectConnection);
    if (!camera || !camera->startGrabbing())
        return {};
    waitMs(1000);
    rusage before{};
    getrusage(RUSAGE_SELF, &before);
    const quint64 bytesBefore = bytes;
    // Grabbing needs no event loop; polling one here would bill its wake-ups to the backend.
    QThread::sleep(unsigned(seconds));
    rusage after{};
    getrusage(RUSAGE_SELF, &after);
    const quint64 bytesAfter = bytes;
    camera->stopGrabbing();
    services.control->closeCamera(info);
    return {cpuSeconds(after) - cpuSeconds(before), double(bytesAfter - bytesBefore) / 1e6};
}

// The program's whole life: discovery and set-up included.
SCost runReference(bool packetSocket, int seconds)
{
    char output[] = "/tmp/bench_receive_XXXXXX";
    const int fd = mkstemp(output);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fd, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, fd, STDERR_FILENO);
    const char* withSocket[] = {"arv-camera-test-0.8", nullptr};
    const char* withoutSocket[] = {"arv-camera-test-0.8", "--no-packet-socket", nullptr};
    pid_t pid = -1;
    const int spawned = posix_spawnp(&pid, "arv-camera-test-0.8", &actions, nullptr,
                                     const_cast<char* const*>(packetSocket ? withSocket : withoutSocket), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(fd);
    if (spawned != 0)
        return {};
    sleep(unsigned(seconds + 1));
    ::kill(pid, SIGINT);
    int status = 0;
    rusage usage{};
    wait4(pid, &status, 0, &usage);
    FILE* file = std::fopen(output, "r");
    QByteArray text;
    char line[512];
    while (file && std::fgets(line, sizeof line, file))
        text += line;
    if (file)
        std::fclose(file);
    unlink(output);
    const QRegularExpressionMatch completed =
        QRegularExpression(QStringLiteral("n_completed_buffers\\s*=\\s*(\\d+)")).match(QString::fromLatin1(text));
    if (!completed.hasMatch())
        return {};
    return {cpuSeconds(usage), completed.captured(1).toDouble() * Payload / 1e6};
}

// A short run's cost taken from a long one's leaves the streaming alone.
SCost measureReference(bool packetSocket, int seconds)
{
    const SCost shortRun = runReference(packetSocket, 2);
    const SCost longRun = runReference(packetSocket, 2 + seconds);
    return {longRun.cpuSeconds - shortRun.cpuSeconds, longRun.megabytes - shortRun.megabytes};
}

} // namespace

int main(int argc, char** argv)
{
    enterPrivateNetwork();
    QCoreApplication app(argc, argv);
    const int seconds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 10;
    const int repeats = argc > 2 ? std::max(1, std::atoi(argv[2])) : 3;
    const auto median = [repeats](const std::function<SCost()>& measure) {
        std::vector<SCost> costs;
        for (int i = 0; i < repeats; ++i)
            costs.push_back(measure());
        std::sort(costs.begin(), costs.end(),
                  [](const SCost& a, const SCost& b) { return a.perMegabyte() < b.perMegabyte(); });
        return costs[costs.size() / 2];
    };
    std::printf("fps packet  backend ms/MB  arv-camera-test ms/MB (socket / packet socket)  ratio (socket / packet socket)\n");
    int index = 0;
    for (const int fps : {20, 40}) {
        for (const int packetSize : {1500, 9000}) {
            const QString serial = QStringLiteral("RB%1N%2").arg(getpid() % 10000).arg(index++);
            CCameraProcess emulator;
            if (!emulator.start({GIGE_EMULATOR_PATH, "--address", "127.0.0.2", "--serial", serial, "--width", "1920",
                                 "--height", "1200", "--fps", QString::number(fps), "--packet-size",
                                 QString::number(packetSize)})) {
                std::printf("%3d %6d  the emulator did not start\n", fps, packetSize);
                continue;
            }
            const SCost backend = median([&] { return measureBackend(serial, seconds); });
            const SCost reference = median([&] { return measureReference(false, seconds); });
            const SCost packetSocket = median([&] { return measureReference(true, seconds); });
            std::printf("%3d %6d  %13.3f  %8.3f / %8.3f  %19s %5.2f / %5.2f   (%.0f, %.0f, %.0f MB)\n", fps, packetSize,
                        1e3 * backend.perMegabyte(), 1e3 * reference.perMegabyte(), 1e3 * packetSocket.perMegabyte(),
                        "", backend.perMegabyte() / reference.perMegabyte(),
                        backend.perMegabyte() / packetSocket.perMegabyte(), backend.megabytes, reference.megabytes,
                        packetSocket.megabytes);
            std::fflush(stdout);
        }
    }
    return 0;
}
