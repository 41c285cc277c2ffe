#include <host/fakes/CModalResponder.h>

#include <Utilities/MessageBoxCheckable.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QMessageBox>

namespace HostFakes {

CModalResponder::CModalResponder(QObject* parent) : QObject(parent)
{
    m_timer.setInterval(10);
    connect(&m_timer, &QTimer::timeout, this, &CModalResponder::poll);
    m_timer.start();
}

void CModalResponder::poll()
{
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || modal == m_current || !modal->isVisible())
        return;
    m_current = modal;
    m_seen.append(QString::fromLatin1(modal->metaObject()->className()));
    if (m_reactions.empty()) {
        closeWindow()(modal);
        return;
    }
    const Reaction reaction = m_reactions.front();
    m_reactions.pop_front();
    reaction(modal);
}

CModalResponder::Reaction CModalResponder::closeWindow()
{
    return [](QWidget* modal) {
        if (auto* dialog = qobject_cast<QDialog*>(modal))
            dialog->reject();
        else
            modal->close();
    };
}

CModalResponder::Reaction CModalResponder::clickButton(int standardButton, bool tickDoNotShowAgain)
{
    return [standardButton, tickDoNotShowAgain](QWidget* modal) {
        if (tickDoNotShowAgain) {
            if (auto* checkable = qobject_cast<MessageBoxCheckable*>(modal))
                checkable->checkBoxDoNotShowAgain()->setChecked(true);
        }
        auto* box = qobject_cast<QMessageBox*>(modal);
        QAbstractButton* button = box ? box->button(static_cast<QMessageBox::StandardButton>(standardButton)) : nullptr;
        if (button)
            button->click();
        else
            closeWindow()(modal);
    };
}

CModalResponder::Reaction CModalResponder::clickButtonWithText(const QString& text)
{
    return [text](QWidget* modal) {
        const auto buttons = modal->findChildren<QAbstractButton*>();
        for (QAbstractButton* button : buttons) {
            if (button->text() == text) {
                button->click();
                return;
            }
        }
        closeWindow()(modal);
    };
}

} // namespace HostFakes
