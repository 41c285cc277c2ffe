#pragma once

#include "analysishistory.h"
#include "lossmeter.h"
#include "scamerasettingschange.h"

#include <QByteArray>
#include <QDateTime>
#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>

#include <vector>

namespace Plugin::BandwidthManager {

struct SReportAdapter
{
    QString key;
    QString name;
    // Bits per second; <= 0 when unknown.
    double linkSpeed = -1.0;
    CLossMeter::SAdapterFigures losses;
    ELossPlace place = ELossPlace::None;
};

struct SReportOptimization
{
    QString adapterKey;
    double usedBandwidthMBs = -1.0;
    bool packetSizeChanged = false;
    bool interPacketDelayChanged = false;
    bool tooManyCameras = false;
    QStringList unsetCameras;
    std::vector<SCameraSettingsChange> cameras;
};

struct SReportEvent
{
    double seconds = 0.0;
    QString cameraKey;
    QString message;
};

// Everything of a run besides the samples: the same for the window's export and the headless report.
struct SAnalysisRun
{
    QString tool;
    QString host;
    QDateTime started;
    std::vector<SReportAdapter> adapters;
    // Transport settings per camera key at the end of the run (GevSCPSPacketSize, GevSCPD, ...).
    QMap<QString, QMap<QString, qint64>> settings;
    std::vector<SReportOptimization> optimizations;
    std::vector<SReportEvent> events;
    QMap<QString, CLossMeter::SCameraFigures> cameraLosses;
};

// The JSON report (docs/analysis-report.schema.json describes it).
QJsonObject analysisReportJson(const CAnalysisHistory& history, const SAnalysisRun& run);
// One row per camera per tick, with a header line.
QByteArray analysisReportCsv(const CAnalysisHistory& history);
// Each file is written whole or left as it was; false and the reason otherwise.
bool saveAnalysisReport(const CAnalysisHistory& history, const SAnalysisRun& run, const QString& jsonPath,
                        const QString& csvPath, QString* error);

} // namespace Plugin::BandwidthManager
