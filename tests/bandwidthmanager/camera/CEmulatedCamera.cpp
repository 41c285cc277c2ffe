#include "CEmulatedCamera.h"

#include <QElapsedTimer>

bool CEmulatedCamera::start(const QString& program, const QString& address, const QString& serial,
                            const QStringList& options)
{
    m_serial = serial;
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(program, QStringList{"--address", address, "--serial", serial} + options);
    if (!m_process.waitForStarted(5000))
        return false;
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 5000 && m_process.state() == QProcess::Running) {
        m_process.waitForReadyRead(200);
        m_output += QString::fromUtf8(m_process.readAll());
        if (m_output.contains(QLatin1String("gige-emulator:")) && m_output.contains(QLatin1String(" on ")))
            return true;
    }
    return false;
}

void CEmulatedCamera::kill()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished(5000);
}
