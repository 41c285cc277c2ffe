#include "bandwidthhistoryplot.h"

#include "analysishistory.h"

#include <QEvent>
#include <QPen>

#include <algorithm>

#include <qwt_legend.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_marker.h>
#include <qwt_series_data.h>
#include <qwt_symbol.h>
#include <qwt_text.h>

namespace Plugin::BandwidthManager {

namespace {

// Tells eight cameras apart, also for the colour-blind (after Okabe and Ito).
const QColor Palette[] = {QColor(0, 114, 178), QColor(230, 159, 0), QColor(0, 158, 115), QColor(204, 121, 167),
                          QColor(86, 180, 233), QColor(213, 94, 0),  QColor(240, 228, 66), QColor(0, 0, 0)};

// One camera's payload, read from the history where it lies.
class CPayloadSeries : public QwtSeriesData<QPointF>
{
public:
    CPayloadSeries(const CAnalysisHistory* history, QString key, bool adapterTotal = false)
        : m_history(history)
        , m_key(std::move(key))
        , m_adapterTotal(adapterTotal)
    {
    }
    size_t size() const override { return points() ? points()->size() : 0; }
    QPointF sample(size_t i) const override
    {
        const SHistoryPoint& point = (*points())[i];
        return QPointF(point.seconds, point.payloadMBs);
    }
    // A tick's cost is dominated by this scan; 8 cameras of 10 minutes are 19200 points.
    QRectF boundingRect() const override { return qwtBoundingRect(*this); }

private:
    const std::vector<SHistoryPoint>* points() const
    {
        const SCameraHistory* series = !m_history  ? nullptr
                                       : m_adapterTotal ? m_history->adapterTotal(m_key)
                                                        : m_history->camera(m_key);
        return series ? &series->points : nullptr;
    }
    const CAnalysisHistory* m_history;
    QString m_key;
    bool m_adapterTotal;
};

} // namespace

struct CBandwidthHistoryPlot::SCurves
{
    QString key;
    QwtPlotCurve* payload = nullptr;
    QwtPlotCurve* errors = nullptr;
};

CBandwidthHistoryPlot::CBandwidthHistoryPlot(QWidget* parent)
    : QwtPlot(parent)
{
    setObjectName(QStringLiteral("plotHistory"));
    setCanvasBackground(Qt::white);
    setAutoReplot(false);
    auto* grid = new QwtPlotGrid();
    grid->setPen(QColor(220, 220, 220), 0.0, Qt::DotLine);
    grid->attach(this);
    setAxisAutoScale(QwtPlot::xBottom);
    insertLegend(new QwtLegend(), QwtPlot::RightLegend);
    retranslate();
}

CBandwidthHistoryPlot::~CBandwidthHistoryPlot() = default;

void CBandwidthHistoryPlot::setHistory(const CAnalysisHistory* history)
{
    for (const auto& curves : m_curves) {
        delete curves->payload;
        delete curves->errors;
    }
    m_curves.clear();
    m_history = history;
    placeBudgets();
    refresh();
}

void CBandwidthHistoryPlot::setBudgets(const std::vector<SBudget>& budgets)
{
    m_budgetValues = budgets;
    placeBudgets();
    replot();
}

void CBandwidthHistoryPlot::placeBudgets()
{
    for (QwtPlotMarker* marker : m_budgets)
        delete marker;
    m_budgets.clear();
    for (QwtPlotCurve* total : m_totals)
        delete total;
    m_totals.clear();
    for (const SBudget& budget : m_budgetValues) {
        auto* total = new QwtPlotCurve(tr("%1: all cameras").arg(budget.adapterName));
        total->setPen(QColor(90, 90, 90), 1.5, Qt::DashLine);
        total->setData(new CPayloadSeries(m_history, budget.adapterKey, true));
        total->setZ(10);
        total->attach(this);
        m_totals.push_back(total);
        auto* marker = new QwtPlotMarker();
        marker->setLineStyle(QwtPlotMarker::HLine);
        marker->setLinePen(QColor(200, 0, 0), 1.0, Qt::DashLine);
        marker->setYValue(budget.megabytesPerSecond);
        marker->setLabelAlignment(Qt::AlignRight | Qt::AlignBottom);
        marker->setLabel(QwtText(tr("%1: 90 % of the link, %2 MB/s")
                                     .arg(budget.adapterName)
                                     .arg(budget.megabytesPerSecond, 0, 'f', 1)));
        marker->attach(this);
        m_budgets.push_back(marker);
    }
}

void CBandwidthHistoryPlot::refresh()
{
    const std::vector<SCameraHistory> none;
    const std::vector<SCameraHistory>& cameras = m_history ? m_history->cameras() : none;
    // The history keeps the tree's order: a camera's curve moves with it.
    bool reordered = cameras.size() != m_curves.size();
    for (size_t index = 0; !reordered && index < cameras.size(); ++index)
        reordered = cameras[index].key != m_curves[index]->key;
    if (reordered) {
        std::vector<std::unique_ptr<SCurves>> curves;
        for (const SCameraHistory& camera : cameras) {
            auto found = std::find_if(m_curves.begin(), m_curves.end(),
                                      [&camera](const auto& c) { return c && c->key == camera.key; });
            if (found != m_curves.end()) {
                curves.push_back(std::move(*found));
                continue;
            }
            auto made = std::make_unique<SCurves>();
            made->key = camera.key;
            made->payload = new QwtPlotCurve(camera.name);
            made->payload->setRenderHint(QwtPlotItem::RenderAntialiased, false);
            made->payload->setPaintAttribute(QwtPlotCurve::FilterPoints, true);
            made->payload->setData(new CPayloadSeries(m_history, camera.key));
            made->payload->attach(this);
            made->errors = new QwtPlotCurve(camera.name);
            made->errors->setStyle(QwtPlotCurve::NoCurve);
            made->errors->setItemAttribute(QwtPlotItem::AutoScale, false);
            made->errors->setItemAttribute(QwtPlotItem::Legend, false);
            made->errors->attach(this);
            curves.push_back(std::move(made));
        }
        for (const auto& gone : m_curves) {
            if (gone) {
                delete gone->payload;
                delete gone->errors;
            }
        }
        m_curves = std::move(curves);
        applyPens();
    }
    for (size_t index = 0; index < cameras.size(); ++index) {
        QVector<QPointF> marks;
        for (const SHistoryPoint& point : cameras[index].points) {
            if (point.newErrors > 0 || point.connectionLost)
                marks.append(QPointF(point.seconds, point.payloadMBs));
        }
        m_curves[index]->errors->setSamples(marks);
    }
    // From zero, and high enough for the budgets: a link far from full shows as such.
    double top = 1.0;
    for (const SBudget& budget : m_budgetValues)
        top = std::max(top, budget.megabytesPerSecond);
    for (const QwtPlotCurve* total : m_totals)
        top = std::max(top, total->dataSize() ? total->boundingRect().bottom() : 0.0);
    for (const auto& curves : m_curves)
        top = std::max(top, curves->payload->dataSize() ? curves->payload->boundingRect().bottom() : 0.0);
    setAxisScale(QwtPlot::yLeft, 0.0, top * 1.1);
    replot();
}

void CBandwidthHistoryPlot::highlight(const QString& cameraKey)
{
    if (cameraKey == m_highlighted)
        return;
    m_highlighted = cameraKey;
    applyPens();
    replot();
}

void CBandwidthHistoryPlot::applyPens()
{
    for (size_t index = 0; index < m_curves.size(); ++index) {
        QColor color = Palette[index % (sizeof Palette / sizeof Palette[0])];
        const bool highlighted = m_curves[index]->key == m_highlighted;
        if (!m_highlighted.isEmpty() && !highlighted)
            color.setAlpha(90);
        m_curves[index]->payload->setPen(color, highlighted ? 3.0 : 1.5);
        m_curves[index]->payload->setZ(highlighted ? 30 : 20);
        m_curves[index]->errors->setSymbol(new QwtSymbol(QwtSymbol::XCross, QBrush(), QPen(color, 2.0), QSize(9, 9)));
        m_curves[index]->errors->setZ(40);
    }
}

const QwtPlotCurve* CBandwidthHistoryPlot::payloadCurve(int index) const
{
    return m_curves.at(size_t(index))->payload;
}

const QwtPlotCurve* CBandwidthHistoryPlot::errorCurve(int index) const
{
    return m_curves.at(size_t(index))->errors;
}

void CBandwidthHistoryPlot::retranslate()
{
    // The widget's own font, not Qwt's bold and larger one: the plot is a part of the dialog.
    QwtText time(tr("Time (s)"));
    time.setFont(font());
    setAxisTitle(QwtPlot::xBottom, time);
    QwtText payload(tr("Payload (MB/s)"));
    payload.setFont(font());
    setAxisTitle(QwtPlot::yLeft, payload);
    placeBudgets();
}

void CBandwidthHistoryPlot::changeEvent(QEvent* e)
{
    if (e->type() == QEvent::LanguageChange)
        retranslate();
    QwtPlot::changeEvent(e);
}

} // namespace Plugin::BandwidthManager
