#include "comboslider.h"

#include "zentaqtspinbox.h"

#include <Core/Logging/Logging.h>

#include <QHBoxLayout>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSpinBox>

namespace {

quint64 logCategory()
{
    static const quint64 id = Core::Logging::getCatId("zenta.viewer.plugins.bandwidthManager.comboSlider");
    return id;
}

// Clears the flag for the lifetime of the guard and puts the old value back.
class CEmitHold
{
public:
    explicit CEmitHold(bool& flag) : m_flag(flag), m_saved(flag) { m_flag = false; }
    ~CEmitHold() { m_flag = m_saved; }
    CEmitHold(const CEmitHold&) = delete;
    CEmitHold& operator=(const CEmitHold&) = delete;

private:
    bool& m_flag;
    bool m_saved;
};

} // namespace

ComboSlider::ComboSlider(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QHBoxLayout;
    layout->setSpacing(0);
    layout->setContentsMargins(0, 1, 0, 1);

    m_pSpinBox = new ZentaQtSpinBox(this);
    m_pSlider = new QSlider(Qt::Horizontal, this);
    QSizePolicy sliderPolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    sliderPolicy.setHorizontalStretch(10);
    m_pSlider->setSizePolicy(sliderPolicy);

    const QFontMetrics metrics(m_pSpinBox->font());
    const QSize content(metrics.horizontalAdvance(QStringLiteral("999999999999")), metrics.height());
    QStyleOptionSpinBox option;
    option.initFrom(m_pSpinBox);
    m_editBoxWidth = m_pSpinBox->style()->sizeFromContents(QStyle::CT_SpinBox, &option, content, m_pSpinBox).width();
    m_pSpinBox->setMinimumWidth(m_editBoxWidth);
    QSizePolicy spinPolicy = m_pSpinBox->sizePolicy();
    spinPolicy.setHorizontalPolicy(QSizePolicy::Fixed);
    spinPolicy.setHorizontalStretch(0);
    m_pSpinBox->setSizePolicy(spinPolicy);

    layout->addWidget(m_pSpinBox);
    layout->addWidget(m_pSlider);
    layout->addSpacing(4);
    setLayout(layout);

    connect(m_pSlider, SIGNAL(valueChanged(int)), this, SLOT(onSliderValueChanged(int)));
    connect(m_pSpinBox, SIGNAL(editingFinished()), this, SLOT(onComboBoxEditingFinished()));
    updateToolTip();
}

ComboSlider::~ComboSlider() = default;

int ComboSlider::minimum() const
{
    return m_pSlider->minimum();
}

int ComboSlider::maximum() const
{
    return m_pSlider->maximum();
}

int ComboSlider::singleStep() const
{
    return m_pSpinBox->singleStep();
}

int ComboSlider::pageStep() const
{
    return m_pSlider->pageStep();
}

int ComboSlider::value() const
{
    return m_pSlider->value();
}

int ComboSlider::snapToGrid(int value) const
{
    value = qBound(m_pSlider->minimum(), value, m_pSlider->maximum());
    const int step = m_pSpinBox->singleStep();
    if (step == 0)
        return value;
    return value - ((value - m_pSpinBox->minimum()) % step);
}

void ComboSlider::onSliderValueChanged(int value)
{
    const int snapped = snapToGrid(value);
    if (m_pSpinBox->value() != snapped)
        m_pSpinBox->setValue(snapped);
    if (snapped != value) {
        // Comes round again through this slot with the snapped value.
        m_pSlider->setValue(snapped);
        return;
    }
    if (m_emitValueChanges)
        emit valueChanged(value);
}

void ComboSlider::onComboBoxEditingFinished()
{
    const int snapped = snapToGrid(m_pSpinBox->value());
    if (m_pSpinBox->value() != snapped)
        m_pSpinBox->setValue(snapped);
    m_pSlider->setValue(snapped);
}

void ComboSlider::setValue(int value)
{
    const CEmitHold hold(m_emitValueChanges);
    m_pSlider->setValue(snapToGrid(value));
}

void ComboSlider::applyRange(int minVal, int maxVal)
{
    m_pSlider->setMinimum(minVal);
    m_pSlider->setMaximum(maxVal);
    m_pSpinBox->setMinimum(minVal);
    m_pSpinBox->setMaximum(maxVal);
    emit rangeChanged(minVal, maxVal);
    updateToolTip();
}

void ComboSlider::setMinimum(int minVal)
{
    const CEmitHold hold(m_emitValueChanges);
    applyRange(minVal, qMax(minVal, m_pSlider->maximum()));
}

void ComboSlider::setMaximum(int maxVal)
{
    const CEmitHold hold(m_emitValueChanges);
    applyRange(qMin(maxVal, m_pSlider->minimum()), maxVal);
}

void ComboSlider::setRange(int minVal, int maxVal)
{
    const CEmitHold hold(m_emitValueChanges);
    applyRange(minVal, maxVal);
}

void ComboSlider::setRangeAndStep(int minVal, int maxVal, int incVal)
{
    const CEmitHold hold(m_emitValueChanges);
    m_pSpinBox->setSingleStep(incVal);
    m_pSpinBox->setMinimum(minVal);
    m_pSpinBox->setMaximum(maxVal);
    m_pSlider->setSingleStep(incVal);
    m_pSlider->setMinimum(minVal);
    m_pSlider->setMaximum(maxVal);
    emit rangeChanged(minVal, maxVal);
    updateToolTip();
}

void ComboSlider::setSingleStep(int incVal)
{
    m_pSpinBox->setSingleStep(incVal);
    m_pSlider->setSingleStep(incVal);
    updateToolTip();
}

void ComboSlider::setPageStep(int pageStep)
{
    m_pSlider->setPageStep(pageStep);
    m_pSpinBox->setPageStep(pageStep);
    updateToolTip();
}

void ComboSlider::setEditBoxWidth(int width)
{
    m_editBoxWidth = width;
    m_pSpinBox->setMinimumWidth(width);
}

void ComboSlider::updateToolTip()
{
    try {
        const int step = m_pSpinBox->singleStep();
        const QString text = step == 1
            ? tr("Range: %1..%2").arg(m_pSpinBox->minimum()).arg(m_pSpinBox->maximum())
            : tr("Range: %1..%2 (Increment: %3)").arg(m_pSpinBox->minimum()).arg(m_pSpinBox->maximum()).arg(step);
        setToolTip(text);
    } catch (...) {
        Core::Logging::createLogEntry(Core::Logging::LogLevelFailure, logCategory(),
                                      QStringLiteral("Error creating tooltip text!"));
    }
}
