#include <Core/Logging/CLogCapture.h>

#include <QMutexLocker>

namespace Core::Logging {

CLogCapture::CLogCapture()
{
    m_handle = addLogListener([this](const SLogEntry& entry) {
        QMutexLocker lock(&m_mutex);
        m_entries.append(entry);
    });
}

CLogCapture::~CLogCapture()
{
    removeLogListener(m_handle);
}

QList<SLogEntry> CLogCapture::entries() const
{
    QMutexLocker lock(&m_mutex);
    return m_entries;
}

QStringList CLogCapture::texts() const
{
    QMutexLocker lock(&m_mutex);
    QStringList result;
    for (const SLogEntry& entry : m_entries)
        result.append(entry.text);
    return result;
}

bool CLogCapture::contains(const QString& text) const
{
    QMutexLocker lock(&m_mutex);
    for (const SLogEntry& entry : m_entries) {
        if (entry.text.contains(text))
            return true;
    }
    return false;
}

void CLogCapture::clear()
{
    QMutexLocker lock(&m_mutex);
    m_entries.clear();
}

} // namespace Core::Logging
