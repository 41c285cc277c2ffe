#pragma once

#include <QProcess>
#include <QStringList>

// One gige-emulator process, started for a test and ended by its own pid.
class CEmulatedCamera
{
public:
    CEmulatedCamera() = default;
    ~CEmulatedCamera() { kill(); }
    CEmulatedCamera(const CEmulatedCamera&) = delete;
    CEmulatedCamera& operator=(const CEmulatedCamera&) = delete;

    // Waits for the emulator's "gige-emulator: ... on ..." line; false if it did not come.
    bool start(const QString& program, const QString& address, const QString& serial, const QStringList& options);
    // SIGKILL, as a camera that loses power; then reaps it.
    void kill();
    QString serial() const { return m_serial; }
    QString output() const { return m_output; }

private:
    QProcess m_process;
    QString m_serial;
    QString m_output;
};
