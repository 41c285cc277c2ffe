#include "CFakeCameraNetwork.h"

#include <camerapool/Aravis.h>
#include <camerapool/CameraPoolServices.h>
#include <camerapool/InterfaceAddress.h>

#include <GenICam/GenericException.h>
#include <ParameterCollection/IntegerParameterData.h>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QThread>

#include <functional>
#include <unistd.h>
#include <mutex>

using namespace CameraPool;
using namespace ParameterCollection;
using Core::CameraPoolComponents::CameraInfoPtr;

namespace {

bool waitFor(const std::function<bool()>& condition, int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > timeoutMs)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
    return true;
}

QString keyOf(const CFakeCameraNetwork::SCamera* camera)
{
    return QStringLiteral("Aravis-Fake-") + camera->serial;
}

// What the grab callback saw, written on the stream thread.
struct SGrabLog
{
    std::mutex mutex;
    int succeeded = 0;
    int failed = 0;
    QSet<size_t> sizes;
    QSet<QThread*> threads;

    void connectTo(Plugin::CameraPool::ICamera* camera)
    {
        QObject::connect(
            camera, &Plugin::CameraPool::ICamera::cameraImageGrabbed, camera,
            [this](const CameraInfoPtr&, const Zenta::CGrabResultPtr& result) {
                std::lock_guard<std::mutex> guard(mutex);
                (result->GrabSucceeded() ? succeeded : failed) += 1;
                if (result->GrabSucceeded())
                    sizes.insert(result->GetPayloadSize());
                threads.insert(QThread::currentThread());
            },
            Qt::DirectConnection);
    }
    int count(bool success)
    {
        std::lock_guard<std::mutex> guard(mutex);
        return success ? succeeded : failed;
    }
};

class GigECameraTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        CFakeCameraNetwork& network = CFakeCameraNetwork::instance();
        const QString tag = QString::number(getpid() % 100000);
        s_main = network.startCamera(0, 2, "CPA" + tag);
        if (network.isNamespaced()) {
            s_other = network.startCamera(1, 2, "CPB" + tag);
            s_lossy = network.startCamera(0, 3, "CPL" + tag, {"-r", "20"});
            s_victim = network.startCamera(1, 3, "CPK" + tag);
        } else {
            s_victim = s_main;
        }
        s_services = new SCameraPoolServices(createCameraPoolServices({false, 0}));
        QList<const CFakeCameraNetwork::SCamera*> wanted;
        for (const auto* camera : {s_main, s_other, s_lossy, s_victim}) {
            if (camera && !wanted.contains(camera))
                wanted << camera;
        }
        waitFor(
            [&] {
                QSignalSpy finished(s_services->enumeration.data(), &CCameraEnumerationService::scanFinished);
                s_services->enumeration->onRefresh();
                finished.wait(5000);
                for (const auto* camera : wanted) {
                    if (!s_services->enumeration->findCamera(keyOf(camera)))
                        return false;
                }
                return true;
            },
            15000);
    }

    static void TearDownTestSuite()
    {
        delete s_services;
        s_services = nullptr;
    }

    void SetUp() override
    {
        ASSERT_TRUE(s_main) << "the fake camera did not start";
    }

    static CameraInfoPtr info(const CFakeCameraNetwork::SCamera* camera)
    {
        return s_services->enumeration->findCamera(keyOf(camera));
    }

    static ParameterCollectionPtr collectionOf(const CFakeCameraNetwork::SCamera* camera)
    {
        return s_services->parameters->parameterCollection(info(camera));
    }

    static SCameraPoolServices* s_services;
    static const CFakeCameraNetwork::SCamera* s_main;
    static const CFakeCameraNetwork::SCamera* s_other;
    static const CFakeCameraNetwork::SCamera* s_lossy;
    static const CFakeCameraNetwork::SCamera* s_victim;
};

SCameraPoolServices* GigECameraTest::s_services = nullptr;
const CFakeCameraNetwork::SCamera* GigECameraTest::s_main = nullptr;
const CFakeCameraNetwork::SCamera* GigECameraTest::s_other = nullptr;
const CFakeCameraNetwork::SCamera* GigECameraTest::s_lossy = nullptr;
const CFakeCameraNetwork::SCamera* GigECameraTest::s_victim = nullptr;

} // namespace

// A name keeps a namespace alive after its process; ours must end with us.
TEST_F(GigECameraTest, TheTestNetworkHasNoNamespaceNameThatCouldOutliveTheRun)
{
    if (!CFakeCameraNetwork::instance().isNamespaced())
        GTEST_SKIP() << "loopback: no namespace";
    ASSERT_TRUE(s_main) << "the cameras run in the namespace";
    const QStringList names = QDir(QStringLiteral("/var/run/netns")).entryList(QDir::Files);
    EXPECT_TRUE(names.filter(QRegularExpression(QStringLiteral("^bwmcam_[hc]_%1$").arg(getpid()))).isEmpty())
        << names.join(' ').toStdString();
}

TEST_F(GigECameraTest, GigEInterfaceListsEachCameraWithItsHostAdapter)
{
    const auto layers = s_services->enumeration->transportLayers();
    ASSERT_EQ(layers.first()->name(), "DorvikGigE");
    for (const auto* camera : {s_main, s_other, s_lossy, s_victim}) {
        if (!camera)
            continue;
        SCOPED_TRACE(camera->serial.toStdString());
        CameraInfoPtr listed;
        for (const CameraInfoPtr& candidate : layers.first()->cameras()) {
            if (candidate->key() == keyOf(camera))
                listed = candidate;
        }
        ASSERT_TRUE(listed);
        EXPECT_EQ(listed->deviceClass(), "GEV");
        EXPECT_EQ(listed->displayName(), "Fake (" + camera->serial + ")");
        EXPECT_EQ(listed->property("Interface"), camera->hostAddress);
        bool ok = false;
        const quint32 address = QHostAddress(camera->address).toIPv4Address(&ok);
        EXPECT_EQ(QHostAddress(routedSourceAddress(address)).toString(), camera->hostAddress);
    }
}

namespace {

struct SIntegerCase
{
    const char* scenario;
    const char* node;
    qint64 value;
    int correction;
    qint64 expected;
    qint64 minimum, maximum, increment;
};

const SIntegerCase IntegerCases[] = {
    {"width_in_range_is_written", "Width", 640, CorrectionNone, 640, 1, 2048, 1},
    {"width_below_minimum_goes_to_minimum", "Width", 0, CorrectionNearest, 1, 1, 2048, 1},
    {"packet_size_goes_to_nearest_on_its_grid", "GevSCPSPacketSize", 1401, CorrectionNearest, 1400, 220, 16404, 4},
    {"gain_above_maximum_goes_to_maximum", "GainRaw", 50, CorrectionNearest, 10, 0, 10, 1},
    {"stream_buffers_are_the_hosts_own", "@StreamGrabber0/MaxNumBuffer", 2000, CorrectionNearest, 1024, 1, 1024, 1},
};

} // namespace

TEST_F(GigECameraTest, IntegerNodesWriteWithRangesAndCorrection)
{
    const ParameterCollectionPtr collection = collectionOf(s_main);
    ASSERT_TRUE(collection);
    for (const SIntegerCase& c : IntegerCases) {
        SCOPED_TRACE(c.scenario);
        const IntegerParameterPtr node = collection->getIntegerParameter(c.node);
        ASSERT_TRUE(node);
        ASSERT_FALSE(node->isNull());
        ASSERT_TRUE(node->isWritable());
        EXPECT_EQ(node->getMin(), c.minimum);
        EXPECT_EQ(node->getMax(), c.maximum);
        EXPECT_EQ(node->getInc(), c.increment);
        node->setValue(c.value, c.correction);
        EXPECT_EQ(node->getValue(), c.expected);
        const auto data = node->parameterData().dynamicCast<const IntegerParameterData>();
        ASSERT_TRUE(data);
        EXPECT_EQ(data->value, c.expected);
    }
    collection->getIntegerParameter("Width")->setValue(512, CorrectionNone);
    collection->getIntegerParameter("@StreamGrabber0/MaxNumBuffer")->setValue(10, CorrectionNone);
}

TEST_F(GigECameraTest, FloatEnumerationBooleanAndCommandNodes)
{
    const ParameterCollectionPtr collection = collectionOf(s_main);
    ASSERT_TRUE(collection);

    const FloatParameterPtr rate = collection->getFloatParameter("AcquisitionFrameRate");
    ASSERT_TRUE(rate);
    EXPECT_LE(rate->getMin(), 0.1 + 1e-9);
    EXPECT_GE(rate->getMax(), 1000.0 - 1e-9);
    rate->setValue(12.5, CorrectionNone);
    EXPECT_NEAR(rate->getValue(), 12.5, 1e-6);
    rate->setValue(5000.0, CorrectionNearest);
    EXPECT_NEAR(rate->getValue(), rate->getMax(), 1e-6);
    rate->setValue(25.0, CorrectionNone);

    const EnumerationParameterPtr trigger = collection->getEnumerationParameter("TriggerMode");
    ASSERT_TRUE(trigger);
    const auto entries = trigger->getSettableValues();
    EXPECT_NE(std::find(entries.begin(), entries.end(), "On"), entries.end());
    trigger->setValue("On");
    EXPECT_EQ(trigger->getValue(), "On");
    trigger->setValue("Off");
    EXPECT_EQ(trigger->getValue(), "Off");

    const BooleanParameterPtr flag = collection->getBooleanParameter("TestBoolean");
    ASSERT_TRUE(flag);
    flag->setValue(true);
    EXPECT_TRUE(flag->getValue());
    flag->setValue(false);
    EXPECT_FALSE(flag->getValue());

    const CommandParameterPtr software = collection->getCommandParameter("TriggerSoftware");
    ASSERT_TRUE(software);
    EXPECT_TRUE(software->isWritable());
    EXPECT_NO_THROW(software->execute(true));

    const CommandParameterPtr probe = collection->getCommandParameter("@StreamGrabber0/ProbePacketSize");
    ASSERT_TRUE(probe);
    const IntegerParameterPtr packetSize = collection->getIntegerParameter("GevSCPSPacketSize");
    packetSize->setValue(1500, CorrectionNone);
    // The fake cannot fire test packets, so the probe keeps the size it finds.
    EXPECT_NO_THROW(probe->execute(false));
    EXPECT_EQ(packetSize->getValue(), 1500);
}

namespace {

struct SRefusalCase
{
    const char* scenario;
    std::function<void(IParameterCollection&)> write;
    const char* messagePart;
};

} // namespace

TEST_F(GigECameraTest, RefusedWritesRaiseTheGenICamExceptionWithAMessage)
{
    const ParameterCollectionPtr collection = collectionOf(s_main);
    ASSERT_TRUE(collection);
    const SRefusalCase cases[] = {
        {"gain_above_maximum_without_correction",
         [](IParameterCollection& c) { c.getIntegerParameter("GainRaw")->setValue(50, CorrectionNone); }, "maximum"},
        {"packet_size_off_its_grid_without_correction",
         [](IParameterCollection& c) { c.getIntegerParameter("GevSCPSPacketSize")->setValue(1401, CorrectionNone); },
         "increment"},
        {"read_only_payload_size",
         [](IParameterCollection& c) { c.getIntegerParameter("PayloadSize")->setValue(1, CorrectionNearest); },
         "not writable"},
        {"unknown_enumeration_entry",
         [](IParameterCollection& c) { c.getEnumerationParameter("TriggerMode")->setValue("Sideways"); }, "Sideways"},
    };
    for (const SRefusalCase& c : cases) {
        SCOPED_TRACE(c.scenario);
        try {
            c.write(*collection);
            ADD_FAILURE() << "no exception";
        } catch (const GenICam_3_1_Dorvik_zenta::GenericException& e) {
            EXPECT_NE(std::string(e.GetDescription()).find(c.messagePart), std::string::npos) << e.GetDescription();
        }
    }
}

TEST_F(GigECameraTest, LookupsByPrefixAlternativeAndKind)
{
    const ParameterCollectionPtr collection = collectionOf(s_main);
    ASSERT_TRUE(collection);
    const struct
    {
        const char* name;
        const char* node;  // nullptr: the lookup gives an empty pointer
    } cases[] = {
        {"NoSuchNode", nullptr},
        {"NoSuchNode|Width", "Width"},
        {"@CameraDevice/Width", "Width"},
        {"@StreamGrabber0/Statistic_Missed_Frame_Count", "Statistic_Missed_Frame_Count"},
        {"@StreamGrabber0/Statistic_Buffer_Underrun_Count", "Statistic_Buffer_Underrun_Count"},
        {"@DeviceTransportLayer/HeartbeatTimeout", "HeartbeatTimeout"},
        {"@DeviceTransportLayer/WriteTimeout", nullptr},
        {"@Elsewhere/Width", nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const ParameterPtr node = collection->getParameter(c.name);
        EXPECT_EQ(bool(node), c.node != nullptr);
        EXPECT_EQ(collection->contains(c.name), c.node != nullptr);
        if (node) {
            EXPECT_EQ(node->name(), c.node);
        }
    }
    EXPECT_FALSE(collection->getFloatParameter("Width"));
    EXPECT_EQ(collection->getParameter("PayloadSize")->metaData().property("AccessMode"), "RO");
    EXPECT_EQ(collection->getParameter("Width")->metaData().property("AccessMode"), "RW");
    EXPECT_FALSE(collection->getParameter("PayloadSize")->isWritable());
    EXPECT_GT(collection->getIntegerParameter("@DeviceTransportLayer/HeartbeatTimeout")->getValue(), 0);
    EXPECT_TRUE(collection->getCategoryFeatures("Root").contains("ImageFormatControl"));
    // A feature tree walks from Root through the categories: each must be a node it can open.
    for (const QString& feature : collection->getCategoryFeatures("Root")) {
        const ParameterPtr node = collection->getParameter(feature);
        ASSERT_TRUE(node) << feature.toStdString();
        EXPECT_EQ(node->kind(), ParameterCollection::EParameterKind::Category) << feature.toStdString();
    }
    // Aravis orders its visibilities Invisible, Guru, Expert, Beginner.
    EXPECT_EQ(collection->getParameter("Width")->metaData().property("Visibility"), "Beginner");
    EXPECT_EQ(collection->getParameter("TLParamsLocked")->metaData().property("Visibility"), "Invisible");
}

TEST_F(GigECameraTest, ChangesReachEveryCollectionOnTheGuiThread)
{
    const ParameterCollectionPtr writer = collectionOf(s_main);
    const ParameterCollectionPtr watcher = collectionOf(s_main);
    ASSERT_TRUE(writer && watcher);
    QList<qint64> seen;
    QSet<QThread*> threads;
    const IntegerParameterPtr watched = watcher->getIntegerParameter("GainRaw");
    QObject::connect(watched.data(), &IParameter::parameterDataChangedDecoupled, watched.data(),
                     [&](QSharedPointer<const ParameterData> data) {
                         seen << data->value.toLongLong();
                         threads << QThread::currentThread();
                     });

    writer->getIntegerParameter("GainRaw")->setValue(3, CorrectionNone);
    EXPECT_TRUE(waitFor([&] { return seen.contains(3); }, 2000));

    // Someone else writes: only the poll can see it.
    const auto camera = s_services->registry->find(keyOf(s_main));
    camera->access([](ArvCamera*, ArvDevice* device, ArvGc*) {
        arv_device_set_integer_feature_value(device, "GainRaw", 6, nullptr);
        return 0;
    });
    EXPECT_TRUE(waitFor([&] { return seen.contains(6); }, 3000));
    EXPECT_EQ(threads, QSet<QThread*>{QThread::currentThread()});
}

TEST_F(GigECameraTest, GrabbingDeliversPayloadSizedImagesOffTheGuiThread)
{
    const Plugin::CameraPool::ICameraPtr camera = s_services->control->openCamera(info(s_main));
    ASSERT_TRUE(camera);
    const ParameterCollectionPtr collection = collectionOf(s_main);
    const qint64 payload = collection->getIntegerParameter("PayloadSize")->getValue();
    SGrabLog log;
    log.connectTo(camera.data());
    ASSERT_TRUE(camera->startGrabbing());
    EXPECT_TRUE(s_services->status->isCameraGrabbing(info(s_main)));
    EXPECT_TRUE(waitFor([&] { return log.count(true) >= 10; }, 10000));
    camera->stopGrabbing();
    EXPECT_FALSE(s_services->status->isAnyCameraGrabbing());
    std::lock_guard<std::mutex> guard(log.mutex);
    EXPECT_EQ(log.sizes, QSet<size_t>{size_t(payload)});
    EXPECT_FALSE(log.threads.contains(QThread::currentThread()));
    EXPECT_GE(collection->getIntegerParameter("@StreamGrabber0/Statistic_Total_Buffer_Count")->getValue(),
              qint64(log.succeeded));
    s_services->control->releaseCamera(camera);
}

TEST_F(GigECameraTest, LostPacketsShowAsFailedGrabResultsAndStatistics)
{
    if (!s_lossy)
        GTEST_SKIP() << "the lossy camera needs a network namespace";
    const Plugin::CameraPool::ICameraPtr camera = s_services->control->openCamera(info(s_lossy));
    ASSERT_TRUE(camera);
    SGrabLog log;
    log.connectTo(camera.data());
    ASSERT_TRUE(camera->startGrabbing());
    EXPECT_TRUE(waitFor([&] { return log.count(false) >= 5; }, 10000));
    camera->stopGrabbing();
    const ParameterCollectionPtr collection = collectionOf(s_lossy);
    const qint64 failedBuffers = collection->getIntegerParameter("@StreamGrabber0/Statistic_Failed_Buffer_Count")->getValue();
    const qint64 lostPackets = collection->getIntegerParameter("@StreamGrabber0/Statistic_Failed_Packet_Count")->getValue();
    printf("lossy camera: %d failed and %d complete results; Statistic_Failed_Buffer_Count %lld, "
           "Statistic_Failed_Packet_Count %lld\n",
           log.count(false), log.count(true), qlonglong(failedBuffers), qlonglong(lostPackets));
    EXPECT_GE(log.count(false), 5);
    EXPECT_EQ(failedBuffers, log.count(false));
    EXPECT_GT(lostPackets, 0);
    s_services->control->releaseCamera(camera);
}

TEST_F(GigECameraTest, KilledCameraReportsLossAndNodeAccessFailsFast)
{
    const Plugin::CameraPool::ICameraPtr camera = s_services->control->openCamera(info(s_victim));
    ASSERT_TRUE(camera);
    const ParameterCollectionPtr collection = collectionOf(s_victim);
    const IntegerParameterPtr width = collection->getIntegerParameter("Width");
    const IntegerParameterPtr heartbeat = collection->getIntegerParameter("@DeviceTransportLayer/HeartbeatTimeout");
    ASSERT_TRUE(width && heartbeat);
    QSignalSpy cameraLost(camera.data(), &Plugin::CameraPool::ICamera::cameraConnectionLost);
    QSignalSpy statusLost(s_services->status.data(), &Plugin::CameraPool::ICameraStatusService::cameraConnectionLost);
    ASSERT_TRUE(camera->startGrabbing());

    QElapsedTimer clock;
    clock.start();
    CFakeCameraNetwork::instance().killCamera(s_victim);
    ASSERT_TRUE(waitFor([&] { return cameraLost.count() == 1 && statusLost.count() == 1; }, 40000));
    const qint64 reportedAfter = clock.elapsed();
    EXPECT_EQ(statusLost.first().first().value<CameraInfoPtr>()->key(), keyOf(s_victim));

    clock.restart();
    EXPECT_THROW(width->getValue(), GenICam_3_1_Dorvik_zenta::GenericException);
    EXPECT_THROW(heartbeat->getValue(), GenICam_3_1_Dorvik_zenta::GenericException);
    const qint64 failedAfterUs = clock.nsecsElapsed() / 1000;
    // Lookups after the loss give null rather than raising.
    EXPECT_FALSE(collection->getIntegerParameter("Height"));
    printf("connection loss reported %lld ms after the kill; two node accesses then failed in %lld us\n",
           qlonglong(reportedAfter), qlonglong(failedAfterUs));
    // A generous bound on a path that only reads an atomic flag.
    EXPECT_LT(failedAfterUs, 100000);
    camera->stopGrabbing();
    s_services->control->releaseCamera(camera);
}
