#include <Core/Logging/Logging.h>

#include <QHash>
#include <QMutex>
#include <QMutexLocker>

#include <cstdio>
#include <map>
#include <mutex>

namespace Core::Logging {
namespace {

struct SCategories
{
    QMutex mutex;
    QHash<QByteArray, quint64> ids;
    QHash<quint64, QString> names;
};

SCategories& categories()
{
    static SCategories instance;
    return instance;
}

struct SListeners
{
    // Recursive so that a listener may log, and held while listeners run so
    // that removeLogListener never returns while its listener is still busy.
    std::recursive_mutex mutex;
    std::map<int, LogListener> listeners;
    int nextHandle = 1;
    bool stderrEnabled = true;
};

SListeners& listeners()
{
    static SListeners instance;
    return instance;
}

const char* levelName(ELogLevel level)
{
    switch (level) {
    case LogLevelFailure:
        return "failure";
    case LogLevelInfo:
        return "info";
    case LogLevelWarning:
        return "warning";
    case LogLevelError:
        return "error";
    }
    return "unknown";
}

} // namespace

quint64 getCatId(const char* name)
{
    const QByteArray key(name ? name : "");
    SCategories& c = categories();
    QMutexLocker lock(&c.mutex);
    const auto it = c.ids.constFind(key);
    if (it != c.ids.constEnd())
        return it.value();
    const quint64 id = quint64(c.ids.size()) + 1;
    c.ids.insert(key, id);
    c.names.insert(id, QString::fromUtf8(key));
    return id;
}

QString categoryName(quint64 id)
{
    SCategories& c = categories();
    QMutexLocker lock(&c.mutex);
    return c.names.value(id);
}

void createLogEntry(ELogLevel level, quint64 category, const QString& text)
{
    const SLogEntry entry{level, category, categoryName(category), text};
    SListeners& l = listeners();
    std::lock_guard<std::recursive_mutex> lock(l.mutex);
    if (l.stderrEnabled) {
        const QByteArray line = QStringLiteral("[%1] %2: %3\n")
                                    .arg(QLatin1String(levelName(level)), entry.categoryName, text)
                                    .toLocal8Bit();
        std::fwrite(line.constData(), 1, size_t(line.size()), stderr);
    }
    for (const auto& [handle, listener] : l.listeners) {
        Q_UNUSED(handle)
        listener(entry);
    }
}

int addLogListener(LogListener listener)
{
    SListeners& l = listeners();
    std::lock_guard<std::recursive_mutex> lock(l.mutex);
    const int handle = l.nextHandle++;
    l.listeners.emplace(handle, std::move(listener));
    return handle;
}

void removeLogListener(int handle)
{
    SListeners& l = listeners();
    std::lock_guard<std::recursive_mutex> lock(l.mutex);
    l.listeners.erase(handle);
}

void setStderrEnabled(bool enabled)
{
    SListeners& l = listeners();
    std::lock_guard<std::recursive_mutex> lock(l.mutex);
    l.stderrEnabled = enabled;
}

} // namespace Core::Logging
