#include <camerapool/CParameterHub.h>

#include <camerapool/CAravisCamera.h>
#include <camerapool/IRefreshable.h>

namespace CameraPool {

CParameterHub::CParameterHub(CAravisCamera* camera) : QObject(camera)
{
    m_pollTimer.setInterval(1000);
    connect(&m_pollTimer, &QTimer::timeout, this, &CParameterHub::onPoll);
    m_pollTimer.start();
}

ParameterCollection::ParameterPtr CParameterHub::cached(const QString& key) const
{
    return m_entries.value(key).parameter.toStrongRef();
}

void CParameterHub::remember(const QString& key, const ParameterCollection::ParameterPtr& parameter)
{
    m_entries.insert(key, SEntry{parameter.toWeakRef(), dynamic_cast<IRefreshable*>(parameter.data())});
}

void CParameterHub::afterWrite(const QString& name)
{
    QMetaObject::invokeMethod(this, [this, name] { refreshAll(name); }, Qt::QueuedConnection);
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
    refreshAll(QString());
}

void CParameterHub::refreshAll(const QString& forcedName)
{
    // A receiver may look up more nodes while we notify, so walk a copy.
    QList<QPair<ParameterCollection::ParameterPtr, IRefreshable*>> live;
    for (auto it = m_entries.begin(); it != m_entries.end();) {
        if (ParameterCollection::ParameterPtr parameter = it->parameter.toStrongRef()) {
            live.append({parameter, it->refreshable});
            ++it;
        } else {
            it = m_entries.erase(it);
        }
    }
    for (const auto& entry : qAsConst(live)) {
        const bool forced = entry.first->name() == forcedName;
        if (entry.second && (forced || entry.second->hasReceivers()))
            entry.second->refresh(forced);
    }
}

} // namespace CameraPool
