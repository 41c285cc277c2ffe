#include <camerapool/CParameterHub.h>

#include <camerapool/CAravisCamera.h>
#include <camerapool/CParameterReader.h>
#include <camerapool/IRefreshable.h>


namespace CameraPool {

CParameterHub::CParameterHub(CAravisCamera* camera) : QObject(camera)
{
    // Changes cross from the reading thread to the receivers' by queue.
    qRegisterMetaType<ParameterCollection::ParameterDataConstPtr>();
    qRegisterMetaType<ParameterCollection::ParameterDataConstPtr>("QSharedPointer<const ParameterCollection::ParameterData>");
    m_pollTimer.setInterval(1000);
    connect(&m_pollTimer, &QTimer::timeout, this, &CParameterHub::onPoll);
    m_pollTimer.start();
    m_writeSettle.setSingleShot(true);
    m_writeSettle.setInterval(WriteSettleMs);
    connect(&m_writeSettle, &QTimer::timeout, this, [this] {
        const QSet<QString> written = std::move(m_written);
        m_written.clear();
        refreshAll(written);
    });
}

ParameterCollection::ParameterPtr CParameterHub::cached(const QString& key) const
{
    const std::lock_guard<std::mutex> lock(m_entriesMutex);
    return m_entries.value(key).parameter.toStrongRef();
}

void CParameterHub::remember(const QString& key, const ParameterCollection::ParameterPtr& parameter)
{
    const std::lock_guard<std::mutex> lock(m_entriesMutex);
    m_entries.insert(key, SEntry{parameter.toWeakRef(), dynamic_cast<IRefreshable*>(parameter.data())});
}

void CParameterHub::afterWrite(const QString& name)
{
    QMetaObject::invokeMethod(
        this,
        [this, name] {
            m_written.insert(name);
            m_writeSettle.start();
        },
        Qt::QueuedConnection);
}

void CParameterHub::stopPolling()
{
    QMetaObject::invokeMethod(&m_pollTimer, &QTimer::stop, Qt::AutoConnection);
}

void CParameterHub::onPoll()
{
    const auto* camera = static_cast<const CAravisCamera*>(parent());
    if (camera->isConnectionLost() || !camera->isOpen()) {
        m_pollTimer.stop();
        return;
    }
    if (camera->isUnresponsive())
        return;
    refreshAll({});
}

void CParameterHub::refreshAll(const QSet<QString>& forcedNames)
{
    // The strong references keep the parameters, and so their camera, alive
    // until the reads are done; the task touches nothing of the hub.
    QList<QPair<ParameterCollection::ParameterPtr, bool>> live;
    {
        const std::lock_guard<std::mutex> lock(m_entriesMutex);
        for (auto it = m_entries.begin(); it != m_entries.end();) {
            if (ParameterCollection::ParameterPtr parameter = it->parameter.toStrongRef()) {
                const bool forced = forcedNames.contains(parameter->name());
                if (it->refreshable && (forced || it->refreshable->hasReceivers()))
                    live.append({parameter, forced});
                ++it;
            } else {
                it = m_entries.erase(it);
            }
        }
    }
    if (live.isEmpty())
        return;
    CParameterReader::instance().post([live] {
        for (const auto& entry : live)
            dynamic_cast<IRefreshable*>(entry.first.data())->refresh(entry.second);
    });
}

} // namespace CameraPool
