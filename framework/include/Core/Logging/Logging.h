#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>

namespace Core::Logging {

// 0 marks failures caught in row operations, 1 information, 2 exceptions
// caught in editors, 3 errors shown to the user.
enum ELogLevel
{
    LogLevelFailure = 0,
    LogLevelInfo = 1,
    LogLevelWarning = 2,
    LogLevelError = 3,
};

struct SLogEntry
{
    ELogLevel level;
    quint64 category;
    QString categoryName;
    QString text;
};

using LogListener = std::function<void(const SLogEntry&)>;

// Same name, same id, for the life of the process; thread-safe.
quint64 getCatId(const char* name);
QString categoryName(quint64 id);

// Writes to stderr with level and category, then to every listener.
void createLogEntry(ELogLevel level, quint64 category, const QString& text);

// Listeners receive every entry on the thread that logged it.
int addLogListener(LogListener listener);
void removeLogListener(int handle);

// Turns the stderr copy off and on (tests that log on purpose).
void setStderrEnabled(bool enabled);

} // namespace Core::Logging
