#pragma once

#include <QString>
#include <QStringList>

#include <sys/types.h>

// A camera process started for a test and ended by its pid, also when the test fails.
class CCameraProcess
{
public:
    CCameraProcess() = default;
    ~CCameraProcess() { kill(); }
    CCameraProcess(const CCameraProcess&) = delete;
    CCameraProcess& operator=(const CCameraProcess&) = delete;

    // False if it could not be spawned or exited within the first half second.
    // Standard error goes to errorFile where one is given.
    bool start(const QStringList& arguments, const QString& errorFile = QString());
    // SIGKILL and reap; nothing when not running.
    void kill();
    pid_t pid() const { return m_pid; }

private:
    pid_t m_pid = -1;
};
