#pragma once

#include <Plugin/ProblemAssistant/ISolution.h>

#include <QPointer>

class QAction;

namespace Plugin::ProblemAssistant {

// A solution that triggers an action when the user follows its link.
class CActionBasedSolution : public ISolution
{
    Q_OBJECT
public:
    CActionBasedSolution(const QString& description, QAction* action, const QSet<QString>& ids, QObject* parent);

    QSet<QString> getIds() const override;
    QString getDescription() const override;
    void executeSolution(const Problem& problem, const QString& link) override;

private:
    QString m_description;
    QPointer<QAction> m_action;
    QSet<QString> m_ids;
};

} // namespace Plugin::ProblemAssistant
