#include "analysisreport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

#include <algorithm>
#include <cmath>

namespace Plugin::BandwidthManager {

namespace {

constexpr int FormatVersion = 1;
constexpr double UsableShare = 0.9;

// Three decimals: a thousandth of a MB/s or of a frame per second is below what a tick resolves.
double rounded(double value)
{
    return std::round(value * 1000.0) / 1000.0;
}

QJsonValue orNull(qint64 value)
{
    return value < 0 ? QJsonValue() : QJsonValue(value);
}

QJsonObject cameraJson(const SCameraHistory& camera, const SAnalysisRun& run)
{
    QJsonObject object;
    object[QStringLiteral("key")] = camera.key;
    object[QStringLiteral("name")] = camera.name;
    object[QStringLiteral("adapter")] = camera.adapterKey;
    object[QStringLiteral("ticks")] = qint64(camera.points.size());
    double payloadSum = 0.0;
    double spanSum = 0.0;
    double peakBandwidth = 0.0;
    bool lost = false;
    for (size_t index = 0; index < camera.points.size(); ++index) {
        const SHistoryPoint& point = camera.points[index];
        // Weighted by the time each point stands for: halved points stand for more.
        const double span = index == 0 ? 0.0 : point.seconds - camera.points[index - 1].seconds;
        payloadSum += double(point.payloadMBs) * span;
        spanSum += span;
        peakBandwidth = std::max(peakBandwidth, double(point.bandwidthMBs));
        lost = lost || point.connectionLost;
    }
    const SHistoryPoint last = camera.points.empty() ? SHistoryPoint() : camera.points.back();
    object[QStringLiteral("bandwidthMBs")] = rounded(last.bandwidthMBs);
    object[QStringLiteral("peakBandwidthMBs")] = rounded(peakBandwidth);
    object[QStringLiteral("payloadMBs")] = rounded(last.payloadMBs);
    object[QStringLiteral("meanPayloadMBs")] = rounded(spanSum > 0 ? payloadSum / spanSum : last.payloadMBs);
    object[QStringLiteral("fpsSent")] = rounded(last.fpsSent);
    object[QStringLiteral("fpsReceived")] = last.fpsReceived < 0 ? QJsonValue() : QJsonValue(rounded(last.fpsReceived));
    object[QStringLiteral("images")] = qint64(last.images);
    object[QStringLiteral("errors")] = qint64(last.errors);
    object[QStringLiteral("connectionLost")] = lost;
    QJsonObject settings;
    const QMap<QString, qint64> values = run.settings.value(camera.key);
    for (auto it = values.constBegin(); it != values.constEnd(); ++it)
        settings[it.key()] = it.value();
    object[QStringLiteral("settings")] = settings;
    const auto losses = run.cameraLosses.constFind(camera.key);
    if (losses != run.cameraLosses.constEnd()) {
        QJsonObject figures;
        figures[QStringLiteral("missingPackets")] = qint64(losses->missingPackets);
        figures[QStringLiteral("resentPackets")] = qint64(losses->resentPackets);
        figures[QStringLiteral("resendRequests")] = qint64(losses->resendRequests);
        figures[QStringLiteral("underruns")] = qint64(losses->underruns);
        figures[QStringLiteral("socketDrops")] = orNull(losses->socketDrops);
        object[QStringLiteral("losses")] = figures;
    }
    return object;
}

QString placeName(ELossPlace place)
{
    switch (place) {
    case ELossPlace::Link: return QStringLiteral("link");
    case ELossPlace::Wire: return QStringLiteral("wire");
    case ELossPlace::AdapterRing: return QStringLiteral("adapterRing");
    case ELossPlace::SocketBuffer: return QStringLiteral("socketBuffer");
    case ELossPlace::Application: return QStringLiteral("application");
    case ELossPlace::None: break;
    }
    return QStringLiteral("none");
}

QJsonObject optimizationJson(const SReportOptimization& optimization)
{
    QJsonObject object;
    object[QStringLiteral("adapter")] = optimization.adapterKey;
    object[QStringLiteral("usedBandwidthMBs")] =
        optimization.usedBandwidthMBs < 0 ? QJsonValue() : QJsonValue(rounded(optimization.usedBandwidthMBs));
    object[QStringLiteral("packetSizeChanged")] = optimization.packetSizeChanged;
    object[QStringLiteral("interPacketDelayChanged")] = optimization.interPacketDelayChanged;
    object[QStringLiteral("tooManyCameras")] = optimization.tooManyCameras;
    object[QStringLiteral("unsetCameras")] = QJsonArray::fromStringList(optimization.unsetCameras);
    QJsonArray cameras;
    for (const SCameraSettingsChange& change : optimization.cameras) {
        QJsonObject camera;
        camera[QStringLiteral("key")] = change.key;
        camera[QStringLiteral("packetSizeBefore")] = orNull(change.packetSizeBefore);
        camera[QStringLiteral("packetSizeAfter")] = orNull(change.packetSizeAfter);
        camera[QStringLiteral("interPacketDelayBefore")] = orNull(change.interPacketDelayBefore);
        camera[QStringLiteral("interPacketDelayAfter")] = orNull(change.interPacketDelayAfter);
        camera[QStringLiteral("frameTransmissionDelay")] = orNull(change.frameTransmissionDelay);
        camera[QStringLiteral("usedBandwidthMBs")] =
            change.usedBandwidth < 0 ? QJsonValue() : QJsonValue(rounded(double(change.usedBandwidth) * 1e-6));
        cameras.append(camera);
    }
    object[QStringLiteral("cameras")] = cameras;
    return object;
}

QByteArray csvField(const QString& text)
{
    QString quoted = text;
    if (!quoted.contains(QLatin1Char(',')) && !quoted.contains(QLatin1Char('"')) && !quoted.contains(QLatin1Char('\n')))
        return quoted.toUtf8();
    quoted.replace(QLatin1String("\""), QLatin1String("\"\""));
    return '"' + quoted.toUtf8() + '"';
}

} // namespace

QJsonObject analysisReportJson(const CAnalysisHistory& history, const SAnalysisRun& run)
{
    QJsonObject report;
    report[QStringLiteral("format")] = FormatVersion;
    report[QStringLiteral("tool")] = run.tool;
    report[QStringLiteral("host")] = run.host;
    report[QStringLiteral("started")] = run.started.toUTC().toString(Qt::ISODateWithMs);
    report[QStringLiteral("durationSeconds")] = rounded(history.lastSeconds());
    QJsonArray adapters;
    for (const SReportAdapter& adapter : run.adapters) {
        QJsonObject object;
        object[QStringLiteral("key")] = adapter.key;
        object[QStringLiteral("name")] = adapter.name;
        const bool known = adapter.linkSpeed > 0;
        object[QStringLiteral("linkSpeedMbps")] = known ? QJsonValue(rounded(adapter.linkSpeed * 1e-6)) : QJsonValue();
        object[QStringLiteral("budgetMBs")] =
            known ? QJsonValue(rounded(adapter.linkSpeed / 8 * 1e-6 * UsableShare)) : QJsonValue();
        QJsonObject losses;
        losses[QStringLiteral("peakLinkUsePercent")] = rounded(adapter.losses.peakLinkUse * 100.0);
        losses[QStringLiteral("rxMissed")] = qint64(adapter.losses.missed);
        losses[QStringLiteral("rxFifo")] = qint64(adapter.losses.fifo);
        losses[QStringLiteral("rxDropped")] = qint64(adapter.losses.dropped);
        losses[QStringLiteral("place")] = placeName(adapter.place);
        object[QStringLiteral("losses")] = losses;
        adapters.append(object);
    }
    report[QStringLiteral("adapters")] = adapters;
    QJsonArray cameras;
    for (const SCameraHistory& camera : history.cameras())
        cameras.append(cameraJson(camera, run));
    report[QStringLiteral("cameras")] = cameras;
    QJsonArray optimizations;
    for (const SReportOptimization& optimization : run.optimizations)
        optimizations.append(optimizationJson(optimization));
    report[QStringLiteral("optimizations")] = optimizations;
    QJsonArray events;
    for (const SReportEvent& event : run.events) {
        QJsonObject object;
        object[QStringLiteral("seconds")] = rounded(event.seconds);
        object[QStringLiteral("camera")] = event.cameraKey;
        object[QStringLiteral("message")] = event.message;
        events.append(object);
    }
    report[QStringLiteral("events")] = events;
    return report;
}

QByteArray analysisReportCsv(const CAnalysisHistory& history)
{
    QByteArray csv = "seconds,camera,name,adapter,bandwidth_mbs,payload_mbs,fps_sent,fps_received,images,errors,"
                     "new_errors,connection_lost\n";
    // Tick by tick across the cameras, as a spreadsheet wants it.
    std::vector<std::pair<double, std::pair<const SCameraHistory*, const SHistoryPoint*>>> rows;
    for (const SCameraHistory& camera : history.cameras()) {
        for (const SHistoryPoint& point : camera.points)
            rows.push_back({point.seconds, {&camera, &point}});
    }
    std::stable_sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& row : rows) {
        const SCameraHistory& camera = *row.second.first;
        const SHistoryPoint& point = *row.second.second;
        csv += QByteArray::number(rounded(point.seconds), 'f', 3) + ',' + csvField(camera.key) + ',' +
               csvField(camera.name) + ',' + csvField(camera.adapterKey) + ',' +
               QByteArray::number(rounded(point.bandwidthMBs), 'f', 3) + ',' +
               QByteArray::number(rounded(point.payloadMBs), 'f', 3) + ',' +
               QByteArray::number(rounded(point.fpsSent), 'f', 3) + ',' +
               (point.fpsReceived < 0 ? QByteArray() : QByteArray::number(rounded(point.fpsReceived), 'f', 3)) + ',' +
               QByteArray::number(point.images) + ',' + QByteArray::number(point.errors) + ',' +
               QByteArray::number(point.newErrors) + ',' + (point.connectionLost ? "1" : "0") + '\n';
    }
    return csv;
}

bool saveAnalysisReport(const CAnalysisHistory& history, const SAnalysisRun& run, const QString& jsonPath,
                        const QString& csvPath, QString* error)
{
    const std::pair<QString, QByteArray> files[] = {
        {jsonPath, QJsonDocument(analysisReportJson(history, run)).toJson(QJsonDocument::Indented)},
        {csvPath, analysisReportCsv(history)}};
    for (const auto& file : files) {
        if (file.first.isEmpty())
            continue;
        QSaveFile out(file.first);
        if (!out.open(QIODevice::WriteOnly) || out.write(file.second) != file.second.size() || !out.commit()) {
            if (error)
                *error = QStringLiteral("%1: %2").arg(file.first, out.errorString());
            return false;
        }
    }
    return true;
}

} // namespace Plugin::BandwidthManager
