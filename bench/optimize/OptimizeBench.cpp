// Wall time of the Optimize button of one adapter with N emulated GigE cameras
// on loopback, how many times each camera's inter-packet delay is written, and
// how many control commands (register reads and writes) each camera answered
// in one run. The cameras answer every command BWM_BENCH_GVCP_LATENCY_US late
// (500 us unless set), as real ones do.
//
//   bench_optimize_adapter [RUNS [COUNT...]]     (5 runs of 3 and of 8 cameras)
#include "CCameraProcess.h"
#include "CCountingParameterService.h"

#include "bandwidthdialog.h"
#include "bandwidthtreewidget.h"
#include "flattree.h"

#include <camerapool/CameraPoolServices.h>
#include <host/fakes/CModalResponder.h>

#include <Core/Logging/Logging.h>
#include <Core/Plugin/ServiceLookup.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <QTest>

#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

namespace {

using ParameterCollection::ParameterCollectionPtr;

// Discovery then sees only this bench's cameras, and the bench touches no one else's.
void enterPrivateNetwork()
{
    if (geteuid() != 0 || unshare(CLONE_NEWNET) != 0) {
        std::fprintf(stderr, "not root: the cameras share loopback with the machine's others\n");
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

template <class T>
T median(std::vector<T> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? T() : values[values.size() / 2];
}

struct SScenarioResult
{
    std::vector<double> runMs;
    std::vector<int> writesPerCamera;
    std::vector<int> commandsPerCamera;
    int tooManyCameras = 0;
};

class CScenario
{
public:
    explicit CScenario(int cameraCount) : m_count(cameraCount) {}

    bool startCameras(int scenario)
    {
        const int pid = int(getpid()) % 10000;
        for (int i = 0; i < m_count; ++i) {
            const QString serial = QStringLiteral("OB%1S%2C%3").arg(pid).arg(scenario).arg(i);
            m_serials << serial;
            // A distinct /24 per scenario keeps a previous scenario's cameras out of this adapter row.
            const QString address = QStringLiteral("127.%1.%2.%3").arg(100 + scenario).arg(pid % 250).arg(2 + i);
            m_processes.push_back(std::make_unique<CCameraProcess>());
            const QString latency = qEnvironmentVariableIsSet("BWM_BENCH_GVCP_LATENCY_US")
                ? qEnvironmentVariable("BWM_BENCH_GVCP_LATENCY_US")
                : QStringLiteral("500");
            if (!m_processes.back()->start({GIGE_EMULATOR_PATH, "--address", address, "--serial", serial, "--width",
                                            "1280", "--height", "1024", "--fps", "40", "--gvcp-latency-us",
                                            latency})) {
                std::fprintf(stderr, "gige-emulator on %s did not start\n", qPrintable(address));
                return false;
            }
        }
        return true;
    }

    bool run(int runs, SScenarioResult& result)
    {
        QObject servicesParent;
        auto manager = Core::Plugin::PluginManagerPtr::create();
        // Registered first, so that the tree finds it before the backend's own service.
        auto counting = QSharedPointer<CCountingParameterService>::create();
        manager->addService(counting);
        CameraPool::SCameraPoolOptions options;
        options.rescanIntervalMs = 1000;
        CameraPool::registerCameraPoolServices(manager, &servicesParent, options);
        QList<Core::Service::ServicePtr> services;
        manager->services(services);
        for (const auto& service : qAsConst(services)) {
            auto parameters = qSharedPointerDynamicCast<Plugin::ParameterCollectionPool::IParameterService>(service);
            if (parameters && parameters != counting) {
                counting->setInner(parameters);
                break;
            }
        }

        if (!QTest::qWaitFor([&] { return discover(manager); }, 30000)) {
            std::fprintf(stderr, "%d of %d cameras discovered\n", int(m_keys.size()), m_count);
            return false;
        }

        HostFakes::CModalResponder responder;
        for (int i = 0; i < 4; ++i) {
            responder.expect([](QWidget* modal) {
                if (!qobject_cast<BandwidthDialog*>(modal))
                    HostFakes::CModalResponder::closeWindow()(modal);
            });
        }
        BandwidthDialog dialog(manager.toWeakRef(), nullptr, Qt::WindowFlags(), nullptr);
        dialog.show();
        auto* tree = dialog.findChild<BandwidthTreeWidget*>(QStringLiteral("treeBandwidth"));
        FlatTreeItemID adapterId = 0;
        for (const QString& key : qAsConst(m_keys)) {
            const FlatTreeItemID id = tree->model()->findByKey(key);
            if (id == 0)
                return false;
            FlatTreeItem& item = tree->model()->item(id);
            item.row->setCheckState(0, Qt::Checked);
            if (!item.measuringCamera || !item.editor) {
                std::fprintf(stderr, "%s: not measured: %s\n", qPrintable(key), qPrintable(item.row->toolTip(0)));
                return false;
            }
            adapterId = item.parentId;
        }

        int tooMany = 0;
        QObject::connect(tree, &BandwidthTreeWidget::optimizedGigECamera,
                         [&tooMany](const BandwidthTreeWidget::SOptimizationResult& r) { tooMany += r.tooManyCameras; });
        for (int run = 0; run < runs; ++run) {
            resetCameras(manager, tree);
            counting->resetCounts();
            const std::vector<qint64> commandsBefore = controlCommands(manager, tree);
            QElapsedTimer timer;
            timer.start();
            tree->onOptimizeButton(int(adapterId));
            result.runMs.push_back(double(timer.nsecsElapsed()) / 1e6);
            // The backend reads written nodes back a moment after a burst of writes: counted too.
            QTest::qWait(250);
            const std::vector<qint64> commandsAfter = controlCommands(manager, tree);
            for (int i = 0; i < m_count; ++i) {
                result.writesPerCamera.push_back(counting->delayWrites(m_keys[i]));
                // Less the reading of the counter itself.
                result.commandsPerCamera.push_back(int(commandsAfter[size_t(i)] - commandsBefore[size_t(i)] - 1));
            }
        }
        result.tooManyCameras = tooMany;
        dialog.done(0);
        return true;
    }

private:
    bool discover(const Core::Plugin::PluginManagerPtr& manager)
    {
        m_keys.clear();
        const auto enumeration = Core::Plugin::getService<Plugin::CameraPool::ICameraEnumerationService>(manager);
        for (const auto& layer : enumeration ? enumeration->transportLayers() : decltype(enumeration->transportLayers())()) {
            for (const auto& info : layer->cameras()) {
                for (const QString& serial : qAsConst(m_serials)) {
                    if (info->displayName().contains(serial))
                        m_keys << info->key();
                }
            }
        }
        return m_keys.size() == m_count;
    }

    static ParameterCollectionPtr backendCollection(const Core::Plugin::PluginManagerPtr& manager,
                                                   BandwidthTreeWidget* tree, const QString& key)
    {
        QList<Core::Service::ServicePtr> services;
        manager->services(services);
        const FlatTreeItem& item = tree->model()->item(tree->model()->findByKey(key));
        for (const auto& service : qAsConst(services)) {
            if (auto candidate = qSharedPointerDynamicCast<CameraPool::CParameterService>(service))
                return candidate->parameterCollection(item.cameraInfo);
        }
        return {};
    }

    std::vector<qint64> controlCommands(const Core::Plugin::PluginManagerPtr& manager, BandwidthTreeWidget* tree)
    {
        std::vector<qint64> counts;
        for (const QString& key : qAsConst(m_keys)) {
            const ParameterCollectionPtr parameters = backendCollection(manager, tree, key);
            const auto node = parameters ? parameters->getIntegerParameter(QStringLiteral("EmulatorControlCommands"))
                                         : ParameterCollection::IntegerParameterPtr();
            counts.push_back(node ? node->getValue() : 0);
        }
        return counts;
    }

    // Every run starts from cameras that were never optimised; these writes are not counted.
    void resetCameras(const Core::Plugin::PluginManagerPtr& manager, BandwidthTreeWidget* tree)
    {
        for (const QString& key : qAsConst(m_keys)) {
            const ParameterCollectionPtr parameters = backendCollection(manager, tree, key);
            if (!parameters)
                continue;
            parameters->getIntegerParameter(QStringLiteral("GevSCPD"))->setValue(0, 0);
            parameters->getIntegerParameter(QStringLiteral("GevSCFTD"))->setValue(0, 0);
            parameters->getIntegerParameter(QStringLiteral("GevSCPSPacketSize"))->setValue(1500, 0);
        }
    }

    int m_count;
    QStringList m_serials;
    QStringList m_keys;
    std::vector<std::unique_ptr<CCameraProcess>> m_processes;
};

} // namespace

int main(int argc, char** argv)
{
    enterPrivateNetwork();
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("BandwidthManagerBench"));
    QCoreApplication::setApplicationName(QStringLiteral("bench_optimize_adapter"));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    Core::Logging::setStderrEnabled(false);

    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    std::vector<int> counts;
    for (int i = 2; i < argc; ++i)
        counts.push_back(std::max(1, std::atoi(argv[i])));
    if (counts.empty())
        counts = {3, 8};

    int failures = 0;
    for (size_t scenario = 0; scenario < counts.size(); ++scenario) {
        CScenario cameras(counts[scenario]);
        SScenarioResult result;
        if (!cameras.startCameras(int(scenario)) || !cameras.run(runs, result)) {
            std::printf("%d cameras: not measured\n", counts[scenario]);
            ++failures;
            continue;
        }
        const auto [fastest, slowest] = std::minmax_element(result.runMs.begin(), result.runMs.end());
        std::printf("%d cameras: optimise adapter median %.0f ms (min %.0f, max %.0f) over %d runs; "
                    "GevSCPD writes per camera median %d (min %d, max %d); control commands per camera median %d "
                    "(min %d, max %d); tooManyCameras in %d runs\n",
                    counts[scenario], median(result.runMs), *fastest, *slowest, runs, median(result.writesPerCamera),
                    *std::min_element(result.writesPerCamera.begin(), result.writesPerCamera.end()),
                    *std::max_element(result.writesPerCamera.begin(), result.writesPerCamera.end()),
                    median(result.commandsPerCamera),
                    *std::min_element(result.commandsPerCamera.begin(), result.commandsPerCamera.end()),
                    *std::max_element(result.commandsPerCamera.begin(), result.commandsPerCamera.end()),
                    result.tooManyCameras);
    }
    return failures == 0 ? 0 : 1;
}
