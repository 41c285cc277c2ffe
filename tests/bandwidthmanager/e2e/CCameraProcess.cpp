#include "CCameraProcess.h"

#include <QThread>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

extern char** environ;

bool CCameraProcess::start(const QStringList& arguments, const QString& errorFile)
{
    std::vector<QByteArray> storage;
    for (const QString& argument : arguments)
        storage.push_back(argument.toLocal8Bit());
    std::vector<char*> argv;
    for (QByteArray& argument : storage)
        argv.push_back(argument.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    const QByteArray errorPath = errorFile.toLocal8Bit();
    if (!errorPath.isEmpty())
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errorPath.constData(), O_WRONLY | O_CREAT | O_TRUNC,
                                         0644);
    const int status = posix_spawnp(&m_pid, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (status != 0) {
        m_pid = -1;
        return false;
    }
    QThread::msleep(500);
    if (waitpid(m_pid, nullptr, WNOHANG) != 0) {
        m_pid = -1;
        return false;
    }
    return true;
}

void CCameraProcess::kill()
{
    if (m_pid <= 0)
        return;
    ::kill(m_pid, SIGKILL);
    waitpid(m_pid, nullptr, 0);
    m_pid = -1;
}
