#include "CProblemAssistantPanel.h"

#include "CProblemAssistantService.h"

#include <Plugin/ProblemAssistant/ISolution.h>

#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QVBoxLayout>

namespace Viewer {

CProblemAssistantPanel::CProblemAssistantPanel(CProblemAssistantService* service, QWidget* parent)
    : QWidget(parent), m_service(service), m_list(new QListWidget(this)), m_description(new QLabel(this)),
      m_solutionsLayout(new QVBoxLayout)
{
    for (const Plugin::ProblemAssistant::Problem& problem : m_service->problems()) {
        auto* item = new QListWidgetItem(QStringLiteral("%1  %2").arg(problem.id, problem.title), m_list);
        item->setData(Qt::UserRole, problem.id);
    }
    m_description->setWordWrap(true);

    auto* solutions = new QWidget;
    auto* solutionsOuter = new QVBoxLayout(solutions);
    solutionsOuter->addLayout(m_solutionsLayout);
    solutionsOuter->addStretch();
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setWidget(solutions);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list, 2);
    layout->addWidget(m_description);
    layout->addWidget(scroll, 3);

    connect(m_list, &QListWidget::currentRowChanged, this, &CProblemAssistantPanel::onCurrentProblemChanged);
    connect(m_service, &CProblemAssistantService::solutionsChanged, this,
            &CProblemAssistantPanel::onCurrentProblemChanged);
}

void CProblemAssistantPanel::showProblem(const QString& id)
{
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->data(Qt::UserRole).toString() == id) {
            m_list->setCurrentRow(row);
            return;
        }
    }
}

void CProblemAssistantPanel::onCurrentProblemChanged()
{
    qDeleteAll(m_solutionLabels);
    m_solutionLabels.clear();
    const QListWidgetItem* item = m_list->currentItem();
    if (!item) {
        m_description->clear();
        return;
    }
    const Plugin::ProblemAssistant::Problem problem = m_service->problem(item->data(Qt::UserRole).toString());
    m_description->setText(problem.description);
    const QList<Plugin::ProblemAssistant::SolutionPtr> solutions = m_service->solutions(problem.id);
    if (solutions.isEmpty()) {
        auto* none = new QLabel(tr("No solution is known for this problem."));
        m_solutionsLayout->addWidget(none);
        m_solutionLabels.append(none);
        return;
    }
    for (const Plugin::ProblemAssistant::SolutionPtr& solution : solutions) {
        auto* label = new QLabel(solution->getDescription());
        label->setTextFormat(Qt::RichText);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
        // Held weakly: a solution whose plug-in left must not be run.
        const QWeakPointer<Plugin::ProblemAssistant::ISolution> weak = solution;
        connect(label, &QLabel::linkActivated, this, [weak, problem](const QString& link) {
            if (const auto strong = weak.toStrongRef())
                strong->executeSolution(problem, link);
        });
        m_solutionsLayout->addWidget(label);
        m_solutionLabels.append(label);
    }
}

} // namespace Viewer
