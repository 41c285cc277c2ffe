#include "CFirstScanWait.h"

namespace Viewer {

CFirstScanWait::CFirstScanWait(QObject* enumeration, int timeLimitMs, QObject* parent) : QObject(parent)
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, &CFirstScanWait::onDone);
    const bool listening = enumeration && connect(enumeration, SIGNAL(scanFinished()), this, SLOT(onDone()));
    // Queued even without a pool, so that a receiver connected after construction hears it.
    m_limit.start(listening ? timeLimitMs : 0);
}

void CFirstScanWait::onDone()
{
    if (m_done)
        return;
    m_done = true;
    m_limit.stop();
    emit settled();
}

} // namespace Viewer
