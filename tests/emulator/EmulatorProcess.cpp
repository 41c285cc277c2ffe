#include "EmulatorProcess.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace gigeemu::test {

bool CChildProcess::start(const std::vector<std::string>& argv, int readyTimeoutMs)
{
    int fds[2];
    if (pipe2(fds, O_CLOEXEC) != 0)
        return false;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fds[1], STDERR_FILENO);
    posix_spawn_file_actions_adddup2(&actions, fds[1], STDOUT_FILENO);
    std::vector<char*> args;
    for (const auto& a : argv)
        args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);
    const int rc = posix_spawnp(&m_pid, args[0], &actions, nullptr, args.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(fds[1]);
    if (rc != 0) {
        m_pid = -1;
        ::close(fds[0]);
        return false;
    }
    pollfd p{fds[0], POLLIN, 0};
    char c = 0;
    while (::poll(&p, 1, readyTimeoutMs) > 0 && ::read(fds[0], &c, 1) == 1 && c != '\n')
        m_line += c;
    ::close(fds[0]);
    return c == '\n' && m_line.find("gige-emulator:") == 0 && m_line.find(" on ") != std::string::npos;
}

void CChildProcess::kill(int signal)
{
    if (m_pid > 0)
        ::kill(m_pid, signal);
}

int CChildProcess::stop()
{
    if (m_pid <= 0)
        return -1;
    ::kill(m_pid, SIGTERM);
    int status = 0;
    for (int i = 0; i < 300; ++i) {
        if (::waitpid(m_pid, &status, WNOHANG) == m_pid) {
            m_pid = -1;
            return status;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ::kill(m_pid, SIGKILL);
    ::waitpid(m_pid, &status, 0);
    m_pid = -1;
    return status;
}

std::vector<std::string> emulatorCommand(const std::string& address, const std::vector<std::string>& options)
{
    std::vector<std::string> argv = {GIGE_EMULATOR_PATH, "--address", address};
    argv.insert(argv.end(), options.begin(), options.end());
    return argv;
}

std::string loopbackAddress(int host)
{
    const int pid = int(::getpid());
    return "127." + std::to_string(100 + pid % 100) + "." + std::to_string((pid / 100) % 250) + "."
        + std::to_string(host);
}

} // namespace gigeemu::test
