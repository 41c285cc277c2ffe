#include "bandwidthmeasuringcamera.h"

#include <host/fakes/CFakeCameraControlService.h>
#include <host/fakes/CFakeCameraInfo.h>
#include <host/fakes/CFakeCameraStatusService.h>
#include <parameters/fakes/CScriptedParameterCollection.h>

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstddef>

// Every heap allocation of the process goes through here, Qt's included
// (its containers call malloc directly, not operator new); only those made
// while g_counting is set are counted, that is, inside the timed loops.
namespace {
std::atomic<bool> g_counting{false};
std::atomic<long> g_allocations{0};

void count()
{
    if (g_counting.load(std::memory_order_relaxed))
        g_allocations.fetch_add(1, std::memory_order_relaxed);
}
} // namespace

extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* p, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* p);

void* malloc(size_t size)
{
    count();
    return __libc_malloc(size);
}
void* calloc(size_t n, size_t size)
{
    count();
    return __libc_calloc(n, size);
}
void* realloc(void* p, size_t size)
{
    count();
    return __libc_realloc(p, size);
}
void* memalign(size_t alignment, size_t size)
{
    count();
    return __libc_memalign(alignment, size);
}
void* aligned_alloc(size_t alignment, size_t size)
{
    count();
    return __libc_memalign(alignment, size);
}
int posix_memalign(void** out, size_t alignment, size_t size)
{
    count();
    *out = __libc_memalign(alignment, size);
    return *out ? 0 : 12;
}
void free(void* p)
{
    __libc_free(p);
}
}

namespace {

using namespace Plugin::BandwidthManager;

struct SRig
{
    SRig()
    {
        parameters->addInteger("@StreamGrabber0/Statistic_Buffer_Underrun_Count", 0, 0, 1 << 30, 1, "RO");
        parameters->addInteger("@StreamGrabber0/MaxNumBuffer", 16, 1, 256);
        parameters->addInteger("PayloadSize", 5000000, 0, 1 << 30, 1, "RO");
        parameters->addInteger("DeviceLinkThroughputLimit", 400000000, 1000000, 400000000);
        parameters->addFloat("ResultingFrameRate", 23.5, 0, 1000, "RO");
        control->setAlreadyOpen(key);
        measuring.openCamera();
        measuring.initParameters();
        camera = control->camera(key);
    }

    const QString key = QStringLiteral("GEV:bench");
    QSharedPointer<ParameterFakes::CScriptedParameterCollection> parameters =
        QSharedPointer<ParameterFakes::CScriptedParameterCollection>::create();
    Core::CameraPoolComponents::CameraInfoPtr info = HostFakes::CFakeCameraInfo::create("bench", key, "GEV");
    QSharedPointer<HostFakes::CFakeCameraStatusService> status = QSharedPointer<HostFakes::CFakeCameraStatusService>::create();
    QSharedPointer<HostFakes::CFakeCameraControlService> control = QSharedPointer<HostFakes::CFakeCameraControlService>::create();
    CBandwidthMeasuringCamera measuring{parameters, info, status, control};
    QSharedPointer<HostFakes::CFakeCamera> camera;
};

template <class TBody>
void countedLoop(benchmark::State& state, TBody body)
{
    g_allocations = 0;
    g_counting = true;
    for (auto _ : state)
        body();
    g_counting = false;
    state.counters["allocs_per_call"] =
        benchmark::Counter(double(g_allocations.load()) / double(state.iterations()));
}

void BM_onImageGrabbed(benchmark::State& state)
{
    SRig rig;
    const Zenta::CGrabResultPtr result(Zenta::CGrabResultData(state.range(0) != 0, 5000000));
    countedLoop(state, [&] { rig.measuring.onImageGrabbed(rig.info, result); });
    benchmark::DoNotOptimize(rig.measuring.getSample());
}
BENCHMARK(BM_onImageGrabbed)->ArgName("succeeded")->Arg(1)->Arg(0);

// The way the grab thread reaches the handler: the signal, direct connection.
void BM_cameraImageGrabbedSignal(benchmark::State& state)
{
    SRig rig;
    const bool succeeded = state.range(0) != 0;
    countedLoop(state, [&] { rig.camera->grab(succeeded, 5000000); });
}
BENCHMARK(BM_cameraImageGrabbedSignal)->ArgName("succeeded")->Arg(1)->Arg(0);

void BM_getSample(benchmark::State& state)
{
    SRig rig;
    rig.status->setGrabbing(rig.key, state.range(0) != 0);
    rig.measuring.startMeasuring();
    for (int i = 0; i < 1000; ++i)
        rig.camera->grab(true, 5000000);
    countedLoop(state, [&] { benchmark::DoNotOptimize(rig.measuring.getSample()); });
}
BENCHMARK(BM_getSample)->ArgName("grabbing")->Arg(1)->Arg(0);

} // namespace

BENCHMARK_MAIN();
