#pragma once

#include "hostchecks.h"

#include <QDialog>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

class QGridLayout;
class QLabel;
class QPushButton;

namespace Plugin::BandwidthManager {

class CHostFixer;

// The host checks, one line each, with a Fix button where a fix exists. A fix
// runs directly, through the privileged helper, or shows the command to run as
// root; the checks run again after it.
class CHostChecksDialog : public QDialog
{
    Q_OBJECT
public:
    // run: the checks, on a thread of their own (they wait a moment to count packets).
    using Run = std::function<std::vector<SHostCheck>()>;
    CHostChecksDialog(Run run, const CHostFixer& fixer, QWidget* parent = nullptr);
    ~CHostChecksDialog() override;

    // Starts the checks; results() once checked() was signalled.
    void runChecks();
    const std::vector<SHostCheck>& results() const { return m_results; }
    // The text shown for a check's line, for the fix's outcome too.
    QString lineText(int index) const;
    void applyFix(int index);

signals:
    void checked();

private:
    void showResults(std::vector<SHostCheck> results);
    void clearLines();

    Run m_run;
    const CHostFixer& m_fixer;
    std::vector<SHostCheck> m_results;
    QGridLayout* m_lines = nullptr;
    QLabel* m_status = nullptr;
    QPushButton* m_again = nullptr;
    std::vector<QLabel*> m_texts;
    // What each fix did, kept under its check when the checks run again.
    std::map<std::pair<int, std::string>, QString> m_outcomes;
    bool m_running = false;
};

} // namespace Plugin::BandwidthManager
