#include "analysishistory.h"
#include "analysisreport.h"
#include "bandwidthhistoryplot.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <qwt_plot_curve.h>

using namespace Plugin::BandwidthManager;

namespace {

SCameraReading reading(const char* key, quint64 payload, quint64 errors, const char* adapter = "10.0.0.1")
{
    SCameraReading r{QString::fromLatin1(key), QStringLiteral("Camera %1").arg(QLatin1String(key)),
                     QString::fromLatin1(adapter), {}};
    r.sample.payloadReceived = payload;
    r.sample.bandwidth = payload + payload / 20;
    r.sample.fpsSent = 10.0;
    r.sample.fpsReceived = 10.0;
    r.sample.images = payload / 1000;
    r.sample.errors = errors;
    return r;
}

TEST(AnalysisHistory, keepsTheTreesOrderAndMarksNewErrorsAndLosses)
{
    CAnalysisHistory history;
    history.record(0.25, {reading("b", 1000000, 0), reading("a", 2000000, 0)});
    // "c" is new and goes before "a"; "b", missing from these ticks, stays ahead of the camera it preceded.
    history.record(0.50, {reading("c", 3000000, 0), reading("a", 2000000, 3)});
    // A reset of the statistics: a count below the last one is all new.
    history.record(0.75, {reading("c", 3000000, 0), reading("a", 2000000, 1)});
    history.markLost(QStringLiteral("a"), 0.9);
    history.markLost(QStringLiteral("a"), 1.0);
    history.markLost(QStringLiteral("unknown"), 1.0);

    std::vector<QString> order;
    for (const SCameraHistory& camera : history.cameras())
        order.push_back(camera.key);
    EXPECT_EQ(order, (std::vector<QString>{"b", "c", "a"}));
    const SCameraHistory& a = *history.camera(QStringLiteral("a"));
    ASSERT_EQ(a.points.size(), 4u) << "one point for the loss, however often it is reported";
    EXPECT_EQ(a.points[1].newErrors, 3u);
    EXPECT_EQ(a.points[2].newErrors, 1u);
    EXPECT_TRUE(a.points[3].connectionLost);
    EXPECT_EQ(a.points[3].payloadMBs, 0.0f);
    EXPECT_EQ(a.points[3].errors, 1u);
    EXPECT_EQ(history.camera(QStringLiteral("b"))->points.size(), 1u);
}

TEST(AnalysisHistory, halvesALongSeriesKeepingItsShapeErrorsAndEnd)
{
    CAnalysisHistory history(8);
    quint64 errors = 0;
    for (int tick = 1; tick <= 20; ++tick) {
        errors += tick == 3 ? 2 : 0;
        history.record(tick, {reading("a", quint64(tick) * 1000000, errors)});
    }
    const SCameraHistory& a = *history.camera(QStringLiteral("a"));
    EXPECT_LT(a.points.size(), 8u);
    EXPECT_GE(a.points.size(), 4u);
    EXPECT_EQ(a.points.back().seconds, 20.0) << "the newest point stays";
    EXPECT_EQ(a.points.back().errors, 2u);
    quint64 marked = 0;
    for (const SHistoryPoint& point : a.points)
        marked += point.newErrors;
    EXPECT_EQ(marked, 2u) << "merged points keep the errors they stood for";
    std::vector<double> values;
    for (const SHistoryPoint& point : a.points)
        values.push_back(point.payloadMBs);
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end())) << "a rising line stays rising";
    // Halved at ticks 8, 12, 16 and 20: the first point stands for ticks 1 to 12, and shows their mean.
    EXPECT_EQ(a.points.front().seconds, 12.0);
    EXPECT_DOUBLE_EQ(values.front(), 6.5);
}

TEST(AnalysisReport, matchesTheSchemaAndCountsEveryTick)
{
    CAnalysisHistory history;
    for (int tick = 1; tick <= 4; ++tick)
        history.record(tick * 0.25, {reading("a", 4000000, 0), reading("b,\"quoted\"", 2000000, quint64(tick))});
    SAnalysisRun run;
    run.tool = QStringLiteral("zenta-viewer");
    run.host = QStringLiteral("host");
    run.started = QDateTime::currentDateTime();
    run.adapters.push_back({QStringLiteral("10.0.0.1"), QStringLiteral("eth1"), 1e9, {0.97, 1.02, 0, 0, 3}, ELossPlace::Link});
    run.cameraLosses[QStringLiteral("a")] = {12, 0, 4, 0, -1};
    run.settings[QStringLiteral("a")] = {{QStringLiteral("GevSCPSPacketSize"), 9000}, {QStringLiteral("GevSCPD"), 1200}};
    SReportOptimization optimization;
    optimization.adapterKey = QStringLiteral("10.0.0.1");
    optimization.usedBandwidthMBs = 100.5;
    optimization.unsetCameras << QStringLiteral("Camera b");
    optimization.cameras.push_back({QStringLiteral("a"), 1500, 9000, 0, 1200, 0, 56000000});
    run.optimizations.push_back(optimization);
    run.events.push_back({0.6, QStringLiteral("b"), QStringLiteral("Error accessing camera! (Connection lost)")});

    const QJsonObject json = analysisReportJson(history, run);
    EXPECT_DOUBLE_EQ(json[QStringLiteral("adapters")].toArray()[0].toObject()[QStringLiteral("budgetMBs")].toDouble(), 112.5);
    const QJsonObject b = json[QStringLiteral("cameras")].toArray()[1].toObject();
    EXPECT_EQ(b[QStringLiteral("errors")].toInt(), 4);
    EXPECT_DOUBLE_EQ(b[QStringLiteral("meanPayloadMBs")].toDouble(), 2.0);
    const QByteArray csv = analysisReportCsv(history);
    EXPECT_EQ(csv.count('\n'), 1 + 8);
    EXPECT_TRUE(csv.contains(",\"b,\"\"quoted\"\"\",")) << csv.constData();

    QTemporaryDir dir;
    QString error;
    ASSERT_TRUE(saveAnalysisReport(history, run, dir.filePath("r.json"), dir.filePath("r.csv"), &error))
        << error.toStdString();
    EXPECT_FALSE(saveAnalysisReport(history, run, dir.filePath("missing/r.json"), QString(), &error));
    EXPECT_TRUE(error.contains(QLatin1String("missing/r.json")));
    QProcess validator;
    validator.start(QStringLiteral(BWM_SOURCE_DIR "/tests/bandwidthmanager/headless/validate-report.py"),
                    {QStringLiteral(BWM_SOURCE_DIR "/docs/analysis-report.schema.json"), dir.filePath("r.json")});
    ASSERT_TRUE(validator.waitForFinished(30000));
    EXPECT_EQ(validator.exitCode(), 0) << validator.readAll().toStdString();
}

TEST(BandwidthHistoryPlot, drawsACurvePerCameraFromTheHistoryInPlace)
{
    CAnalysisHistory history;
    CBandwidthHistoryPlot plot;
    plot.setHistory(&history);
    EXPECT_EQ(plot.curveCount(), 0);
    history.record(0.25, {reading("a", 1000000, 0), reading("b", 2000000, 0)});
    history.record(0.50, {reading("a", 1500000, 1), reading("b", 2000000, 0)});
    plot.refresh();
    ASSERT_EQ(plot.curveCount(), 2);
    EXPECT_EQ(plot.payloadCurve(0)->title().text(), QStringLiteral("Camera a"));
    ASSERT_EQ(plot.payloadCurve(0)->dataSize(), 2u);
    EXPECT_EQ(plot.payloadCurve(0)->sample(1), QPointF(0.5, 1.5));
    EXPECT_EQ(plot.errorCurve(0)->dataSize(), 1u);
    EXPECT_EQ(plot.errorCurve(1)->dataSize(), 0u);

    // A third tick reaches the curve without another refresh of its data.
    history.record(0.75, {reading("b", 2000000, 0), reading("a", 1000000, 1)});
    EXPECT_EQ(plot.payloadCurve(0)->dataSize(), 3u);
    plot.refresh();
    EXPECT_EQ(plot.payloadCurve(0)->title().text(), QStringLiteral("Camera b")) << "the tree's new order";

    plot.highlight(QStringLiteral("a"));
    EXPECT_GT(plot.payloadCurve(1)->pen().widthF(), plot.payloadCurve(0)->pen().widthF());
    plot.setHistory(nullptr);
    EXPECT_EQ(plot.curveCount(), 0);
}

} // namespace
