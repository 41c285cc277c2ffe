#include "hostchecksdialog.h"

#include "hostfixer.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include <thread>

namespace Plugin::BandwidthManager {

namespace {

constexpr int TextWidth = 600;

} // namespace

CHostChecksDialog::CHostChecksDialog(Run run, const CHostFixer& fixer, QWidget* parent)
    : QDialog(parent)
    , m_run(std::move(run))
    , m_fixer(fixer)
{
    setObjectName(QStringLiteral("HostChecksDialog"));
    setWindowTitle(tr("Host Checks"));
    setMinimumWidth(TextWidth + 120);
    auto* layout = new QVBoxLayout(this);
    m_status = new QLabel(this);
    layout->addWidget(m_status);
    m_lines = new QGridLayout();
    m_lines->setColumnStretch(1, 1);
    layout->addLayout(m_lines);
    layout->addStretch();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    m_again = buttons->addButton(tr("Check &Again"), QDialogButtonBox::ActionRole);
    m_again->setObjectName(QStringLiteral("btnCheckAgain"));
    connect(m_again, &QPushButton::clicked, this, &CHostChecksDialog::runChecks);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

CHostChecksDialog::~CHostChecksDialog() = default;

void CHostChecksDialog::runChecks()
{
    if (m_running)
        return;
    m_running = true;
    m_again->setEnabled(false);
    m_status->setText(tr("Checking the host..."));
    // The checks read the kernel only; the result comes back to the window's thread.
    QPointer<CHostChecksDialog> self(this);
    std::thread([self, run = m_run] {
        std::vector<SHostCheck> results = run();
        QMetaObject::invokeMethod(
            qApp, [self, results = std::move(results)]() mutable {
                if (self)
                    self->showResults(std::move(results));
            },
            Qt::QueuedConnection);
    }).detach();
}

void CHostChecksDialog::clearLines()
{
    while (QLayoutItem* item = m_lines->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    m_texts.clear();
}

void CHostChecksDialog::showResults(std::vector<SHostCheck> results)
{
    m_running = false;
    m_again->setEnabled(true);
    clearLines();
    m_results = std::move(results);
    int failed = 0;
    for (int index = 0; index < int(m_results.size()); ++index) {
        const SHostCheck& check = m_results[size_t(index)];
        failed += check.passed ? 0 : 1;
        auto* icon = new QLabel(this);
        icon->setPixmap(style()->standardIcon(check.passed ? QStyle::SP_DialogApplyButton : QStyle::SP_MessageBoxWarning)
                            .pixmap(16, 16));
        m_lines->addWidget(icon, index, 0, Qt::AlignTop);
        const auto outcome = m_outcomes.find({int(check.check), check.interfaceName});
        auto* text = new QLabel(outcome == m_outcomes.end() ? check.text : check.text + QStringLiteral("\n") + outcome->second, this);
        text->setWordWrap(true);
        text->setTextInteractionFlags(Qt::TextSelectableByMouse);
        // A wrapped label tells its layout one line's height; it gets what its lines take at its width.
        text->setMinimumWidth(TextWidth);
        text->setMinimumHeight(text->heightForWidth(TextWidth));
        m_lines->addWidget(text, index, 1);
        m_texts.push_back(text);
        if (check.fix) {
            auto* fix = new QPushButton(tr("Fix"), this);
            fix->setObjectName(QStringLiteral("btnFix%1").arg(index));
            connect(fix, &QPushButton::clicked, this, [this, index] { applyFix(index); });
            m_lines->addWidget(fix, index, 2, Qt::AlignTop);
        }
    }
    m_status->setText(failed == 0 ? tr("Every check passed.") : tr("%1 check(s) found something to change.").arg(failed));
    // The lines came after the window was laid out: it grows to hold them.
    adjustSize();
    emit checked();
}

QString CHostChecksDialog::lineText(int index) const
{
    return index >= 0 && index < int(m_texts.size()) ? m_texts[size_t(index)]->text() : QString();
}

void CHostChecksDialog::applyFix(int index)
{
    if (index < 0 || index >= int(m_results.size()) || !m_results[size_t(index)].fix)
        return;
    const SHostCheck& check = m_results[size_t(index)];
    const CHostFixer::SOutcome outcome = m_fixer.apply(*check.fix);
    m_outcomes[{int(check.check), check.interfaceName}] = outcome.text;
    m_texts[size_t(index)]->setText(check.text + QStringLiteral("\n") + outcome.text);
    // What the fix changed shows in the checks' own words.
    if (outcome.applied)
        runChecks();
}

} // namespace Plugin::BandwidthManager
