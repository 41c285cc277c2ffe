#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <functional>

namespace HostFakes {

// Answers the modal windows that code under test opens with exec(): each new
// modal widget gets the next queued reaction, or is rejected when none is
// left, so a test never hangs on a box. Records the class of each one seen.
class CModalResponder : public QObject
{
public:
    using Reaction = std::function<void(QWidget* modal)>;

    explicit CModalResponder(QObject* parent = nullptr);

    void expect(const Reaction& reaction) { m_reactions.push_back(reaction); }
    const QStringList& seen() const { return m_seen; }

    // Common reactions.
    static Reaction closeWindow();
    static Reaction clickButton(int standardButton, bool tickDoNotShowAgain = false);
    static Reaction clickButtonWithText(const QString& text);

private:
    void poll();

    QTimer m_timer;
    QPointer<QWidget> m_current;
    std::deque<Reaction> m_reactions;
    QStringList m_seen;
};

} // namespace HostFakes
