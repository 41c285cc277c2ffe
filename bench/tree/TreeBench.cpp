// One refresh tick of the bandwidth tree: every measured camera gives a
// sample and every row is rewritten. The dialog does this every 250 ms on the
// GUI thread, so the tick must stay far below that.
#include "bandwidthtreewidget.h"

#include <host/fakes/CFakeCameraControlService.h>
#include <host/fakes/CFakeCameraEnumerationService.h>
#include <host/fakes/CFakeCameraInfo.h>
#include <host/fakes/CFakeCameraStatusService.h>
#include <host/fakes/CFakeParameterService.h>
#include <parameters/fakes/CScriptedParameterCollection.h>

#include <Core/Logging/Logging.h>
#include <Core/Plugin/CPluginManager.h>

#include <benchmark/benchmark.h>

#include <QApplication>

using namespace HostFakes;

namespace {

QSharedPointer<ParameterFakes::CScriptedParameterCollection> cameraNodes()
{
    auto nodes = QSharedPointer<ParameterFakes::CScriptedParameterCollection>::create();
    nodes->addInteger("@StreamGrabber0/MaxNumBuffer", 16, 1, 256);
    nodes->addInteger("@StreamGrabber0/Statistic_Buffer_Underrun_Count", 0, 0, 1 << 30, 1, "RO");
    nodes->addInteger("PayloadSize", 2304000, 1, 1 << 30, 1, "RO");
    nodes->addInteger("DeviceLinkThroughputLimit", 125000000, 1000000, 1000000000);
    nodes->addFloat("ResultingFrameRate", 30.0, 0.0, 1000.0, "RO");
    return nodes;
}

void updateSamples(benchmark::State& state)
{
    const int cameraCount = int(state.range(0));
    auto manager = Core::Plugin::PluginManagerPtr::create();
    auto enumeration = QSharedPointer<CFakeCameraEnumerationService>::create();
    auto status = QSharedPointer<CFakeCameraStatusService>::create();
    auto control = QSharedPointer<CFakeCameraControlService>::create();
    auto parameters = QSharedPointer<CFakeParameterService>::create();
    for (const Core::Service::ServicePtr& service : {Core::Service::ServicePtr(enumeration), Core::Service::ServicePtr(status),
                                                     Core::Service::ServicePtr(control), Core::Service::ServicePtr(parameters)})
        manager->addService(service);

    QList<Core::CameraPoolComponents::CameraInfoPtr> cameras;
    for (int index = 0; index < cameraCount; ++index) {
        // Eight cameras per adapter.
        const QString key = QStringLiteral("gev-%1").arg(index);
        cameras << CFakeCameraInfo::create(QStringLiteral("Camera %1").arg(index), key, "GEV",
                                           {{"Interface", QStringLiteral("192.0.2.%1").arg(index / 8 + 1)}});
        parameters->setCollection(key, cameraNodes());
        status->setGrabbing(key, true);
    }
    enumeration->addTransportLayer("DorvikGigE", cameras);

    BandwidthTreeWidget tree;
    tree.setColumnCount(8);
    tree.setCameraServices(manager.toWeakRef());
    tree.setDeviceClasses({"DorvikGigE"});
    tree.refreshTree();
    for (const auto& camera : cameras)
        tree.startCameraByKey(camera->key());
    tree.startAcquisition();
    if (tree.measuredCameraCount() != size_t(cameraCount)) {
        state.SkipWithError("not every camera is measured");
        return;
    }
    for (const auto& camera : cameras) {
        for (int image = 0; image < 30; ++image)
            control->camera(camera->key())->grab(true, 2304000);
    }

    for (auto _ : state)
        tree.updateSamples();

    tree.stopAcquisition();
}

BENCHMARK(updateSamples)->Arg(64)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(9)
    ->DisplayAggregatesOnly(true);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    Core::Logging::setStderrEnabled(false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
