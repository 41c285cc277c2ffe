#pragma once

#include "flattreeitem.h"
#include "headlessoptions.h"

#include <Core/Plugin/CPluginManager.h>

#include <QObject>
#include <QTimer>

#include <cstdio>
#include <memory>
#include <vector>

class BandwidthTreeWidget;

namespace Plugin::BandwidthManager {
class CAnalysisSession;
}

// An analysis without a window: the Bandwidth Manager's own tree, unseen,
// measures the chosen cameras (after an Optimize of every GigE adapter when
// asked), prints a table like the tree's and writes the report.
class CHeadlessAnalysis : public QObject
{
    Q_OBJECT
public:
    CHeadlessAnalysis(const Core::Plugin::PluginManagerPtr& manager, SHeadlessOptions options, FILE* out, FILE* err);
    ~CHeadlessAnalysis() override;

    // Waits for the cameras, then measures; finished() tells the exit status.
    void start();

signals:
    void finished(int exitStatus);

private slots:
    void onDiscoveryDone();
    void onTick();
    void onDeviceListChanged();
    void onFirstScanFinished();

private:
    bool allNamedCamerasListed() const;
    // The cameras to measure; none, and the reason in error, when a named camera is not listed.
    std::vector<FlatTreeItemID> chosenCameras(QString* error) const;
    void finish();
    // The host checks, and their fixes where asked; the exit status.
    int checkHost();
    void printTable();
    void fail(int status, const QString& message);

    Core::Plugin::PluginManagerPtr m_manager;
    SHeadlessOptions m_options;
    FILE* m_out;
    FILE* m_err;
    std::unique_ptr<BandwidthTreeWidget> m_tree;
    Plugin::BandwidthManager::CAnalysisSession* m_session = nullptr;
    QTimer m_discoveryLimit;
    QTimer m_tick;
    double m_nextPrint = 0.0;
    bool m_measuring = false;
    bool m_done = false;
};
