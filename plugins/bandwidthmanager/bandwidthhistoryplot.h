#pragma once

#include <QString>
#include <QVector>

#include <qwt_plot.h>

#include <memory>
#include <vector>

class QwtPlotCurve;
class QwtPlotMarker;

namespace Plugin::BandwidthManager {

class CAnalysisHistory;

// The measured cameras' payload over the run, a line per camera in the
// tree's order, a cross where a camera's errors grew, and per adapter its
// cameras' sum against its budget (90 % of its link). The curves read the
// history in place: a tick appends a point and redraws, nothing is copied.
class CBandwidthHistoryPlot : public QwtPlot
{
    Q_OBJECT
public:
    struct SBudget
    {
        QString adapterKey;
        QString adapterName;
        double megabytesPerSecond = 0.0;
    };

    explicit CBandwidthHistoryPlot(QWidget* parent = nullptr);
    ~CBandwidthHistoryPlot() override;

    // The history outlives the plot or is replaced before it goes.
    void setHistory(const CAnalysisHistory* history);
    void setBudgets(const std::vector<SBudget>& budgets);
    // Follows the history's cameras and redraws.
    void refresh();
    // The camera's line drawn wide; an empty key draws all alike.
    void highlight(const QString& cameraKey);

    // For tests: the curves in the history's order.
    int curveCount() const { return int(m_curves.size()); }
    const QwtPlotCurve* payloadCurve(int index) const;
    const QwtPlotCurve* errorCurve(int index) const;

protected:
    void changeEvent(QEvent* e) override;

private:
    struct SCurves;
    void retranslate();
    void applyPens();
    void placeBudgets();

    const CAnalysisHistory* m_history = nullptr;
    std::vector<std::unique_ptr<SCurves>> m_curves;
    std::vector<SBudget> m_budgetValues;
    std::vector<QwtPlotMarker*> m_budgets;
    std::vector<QwtPlotCurve*> m_totals;
    QString m_highlighted;
};

} // namespace Plugin::BandwidthManager
