#pragma once

#include <Plugin/ProblemAssistant/IProblemAssistantService.h>
#include <Plugin/ProblemAssistant/Problem.h>

#include <QList>

namespace Viewer {

// The problems the viewer knows, and the solutions that plug-ins attach to them.
class CProblemAssistantService : public Plugin::ProblemAssistant::IProblemAssistantService
{
    Q_OBJECT
public:
    explicit CProblemAssistantService(QObject* parent = nullptr);

    void addSolution(const Plugin::ProblemAssistant::SolutionPtr& solution) override;

    QList<Plugin::ProblemAssistant::Problem> problems() const { return m_problems; }
    Plugin::ProblemAssistant::Problem problem(const QString& id) const;
    QList<Plugin::ProblemAssistant::SolutionPtr> solutions(const QString& problemId) const;

signals:
    void solutionsChanged();

private:
    QList<Plugin::ProblemAssistant::Problem> m_problems;
    QList<Plugin::ProblemAssistant::SolutionPtr> m_solutions;
};

} // namespace Viewer
