// bwm-stream-probe: streams from GigE cameras through Aravis for a while and
// prints what arrived, one line per camera, for scripts and tests.
#include <arv.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

const char* kUsage =
    "usage: bwm-stream-probe [--seconds S] [--packet-size N] [--fps F] [--no-resend]\n"
    "                        [--scpd TICKS | --link-share F [--link-mbps N]] ADDR...\n"
    "--link-share F sets GevSCPD so that each camera's full packets take at most\n"
    "the share F of a link of --link-mbps (1000). One line per camera, then 'total'.\n";

struct SOptions
{
    double seconds = 5;
    long packetSize = 0;
    double fps = 0;
    long scpd = -1;
    double linkShare = 0;
    double linkMbps = 1000;
    bool resend = true;
    std::vector<std::string> addresses;
};

struct SCamera
{
    std::string address;
    ArvCamera* camera = nullptr;
    ArvStream* stream = nullptr;
    long packetSize = 0;
    long scpd = 0;
    double resultingFps = -1;
    std::uint64_t completed = 0;
    std::uint64_t incomplete = 0;
};

[[noreturn]] void fail(const std::string& what, GError* error)
{
    std::fprintf(stderr, "bwm-stream-probe: %s: %s\n", what.c_str(),
                 error ? error->message : "failed");
    std::exit(1);
}

void check(const std::string& what, GError*& error)
{
    if (error)
        fail(what, error);
}

// Delay in ticks after each packet so that a packet of P bytes and its gap
// together last P's wire time divided by the share.
long delayForShare(long packetSize, double share, double linkMbps, double tickHz)
{
    const double wire = (packetSize + 38) * 8.0 / (linkMbps * 1e6);
    return static_cast<long>(std::ceil(wire * (1.0 / share - 1.0) * tickHz));
}

SOptions parse(int argc, char** argv)
{
    SOptions o;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        auto value = [&]() -> const char* {
            if (i + 1 >= argc) {
                std::fprintf(stderr, "missing value for %s\n%s", a.c_str(), kUsage);
                std::exit(2);
            }
            return argv[++i];
        };
        if (a == "--seconds") o.seconds = std::atof(value());
        else if (a == "--packet-size") o.packetSize = std::atol(value());
        else if (a == "--fps") o.fps = std::atof(value());
        else if (a == "--scpd") o.scpd = std::atol(value());
        else if (a == "--link-share") o.linkShare = std::atof(value());
        else if (a == "--link-mbps") o.linkMbps = std::atof(value());
        else if (a == "--no-resend") o.resend = false;
        else if (a == "-h" || a == "--help") { std::fputs(kUsage, stdout); std::exit(0); }
        else if (!a.empty() && a[0] == '-') { std::fprintf(stderr, "unknown %s\n%s", a.c_str(), kUsage); std::exit(2); }
        else o.addresses.push_back(a);
    }
    if (o.addresses.empty() || o.seconds <= 0 || (o.linkShare < 0 || o.linkShare > 1)) {
        std::fputs(kUsage, stderr);
        std::exit(2);
    }
    return o;
}

void openCamera(SCamera& c, const SOptions& o)
{
    GError* error = nullptr;
    c.camera = arv_camera_new(c.address.c_str(), &error);
    check("open " + c.address, error);
    arv_camera_set_acquisition_mode(c.camera, ARV_ACQUISITION_MODE_CONTINUOUS, &error);
    check("acquisition mode", error);
    if (o.packetSize > 0) {
        arv_camera_gv_set_packet_size_adjustment(c.camera, ARV_GV_PACKET_SIZE_ADJUSTMENT_NEVER);
        arv_camera_gv_set_packet_size(c.camera, static_cast<gint>(o.packetSize), &error);
        check("packet size", error);
    }
    if (o.fps > 0) {
        arv_camera_set_frame_rate(c.camera, o.fps, &error);
        check("frame rate", error);
    }
    c.packetSize = arv_camera_gv_get_packet_size(c.camera, &error);
    check("packet size", error);
    c.scpd = o.scpd;
    if (o.linkShare > 0) {
        const gint64 tickHz =
            arv_camera_get_integer(c.camera, "GevTimestampTickFrequency", &error);
        check("GevTimestampTickFrequency", error);
        c.scpd = delayForShare(c.packetSize, o.linkShare, o.linkMbps, double(tickHz));
    }
    if (c.scpd >= 0) {
        arv_camera_gv_set_packet_delay(c.camera, c.scpd, &error);
        check("GevSCPD", error);
    }
    // Only some cameras compute it; -1 marks its absence.
    if (arv_camera_is_feature_available(c.camera, "ResultingFrameRate", nullptr))
        c.resultingFps = arv_camera_get_float(c.camera, "ResultingFrameRate", nullptr);
    c.stream = arv_camera_create_stream(c.camera, nullptr, nullptr, &error);
    check("stream " + c.address, error);
    if (!o.resend)
        g_object_set(c.stream, "packet-resend", ARV_GV_STREAM_PACKET_RESEND_NEVER, nullptr);
    const guint payload = arv_camera_get_payload(c.camera, &error);
    check("payload", error);
    for (int i = 0; i < 16; ++i)
        arv_stream_push_buffer(c.stream, arv_buffer_new(payload, nullptr));
}

std::uint64_t info(ArvStream* s, const char* name)
{
    return arv_stream_get_info_uint64_by_name(s, name);
}

} // namespace

int main(int argc, char** argv)
{
    const SOptions o = parse(argc, argv);
    std::vector<SCamera> cameras(o.addresses.size());
    for (std::size_t i = 0; i < cameras.size(); ++i) {
        cameras[i].address = o.addresses[i];
        openCamera(cameras[i], o);
    }
    for (SCamera& c : cameras) {
        GError* error = nullptr;
        arv_camera_start_acquisition(c.camera, &error);
        check("start " + c.address, error);
    }
    const gint64 start = g_get_monotonic_time();
    const gint64 end = start + static_cast<gint64>(o.seconds * 1e6);
    while (g_get_monotonic_time() < end) {
        for (SCamera& c : cameras) {
            while (ArvBuffer* b = arv_stream_try_pop_buffer(c.stream)) {
                if (arv_buffer_get_status(b) == ARV_BUFFER_STATUS_SUCCESS)
                    ++c.completed;
                else
                    ++c.incomplete;
                arv_stream_push_buffer(c.stream, b);
            }
        }
        g_usleep(2000);
    }
    const double elapsed = (g_get_monotonic_time() - start) / 1e6;
    std::uint64_t totalMissing = 0, totalBytes = 0, totalCompleted = 0, totalFailed = 0;
    for (SCamera& c : cameras) {
        GError* error = nullptr;
        arv_camera_stop_acquisition(c.camera, &error);
        g_clear_error(&error);
        const std::uint64_t missing = info(c.stream, "n_missing_packets");
        const std::uint64_t bytes = info(c.stream, "n_transferred_bytes");
        std::printf("camera=%s packet_size=%ld scpd=%ld resulting_fps=%.3f seconds=%.3f "
                    "completed=%llu incomplete=%llu "
                    "missing_packets=%llu resend_requests=%llu resent_packets=%llu "
                    "received_packets=%llu mbytes_per_s=%.2f\n",
                    c.address.c_str(), c.packetSize, c.scpd, c.resultingFps, elapsed,
                    (unsigned long long)c.completed, (unsigned long long)c.incomplete,
                    (unsigned long long)missing,
                    (unsigned long long)info(c.stream, "n_resend_requests"),
                    (unsigned long long)info(c.stream, "n_resent_packets"),
                    (unsigned long long)info(c.stream, "n_received_packets"), bytes / elapsed / 1e6);
        totalMissing += missing;
        totalBytes += bytes;
        totalCompleted += c.completed;
        totalFailed += c.incomplete;
        g_object_unref(c.stream);
        g_object_unref(c.camera);
    }
    std::printf("total completed=%llu incomplete=%llu missing_packets=%llu mbytes_per_s=%.2f\n",
                (unsigned long long)totalCompleted, (unsigned long long)totalFailed,
                (unsigned long long)totalMissing, totalBytes / elapsed / 1e6);
    arv_shutdown();
    return 0;
}
