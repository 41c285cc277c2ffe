#pragma once

#include <QObject>
#include <QTimer>

namespace Viewer {

// Waits for the camera pool's first scan to finish, so that what opens at
// start-up (the Bandwidth Manager) sees the cameras already there, but for
// no longer than a time limit: a pool that never reports must not keep it shut.
class CFirstScanWait : public QObject
{
    Q_OBJECT
public:
    // enumeration: an object with the signal scanFinished(), or null.
    CFirstScanWait(QObject* enumeration, int timeLimitMs, QObject* parent = nullptr);

signals:
    // Once: at the first scanFinished, at the time limit, or at once without a pool.
    void settled();

private slots:
    void onDone();

private:
    QTimer m_limit;
    bool m_done = false;
};

} // namespace Viewer
