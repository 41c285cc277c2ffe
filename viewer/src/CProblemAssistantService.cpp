#include "CProblemAssistantService.h"

#include <Plugin/ProblemAssistant/ISolution.h>

namespace Viewer {

CProblemAssistantService::CProblemAssistantService(QObject* parent) : IProblemAssistantService(parent)
{
    m_problems = {
        {"1000", tr("Camera not found"), tr("The camera does not appear in the list of devices.")},
        {"1001", tr("Camera cannot be opened"), tr("The camera is listed but another program or host holds it.")},
        {"2000", tr("Images are lost"), tr("Frames of a network camera arrive incomplete or not at all.")},
        {"2010", tr("Frame rate lower than expected"), tr("The camera sends fewer images than it was set to.")},
        {"2020", tr("Many packets are resent"), tr("The network adapter asks the camera to resend often.")},
        {"2030", tr("The adapter drops packets"), tr("The receive buffers of the network adapter overflow.")},
        {"2040", tr("Link bandwidth exhausted"), tr("The cameras on one link need more than it carries.")},
        {"3000", tr("USB camera is slow"), tr("A USB camera delivers less than its link allows.")},
        {"3001", tr("USB bandwidth exhausted"), tr("The cameras on one USB controller need more than it carries.")},
        {"3002", tr("USB camera runs at USB 2 speed"), tr("The camera is connected through a USB 2 port or cable.")},
    };
}

void CProblemAssistantService::addSolution(const Plugin::ProblemAssistant::SolutionPtr& solution)
{
    if (!solution || m_solutions.contains(solution))
        return;
    m_solutions.append(solution);
    emit solutionsChanged();
}

Plugin::ProblemAssistant::Problem CProblemAssistantService::problem(const QString& id) const
{
    for (const Plugin::ProblemAssistant::Problem& problem : m_problems) {
        if (problem.id == id)
            return problem;
    }
    return {id, id, QString()};
}

QList<Plugin::ProblemAssistant::SolutionPtr> CProblemAssistantService::solutions(const QString& problemId) const
{
    QList<Plugin::ProblemAssistant::SolutionPtr> result;
    for (const Plugin::ProblemAssistant::SolutionPtr& solution : m_solutions) {
        if (solution->getIds().contains(problemId))
            result.append(solution);
    }
    return result;
}

} // namespace Viewer
