#pragma once

#include <ParameterCollection/IParameter.h>

#include <QHash>
#include <QSet>
#include <QObject>
#include <QTimer>

#include <mutex>

namespace CameraPool {

class CAravisCamera;
class IRefreshable;

// The parameters of one camera, shared by all its collections: one object per
// node, so a write through any collection reaches every receiver. Polls the
// nodes that have receivers about once a second for changes made by others.
// The reads run on a thread of their own, one for all hubs: a camera that has
// died would hold the window for the transport's timeouts at every poll. The
// changes reach their receivers queued, on the receivers' threads.
class CParameterHub : public QObject
{
    Q_OBJECT
public:
    explicit CParameterHub(CAravisCamera* camera);

    ParameterCollection::ParameterPtr cached(const QString& key) const;
    void remember(const QString& key, const ParameterCollection::ParameterPtr& parameter);

    // Any thread: after a write, the written node and every watched node that
    // changed notify on the GUI thread. The writes of a burst (a search, a
    // probe) are read back once, WriteSettleMs after the last of them: each
    // read-back costs a register read per watched node on a real camera.
    void afterWrite(const QString& name);
    static constexpr int WriteSettleMs = 100;
    void stopPolling();
    void setPollInterval(int milliseconds) { m_pollTimer.setInterval(milliseconds); }

private slots:
    void onPoll();

private:
    void refreshAll(const QSet<QString>& forcedNames);

    struct SEntry
    {
        QWeakPointer<ParameterCollection::IParameter> parameter;
        IRefreshable* refreshable = nullptr;
    };
    mutable std::mutex m_entriesMutex;
    QHash<QString, SEntry> m_entries;
    QTimer m_pollTimer;
    QTimer m_writeSettle;
    QSet<QString> m_written;
};

} // namespace CameraPool
