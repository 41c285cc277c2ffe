#pragma once

#include "analysissession.h"
#include "bandwidthdialogform.h"
#include "bandwidthtreewidget.h"
#include "hostchecksdialog.h"
#include "hostfixer.h"

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <Core/Plugin/IPlugin.h>
#include <Plugin/MessageLogCore/IMessageLogService.h>

#include <QBasicTimer>
#include <QDateTime>
#include <QDialog>
#include <QSharedPointer>
#include <QString>

class QAction;
class QStringList;

// The one window of the plug-in: runs an analysis over the cameras ticked in
// its tree and tells the user what to do next.
class BandwidthDialog : public QDialog
{
    Q_OBJECT
public:
    BandwidthDialog(const Core::Plugin::PluginManagerWeakPtr& pluginManager, QWidget* parent, Qt::WindowFlags flags,
                    QAction* helpAction);
    // Hosts the given tree in place of a plain one; the dialog takes it over.
    BandwidthDialog(const Core::Plugin::PluginManagerWeakPtr& pluginManager, QWidget* parent, Qt::WindowFlags flags,
                    QAction* helpAction, BandwidthTreeWidget* tree);
    ~BandwidthDialog() override;

public slots:
    void onStartStopClicked();
    void onResetClicked();
    void onCloseClicked();
    void onCameraChecked(size_t index, Core::CameraPoolComponents::CameraInfoPtr ptrInstantCamera,
                         Qt::CheckState checkState);
    void onStopAfterChecked(int checkState);
    void done(int r) override;
    void deviceListChanged();
    void removeCamera(Core::CameraPoolComponents::CameraInfoPtr ptrInstantCamera);
    void onConfigureDialogClosed();
    // Saves the run as JSON and, beside it, as CSV; false and a message box when it cannot.
    bool exportRun(const QString& jsonPath);

private slots:
    void onTimeUnitChanged(int index);
    void onBandwidthTreeErrorOccurred(QString strSource, QString strMessage, QDateTime timestamp);
    void onCurrentTreeItemChanged();
    void onOptimizedGigECamera(BandwidthTreeWidget::SOptimizationResult result);
    void onOptimizeAllGigEStarted();
    void onOptimizeGigEStarted();
    void onExportClicked();
    void onCheckHostClicked();

protected:
    void timerEvent(QTimerEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    void readSettings(QWidget* parent);
    void offerGigEOptimization(const Core::Plugin::PluginManagerWeakPtr& pluginManager);
    void preselectCurrentCamera(const Core::Plugin::PluginManagerWeakPtr& pluginManager);
    void updateHints();
    void updateButtons();
    void setHintLine(const QString& text, const QString& iconPath);
    void setResultLine(const QString& text, const QString& iconPath);
    bool collectTriggerMessages(QString& softwareOut, QString& hardwareOut);
    void logMessage(int severity, const char* text, bool translateForCategoryLog = false);

    Ui::BandwidthDialog ui;
    QBasicTimer m_refreshTimer;
    QBasicTimer m_stopAfterTimer;
    bool m_analysisRunning = false;
    QAction* m_helpAction = nullptr;
    QSharedPointer<Plugin::MessageLogCore::IMessageLogService> m_messageLogService;
    Plugin::BandwidthManager::CAnalysisSession* m_session = nullptr;
    void showBudgets();
    // The checks at opening: the button says when one finds something.
    void checkHostQuietly();
    void markHostChecks(const std::vector<Plugin::BandwidthManager::SHostCheck>& results);
    Plugin::BandwidthManager::CHostFixer m_hostFixer = Plugin::BandwidthManager::CHostFixer::forThisProcess();
    // The loss figures in the rows' tool tips, and their place in the hint line.
    void showLosses();
    QString analysisHint() const;
    QString m_lossAdvice;
    bool m_hintShowsAnalysis = false;
};
