#pragma once

#include <Plugin/ProblemAssistant/Problem.h>

#include <QObject>
#include <QSet>
#include <QSharedPointer>
#include <QString>

namespace Plugin::ProblemAssistant {

// A remedy offered for the problems whose identifiers it lists. The
// description is rich text; following one of its links executes the solution.
class ISolution : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~ISolution() override = default;

    virtual QSet<QString> getIds() const = 0;
    virtual QString getDescription() const = 0;
    virtual void executeSolution(const Problem& problem, const QString& link) = 0;
};

using SolutionPtr = QSharedPointer<ISolution>;

} // namespace Plugin::ProblemAssistant
