#include "bandwidthdialog.h"
#include "bandwidthlimiterinterpacketdelay.h"
#include "bandwidthtreewidget.h"
#include "cameraconfigurationeditor.h"
#include "flattree.h"
#include "zentaqtspinbox.h"

#include <camerapool/CameraPoolServices.h>
#include <host/fakes/CModalResponder.h>

#include <Core/Logging/Logging.h>
#include <Core/Plugin/ServiceLookup.h>
#include <Plugin/ParameterCollectionPool/IParameterService.h>

#include <host/fakes/WaitUntil.h>

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QPushButton>
#include <QTest>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Small frames: the rates must hold on a busy machine, grabbing in user space.
constexpr double FramesPerSecond = 20.0;
constexpr int Width = 640;
constexpr int Height = 480;

// The emulator, started for this test and ended by its pid, also when the test fails.
class CEmulatorProcess
{
public:
    ~CEmulatorProcess()
    {
        if (m_pid <= 0)
            return;
        ::kill(m_pid, SIGTERM);
        ::waitpid(m_pid, nullptr, 0);
    }

    bool start(const QStringList& arguments)
    {
        std::vector<QByteArray> storage;
        for (const QString& argument : arguments)
            storage.push_back(argument.toLocal8Bit());
        std::vector<char*> argv;
        for (QByteArray& argument : storage)
            argv.push_back(argument.data());
        argv.push_back(nullptr);
        m_pid = ::fork();
        if (m_pid == 0) {
            ::execv(argv[0], argv.data());
            ::_exit(127);
        }
        if (m_pid < 0)
            return false;
        ::usleep(300000);
        return ::waitpid(m_pid, nullptr, WNOHANG) == 0;
    }

private:
    pid_t m_pid = -1;
};

class LimitFromTree : public ::testing::Test
{
protected:
    void SetUp() override
    {
        // An address and serial of this run, so that other runs' cameras on loopback do not meet ours.
        const int pid = int(::getpid());
        serial = QStringLiteral("LIM%1").arg(pid % 1000000);
        const QString address = QStringLiteral("127.%1.%2.%3").arg(150 + pid % 100).arg((pid / 100) % 250).arg(2 + pid % 200);
        ASSERT_TRUE(emulator.start({GIGE_EMULATOR_PATH, "--address", address, "--serial", serial, "--width", QString::number(Width),
                                    "--height", QString::number(Height), "--fps", QString::number(FramesPerSecond)}))
            << "gige-emulator on " << address.toStdString();
        Core::Logging::setStderrEnabled(qEnvironmentVariableIsSet("BWM_E2E_LOG"));
        CameraPool::SCameraPoolOptions options;
        options.rescanIntervalMs = 1000;
        CameraPool::registerCameraPoolServices(manager, &servicesParent, options);
    }
    void TearDown() override { Core::Logging::setStderrEnabled(true); }

    QString discoveredKey() const
    {
        const auto enumeration = Core::Plugin::getService<Plugin::CameraPool::ICameraEnumerationService>(manager);
        for (const auto& layer : enumeration ? enumeration->transportLayers() : decltype(enumeration->transportLayers())()) {
            for (const auto& info : layer->cameras()) {
                if (info->displayName().contains(serial))
                    return info->key();
            }
        }
        return QString();
    }

    const FlatTreeItem* row() const
    {
        const FlatTreeItemID id = tree->model()->findByKey(key);
        return id == 0 ? nullptr : &tree->model()->item(id);
    }

    qint64 interPacketDelay() const
    {
        const auto service = Core::Plugin::getService<Plugin::ParameterCollectionPool::IParameterService>(manager);
        const auto parameters = service->parameterCollection(row()->cameraInfo);
        return parameters->getIntegerParameter(QStringLiteral("GevSCPD"))->getValue();
    }

    void setInterPacketDelay(qint64 ticks) const
    {
        const auto service = Core::Plugin::getService<Plugin::ParameterCollectionPool::IParameterService>(manager);
        service->parameterCollection(row()->cameraInfo)->getIntegerParameter(QStringLiteral("GevSCPD"))->setValue(ticks, 0);
    }

    double payloadMBs() const { return double(row()->payloadReceived) / 1e6; }

    Core::Plugin::PluginManagerPtr manager = Core::Plugin::PluginManagerPtr::create();
    CEmulatorProcess emulator;
    QString serial;
    QString key;
    BandwidthTreeWidget* tree = nullptr;
    // Destroyed first: the backend closes its cameras before the emulator ends.
    QObject servicesParent;
};

TEST_F(LimitFromTree, limitTypedIntoTheEditorSlowsTheCamera)
{
    ASSERT_TRUE(HostFakes::waitUntil([this] { return !(key = discoveredKey()).isEmpty(); }, 20000)) << "camera not discovered";

    // Declines the GigE offer and leaves the (modal) bandwidth dialog alone.
    HostFakes::CModalResponder responder;
    for (int i = 0; i < 8; ++i) {
        responder.expect([](QWidget* modal) {
            if (!qobject_cast<BandwidthDialog*>(modal))
                HostFakes::CModalResponder::closeWindow()(modal);
        });
    }
    BandwidthDialog dialog(manager.toWeakRef(), nullptr, Qt::WindowFlags(), nullptr);
    dialog.resize(1100, 300);
    dialog.show();
    tree = dialog.findChild<BandwidthTreeWidget*>(QStringLiteral("treeBandwidth"));
    ASSERT_NE(tree, nullptr);
    ASSERT_NE(row(), nullptr) << key.toStdString();
    // Packets spread over most of the frame period instead of one burst, which a
    // busy machine's socket buffer would not hold; the frame rate stays the limit.
    setInterPacketDelay(150000);
    row()->row->setCheckState(0, Qt::Checked);
    ASSERT_NE(row()->measuringCamera, nullptr) << row()->row->toolTip(0).toStdString();
    auto* limiter = qobject_cast<BandwidthLimiterInterPacketDelay*>(row()->editor);
    ASSERT_NE(limiter, nullptr) << "limit cell holds no inter-packet delay limiter";
    EXPECT_EQ(tree->itemWidget(row()->row, 1), limiter);
    EXPECT_NE(qobject_cast<CameraConfigurationEditor*>(tree->itemWidget(row()->row, 2)), nullptr);
    EXPECT_TRUE(limiter->isEnabled());

    dialog.findChild<QPushButton*>(QStringLiteral("btnStart"))->click();
    const double unlimited = double(Width) * Height * FramesPerSecond / 1e6; // 6.1 MB/s, the frame rate's limit
    ASSERT_TRUE(HostFakes::waitUntil([&] { return qAbs(payloadMBs() - unlimited) < unlimited * 0.05; }, 10000))
        << "payload " << payloadMBs() << " MB/s before the limit; fps sent " << row()->fpsSent << " received "
        << row()->fpsReceived << " delay " << interPacketDelay() << " images " << row()->images << " errors " << row()->errors;
    EXPECT_EQ(limiter->value(), 6); // what the camera reports, 6.3 MB/s with IP headers
    const qint64 delayBefore = interPacketDelay();

    const int limit = 3;
    limiter->spinBox()->setFocus();
    limiter->spinBox()->selectAll();
    QTest::keyClicks(limiter->spinBox(), QString::number(limit));
    QTest::keyClick(limiter->spinBox(), Qt::Key_Return);

    EXPECT_GT(interPacketDelay(), delayBefore);
    EXPECT_NEAR(limiter->value(), limit, 1);
    // The camera reports IP bytes, the payload column image bytes: 2.4 % less here.
    EXPECT_TRUE(HostFakes::waitUntil([&] { return qAbs(payloadMBs() - limit * 0.976) < limit * 0.05; }, 10000))
        << "payload " << payloadMBs() << " MB/s under a limit of " << limit;
    EXPECT_EQ(row()->errors, 0u);

    const QByteArray screenshot = qgetenv("BWM_EDITORS_SCREENSHOT");
    if (!screenshot.isEmpty()) {
        EXPECT_TRUE(dialog.grab().save(QString::fromLocal8Bit(screenshot)));
    }
    dialog.done(0);
}

} // namespace
