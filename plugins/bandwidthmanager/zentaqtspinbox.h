#pragma once

#include <QSpinBox>

// The spin box of ComboSlider: every step applies at once, Page Up and Page
// Down move by a page of steps, Escape undoes the typing, and neither Escape
// nor Enter reaches the dialog around it.
class ZentaQtSpinBox : public QSpinBox
{
    Q_OBJECT
public:
    explicit ZentaQtSpinBox(QWidget* parent = nullptr);

    int pageStep() const { return m_pageStep; }
    void setPageStep(int pageStep) { m_pageStep = pageStep; }

    void stepBy(int steps) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    int m_pageStep = 10;
    bool m_pageKeyPending = false;
};
