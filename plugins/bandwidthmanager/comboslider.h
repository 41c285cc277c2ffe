#pragma once

#include <QWidget>

class QSlider;
class ZentaQtSpinBox;

// One integer as a spin box beside a slider, kept in step and on the grid of
// the step that starts at the minimum. Only the user's changes send
// valueChanged(int); setValue and the range setters change the display alone.
class ComboSlider : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int minimum READ minimum WRITE setMinimum)
    Q_PROPERTY(int maximum READ maximum WRITE setMaximum)
    Q_PROPERTY(int singleStep READ singleStep WRITE setSingleStep)
    Q_PROPERTY(int pageStep READ pageStep WRITE setPageStep)
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged)
    Q_PROPERTY(int editBoxWidth READ editBoxWidth WRITE setEditBoxWidth)
public:
    explicit ComboSlider(QWidget* parent = nullptr);
    ~ComboSlider() override;

    int minimum() const;
    int maximum() const;
    int singleStep() const;
    int pageStep() const;
    int value() const;
    int editBoxWidth() const { return m_editBoxWidth; }

    QSlider* slider() const { return m_pSlider; }
    ZentaQtSpinBox* spinBox() const { return m_pSpinBox; }

signals:
    void valueChanged(int value);
    void rangeChanged(int, int);

public slots:
    virtual void setValue(int value);
    virtual void setMinimum(int minVal);
    virtual void setMaximum(int maxVal);
    virtual void setRange(int minVal, int maxVal);
    virtual void setRangeAndStep(int minVal, int maxVal, int incVal);
    virtual void setSingleStep(int incVal);
    virtual void setPageStep(int pageStep);
    void setEditBoxWidth(int width);
    void onComboBoxEditingFinished();
    void onSliderValueChanged(int value);

protected:
    virtual void updateToolTip();

private:
    int snapToGrid(int value) const;
    void applyRange(int minVal, int maxVal);

    QSlider* m_pSlider = nullptr;
    ZentaQtSpinBox* m_pSpinBox = nullptr;
    int m_editBoxWidth = 0;
    bool m_emitValueChanges = true;
};
