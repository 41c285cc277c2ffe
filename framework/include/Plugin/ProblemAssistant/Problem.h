#pragma once

#include <QString>

namespace Plugin::ProblemAssistant {

// A problem the assistant shows, by its identifier ("2000", "3001", ...).
struct Problem
{
    QString id;
    QString title;
    QString description;
};

} // namespace Plugin::ProblemAssistant
