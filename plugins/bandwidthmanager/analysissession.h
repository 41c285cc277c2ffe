#pragma once

#include "analysishistory.h"
#include "analysisreport.h"
#include "bandwidthtreewidget.h"
#include "lossmeter.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

namespace Plugin::BandwidthManager {

// Records an analysis of a bandwidth tree: every tick's samples of the
// measured cameras, the losses and errors the tree reports, and what an
// Optimize set. The dialog and the headless analysis share it, and so the
// report's format.
class CAnalysisSession : public QObject
{
    Q_OBJECT
public:
    CAnalysisSession(BandwidthTreeWidget* tree, QString tool, QObject* parent = nullptr);

    // Forgets the last run.
    void start();
    void stop();
    // The run's times count from now; what was recorded stays.
    void restartClock() { m_clock.start(); }
    bool isRunning() const { return m_running; }
    double elapsedSeconds() const;

    const CAnalysisHistory& history() const { return m_history; }
    // Reads the adapters' link speeds and the measured cameras' transport settings now.
    SAnalysisRun run();
    bool save(const QString& jsonPath, const QString& csvPath, QString* error);
    // The readings of the measured cameras in the tree's order.
    std::vector<SCameraReading> readings() const;

    const CLossMeter& losses() const { return m_losses; }
    // An adapter's link speed in bits per second, read once per run: the network layer lists every adapter to find one.
    double linkSpeed(FlatTreeItemID adapterId);
    // Where an adapter's cameras lose frames, once they have lost them for a few seconds; None before.
    ELossPlace lossPlace(const QString& adapterKey) const;

signals:
    void recorded();
    // After the loss counters were read, once a second.
    void lossesSampled();

private slots:
    void onSamplesUpdated();
    void onErrorOccurred(const QString& key, const QString& message, const QDateTime& when);
    void onOptimized(const BandwidthTreeWidget::SOptimizationResult& result);

private:
    void sampleLosses(double seconds);

    QPointer<BandwidthTreeWidget> m_tree;
    CLossMeter m_losses;
    QMap<QString, double> m_linkSpeeds;
    // Per adapter, when its cameras first lost something.
    QMap<QString, double> m_firstLoss;
    double m_lastLossSample = -1.0;
    CAnalysisHistory m_history;
    SAnalysisRun m_run;
    QElapsedTimer m_clock;
    bool m_running = false;
};

} // namespace Plugin::BandwidthManager
