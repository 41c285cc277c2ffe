#pragma once

#include <Plugin/ProblemAssistant/IProblemAssistantService.h>

#include <QList>

namespace HostFakes {

class CFakeProblemAssistantService : public Plugin::ProblemAssistant::IProblemAssistantService
{
public:
    using IProblemAssistantService::IProblemAssistantService;

    void addSolution(const Plugin::ProblemAssistant::SolutionPtr& solution) override { m_solutions.append(solution); }
    const QList<Plugin::ProblemAssistant::SolutionPtr>& solutions() const { return m_solutions; }

private:
    QList<Plugin::ProblemAssistant::SolutionPtr> m_solutions;
};

} // namespace HostFakes
