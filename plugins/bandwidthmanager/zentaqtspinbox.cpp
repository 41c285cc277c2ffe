#include "zentaqtspinbox.h"

#include <QKeyEvent>

ZentaQtSpinBox::ZentaQtSpinBox(QWidget* parent) : QSpinBox(parent)
{
}

void ZentaQtSpinBox::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_PageUp || key == Qt::Key_PageDown)
        m_pageKeyPending = true;
    QAbstractSpinBox::keyPressEvent(event);
    if (key == Qt::Key_Escape) {
        event->accept();
        // The line edit takes Ctrl+Z as undo, which brings the old text back.
        QKeyEvent undo(QEvent::KeyPress, Qt::Key_Z, Qt::ControlModifier, QString(), false, 1);
        QAbstractSpinBox::keyPressEvent(&undo);
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        event->accept();
    }
}

void ZentaQtSpinBox::stepBy(int steps)
{
    if (m_pageKeyPending) {
        m_pageKeyPending = false;
        steps = steps < 0 ? -m_pageStep : m_pageStep;
    }
    QSpinBox::stepBy(steps);
    emit editingFinished();
}
