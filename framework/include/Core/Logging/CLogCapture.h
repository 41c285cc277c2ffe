#pragma once

#include <Core/Logging/Logging.h>

#include <QList>
#include <QMutex>
#include <QStringList>

namespace Core::Logging {

// Records the entries logged during its lifetime; for tests and log panels.
class CLogCapture
{
public:
    CLogCapture();
    ~CLogCapture();
    CLogCapture(const CLogCapture&) = delete;
    CLogCapture& operator=(const CLogCapture&) = delete;

    QList<SLogEntry> entries() const;
    QStringList texts() const;
    bool contains(const QString& text) const;
    void clear();

private:
    mutable QMutex m_mutex;
    QList<SLogEntry> m_entries;
    int m_handle = -1;
};

} // namespace Core::Logging
