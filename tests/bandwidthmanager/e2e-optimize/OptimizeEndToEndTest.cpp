// Three emulated cameras behind one link of the test network lose frames;
// optimising their adapter makes them fit. Runs inside run-on-test-network.sh,
// which gives the network in BWM_NET_* and the link's MTU and speed in
// BWM_E2E_MTU and BWM_E2E_LINK_MBPS.
#include "bandwidthdialog.h"
#include "bandwidthtreewidget.h"
#include "flattree.h"

#include <camerapool/CameraPoolServices.h>
#include <host/fakes/CModalResponder.h>

#include <Core/Logging/Logging.h>
#include <Core/Plugin/ServiceLookup.h>
#include <Plugin/ParameterCollectionPool/IParameterService.h>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

#include <iostream>
#include <numeric>
#include <set>

namespace {

constexpr int CameraCount = 3;
constexpr int SettleMs = 2000;
constexpr int WatchMs = 10000;

const QString JumboRemark = QStringLiteral(
    "<br>The <b>Packet Size</b> setting has been increased to its maximum value. If you want to increase "
    "performance further, enable jumbo frames on your network adapter.");

struct SLinkCounters
{
    qint64 toHostBytes = 0;
    qint64 dropped = 0;
};

struct SReading
{
    double payloadMBs[CameraCount] = {};
    qint64 errors[CameraCount] = {};
    qint64 images[CameraCount] = {};
    SLinkCounters link;
    qint64 total() const { return std::accumulate(std::begin(errors), std::end(errors), qint64(0)); }
    double payload() const { return std::accumulate(std::begin(payloadMBs), std::end(payloadMBs), 0.0); }
};

class OptimizeEndToEnd : public ::testing::Test
{
protected:
    void SetUp() override
    {
        host = qEnvironmentVariable("BWM_NET_HOST");
        cameraAddresses = qEnvironmentVariable("BWM_NET_CAMERAS").split(' ', Qt::SkipEmptyParts);
        mtu = qEnvironmentVariableIntValue("BWM_E2E_MTU");
        linkMbps = qEnvironmentVariableIntValue("BWM_E2E_LINK_MBPS");
        if (host.isEmpty() || cameraAddresses.size() != CameraCount || mtu == 0 || linkMbps == 0)
            GTEST_SKIP() << "needs the test network: run through tests/bandwidthmanager/e2e-optimize/"
                            "run-on-test-network.sh";
        Core::Logging::setStderrEnabled(qEnvironmentVariableIsSet("BWM_E2E_LOG"));
        CameraPool::SCameraPoolOptions options;
        options.rescanIntervalMs = 1000;
        CameraPool::registerCameraPoolServices(manager, &servicesParent, options);
        ASSERT_TRUE(QTest::qWaitFor([this] { return discovered(); }, 30000)) << "cameras behind " << host.toStdString();
    }
    void TearDown() override { Core::Logging::setStderrEnabled(true); }

    bool discovered()
    {
        const auto enumeration = Core::Plugin::getService<Plugin::CameraPool::ICameraEnumerationService>(manager);
        keys.clear();
        if (!enumeration)
            return false;
        for (const auto& layer : enumeration->transportLayers()) {
            for (const auto& info : layer->cameras()) {
                if (info->properties().value(QStringLiteral("Interface")) == host)
                    keys << info->key();
            }
        }
        return keys.size() == CameraCount;
    }

    // The dialog is modal itself: the responder answers the offer and leaves the dialog open.
    void openDialog(const HostFakes::CModalResponder::Reaction& offerReaction)
    {
        const auto boxesOnly = [](const HostFakes::CModalResponder::Reaction& reaction) {
            return [reaction](QWidget* modal) {
                if (!qobject_cast<BandwidthDialog*>(modal))
                    reaction(modal);
            };
        };
        // A fresh one per dialog: answers left over from the last one would meet this offer.
        responder = std::make_unique<HostFakes::CModalResponder>();
        responder->expect(boxesOnly(offerReaction));
        for (int i = 0; i < 4; ++i)
            responder->expect(boxesOnly(HostFakes::CModalResponder::closeWindow()));
        dialog = std::make_unique<BandwidthDialog>(manager.toWeakRef(), nullptr, Qt::WindowFlags(), nullptr);
        dialog->show();
        tree = dialog->findChild<BandwidthTreeWidget*>(QStringLiteral("treeBandwidth"));
        ASSERT_NE(tree, nullptr);
    }
    void closeDialog()
    {
        dialog->done(0);
        dialog.reset();
        tree = nullptr;
    }

    FlatTreeItem* item(const QString& key) const
    {
        const FlatTreeItemID id = tree->model()->findByKey(key);
        return id == 0 ? nullptr : &tree->model()->item(id);
    }
    // -1 for a row that is gone or shows no number.
    double number(const QString& key, int column) const
    {
        const FlatTreeItem* row = item(key);
        bool ok = false;
        const double value = row && row->row ? tree->locale().toDouble(row->row->text(column), &ok) : 0.0;
        return ok ? value : -1.0;
    }
    qint64 node(const QString& key, const char* name) const
    {
        const FlatTreeItem* row = item(key);
        if (!row)
            return -1;
        const auto parameters = Core::Plugin::getService<Plugin::ParameterCollectionPool::IParameterService>(manager);
        const auto collection = parameters->parameterCollection(row->cameraInfo);
        const auto parameter = collection ? collection->getIntegerParameter(QString::fromLatin1(name)) : nullptr;
        return parameter && parameter->isReadable() ? parameter->getValue() : -1;
    }
    SLinkCounters linkCounters() const
    {
        QFile file(qEnvironmentVariable("BWM_NET_STATS"));
        SLinkCounters counters;
        if (!file.open(QIODevice::ReadOnly))
            return counters;
        const QString text = QString::fromLatin1(file.readAll());
        const auto field = [&text](const char* name) {
            const QRegularExpressionMatch m = QRegularExpression(QStringLiteral("\\b%1=(\\d+)").arg(name)).match(text);
            return m.hasMatch() ? m.captured(1).toLongLong() : qint64(-1);
        };
        counters.toHostBytes = field("to_host_bytes");
        counters.dropped = field("dropped");
        return counters;
    }
    SReading read() const
    {
        SReading reading;
        for (int i = 0; i < CameraCount; ++i) {
            // The column rounds to whole MB/s above 1 MB/s; the sum is checked on the exact figure.
            const FlatTreeItem* row = item(keys[i]);
            reading.payloadMBs[i] = row ? double(row->payloadReceived) / 1e6 : -1.0;
            reading.errors[i] = qint64(number(keys[i], 7));
            reading.images[i] = qint64(number(keys[i], 6));
        }
        reading.link = linkCounters();
        return reading;
    }
    static void report(const char* when, const SReading& reading, const SReading& start, double seconds)
    {
        std::cout << "[optimize-e2e] " << when << ": payload MB/s";
        for (double mbs : reading.payloadMBs)
            std::cout << ' ' << mbs;
        std::cout << " (sum " << reading.payload() << "), errors";
        for (qint64 errors : reading.errors)
            std::cout << ' ' << errors;
        std::cout << ", link " << double(reading.link.toHostBytes - start.link.toHostBytes) / seconds / 1e6
                  << " MB/s to the host, " << reading.link.dropped - start.link.dropped << " frames dropped"
                  << std::endl;
    }

    void checkAll()
    {
        for (const QString& key : keys) {
            ASSERT_NE(item(key), nullptr) << key.toStdString();
            if (!item(key)->measuringCamera)
                item(key)->row->setCheckState(0, Qt::Checked);
            ASSERT_NE(item(key)->measuringCamera, nullptr) << item(key)->row->toolTip(0).toStdString();
        }
    }
    void startAnalysis()
    {
        QPushButton* start = dialog->findChild<QPushButton*>(QStringLiteral("btnStart"));
        ASSERT_TRUE(start->isEnabled());
        start->click();
    }

    // The cameras offer more than the link carries: frames are lost.
    void expectLossBeforeOptimizing()
    {
        const SReading start = read();
        QTest::qWait(4000);
        const SReading before = read();
        report("before", before, start, 4.0);
        EXPECT_GT(before.total(), 0) << "three cameras over one link lose frames";
    }

    // Settings the run wrote, then 10 s without a new error within 90 % of the link.
    void expectFitAfterOptimizing()
    {
        std::set<qint64> delays;
        std::cout << "[optimize-e2e] packet size, frame transmission delay:";
        for (const QString& key : keys) {
            SCOPED_TRACE(key.toStdString());
            EXPECT_EQ(node(key, "GevSCPSPacketSize"), mtu);
            delays.insert(node(key, "GevSCFTD"));
            std::cout << ' ' << node(key, "GevSCPSPacketSize") << '/' << node(key, "GevSCFTD");
        }
        std::cout << std::endl;
        EXPECT_EQ(delays, (std::set<qint64>{0, mtu + 18, 2 * (mtu + 18)})) << "staggered by one packet";

        QTest::qWait(SettleMs);
        const SReading start = read();
        QTest::qWait(WatchMs);
        const SReading after = read();
        report("after", after, start, WatchMs / 1000.0);
        EXPECT_EQ(after.total(), start.total()) << "new errors after optimizing";
        EXPECT_EQ(after.link.dropped, start.link.dropped) << "the link still drops";
        // A sample counts whole frames of its last quarter second; the watch's
        // images give the rate that the link really carried.
        double sum = 0.0;
        std::cout << "[optimize-e2e] payload MB/s over the watch:";
        for (int i = 0; i < CameraCount; ++i) {
            const double mbs = double(after.images[i] - start.images[i]) * double(node(keys[i], "PayloadSize"))
                               / (WatchMs / 1000.0) / 1e6;
            std::cout << ' ' << mbs;
            EXPECT_GT(mbs, 0.0) << keys[i].toStdString();
            sum += mbs;
        }
        std::cout << " (sum " << sum << " of " << linkMbps / 8.0 << ")" << std::endl;
        EXPECT_LE(sum, linkMbps / 8.0 * 0.9);
    }

    QString expectedResultText() const
    {
        QString text = mtu > 1500
                           ? QStringLiteral("The <b>Packet Size</b> and <b>Inter-Packet Delay</b> settings has been optimized.")
                           : QStringLiteral("The <b>Inter-Packet Delay</b> setting has been optimized");
        if (mtu <= 1500)
            text += JumboRemark;
        return text;
    }
    QString resultText() const { return dialog->findChild<QLabel*>(QStringLiteral("labelHintText2"))->text(); }

    QString host;
    QStringList cameraAddresses;
    QStringList keys;
    int mtu = 0;
    int linkMbps = 0;
    Core::Plugin::PluginManagerPtr manager = Core::Plugin::PluginManagerPtr::create();
    std::unique_ptr<HostFakes::CModalResponder> responder;
    std::unique_ptr<BandwidthDialog> dialog;
    BandwidthTreeWidget* tree = nullptr;
    // Destroyed first of the services' users: the backend closes its cameras.
    QObject servicesParent;
};

TEST_F(OptimizeEndToEnd, optimizeButtonOfTheAdapterMakesTheCamerasFit)
{
    openDialog(HostFakes::CModalResponder::closeWindow());
    checkAll();
    startAnalysis();
    expectLossBeforeOptimizing();

    const FlatTreeItemID adapterId = tree->model()->findByKey(host);
    ASSERT_NE(adapterId, 0u);
    auto* optimize = qobject_cast<QPushButton*>(tree->itemWidget(tree->model()->item(adapterId).row, 1));
    ASSERT_NE(optimize, nullptr);
    ASSERT_TRUE(optimize->isEnabled());
    optimize->click();

    EXPECT_EQ(resultText().toStdString(), expectedResultText().toStdString());
    expectFitAfterOptimizing();
    closeDialog();
}

TEST_F(OptimizeEndToEnd, acceptingTheOfferMakesTheCamerasFit)
{
    openDialog(HostFakes::CModalResponder::closeWindow());
    checkAll();
    startAnalysis();
    expectLossBeforeOptimizing();
    closeDialog();

    openDialog(HostFakes::CModalResponder::clickButtonWithText(QStringLiteral("Optimize GigE Bandwidth")));
    // The offer's run starts once the event loop does.
    const QString formText = resultText();
    ASSERT_TRUE(QTest::qWaitFor([&] { return resultText() != formText; }, 30000)) << "no result after the offer";
    EXPECT_EQ(resultText().toStdString(), expectedResultText().toStdString());
    checkAll();
    startAnalysis();
    expectFitAfterOptimizing();
    closeDialog();
}

} // namespace

int main(int argc, char** argv)
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("BandwidthManagerTests"));
    QCoreApplication::setApplicationName(QStringLiteral("bandwidthmanager_optimize_e2e"));
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
