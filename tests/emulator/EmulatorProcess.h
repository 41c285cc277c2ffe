#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace gigeemu::test {

// A process started for a test and ended by its pid. The emulator is ready once it has
// printed its first line, which it does after binding its sockets.
class CChildProcess {
public:
    CChildProcess() = default;
    ~CChildProcess() { stop(); }
    CChildProcess(const CChildProcess&) = delete;
    CChildProcess& operator=(const CChildProcess&) = delete;

    bool start(const std::vector<std::string>& argv, int readyTimeoutMs = 5000);
    void kill(int signal);
    // SIGTERM, then SIGKILL after a grace period; returns the exit status.
    int stop();
    pid_t pid() const { return m_pid; }
    const std::string& firstLine() const { return m_line; }

private:
    pid_t m_pid = -1;
    std::string m_line;
};

std::vector<std::string> emulatorCommand(const std::string& address, const std::vector<std::string>& options);
// A loopback address of this test run, so runs and other engineers' cameras do not meet.
std::string loopbackAddress(int host);

} // namespace gigeemu::test
