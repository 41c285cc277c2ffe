#include <Plugin/ProblemAssistant/CActionBasedSolution.h>

#include <QAction>

namespace Plugin::ProblemAssistant {

CActionBasedSolution::CActionBasedSolution(const QString& description, QAction* action, const QSet<QString>& ids,
                                           QObject* parent)
    : ISolution(parent), m_description(description), m_action(action), m_ids(ids)
{
}

QSet<QString> CActionBasedSolution::getIds() const
{
    return m_ids;
}

QString CActionBasedSolution::getDescription() const
{
    return m_description;
}

void CActionBasedSolution::executeSolution(const Problem& /*problem*/, const QString& /*link*/)
{
    // The action may have gone with its plug-in while the solution stayed listed.
    if (m_action)
        m_action->trigger();
}

} // namespace Plugin::ProblemAssistant
