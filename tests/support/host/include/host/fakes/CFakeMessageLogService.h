#pragma once

#include <Plugin/MessageLogCore/IMessageLogService.h>

#include <QList>

namespace HostFakes {

class CFakeMessageLogService : public Plugin::MessageLogCore::IMessageLogService
{
public:
    struct SMessage
    {
        int severity;
        QString source;
        QString message;
        QDateTime timestamp;
    };

    using IMessageLogService::IMessageLogService;

    void addMessage(int severity, const QString& source, const QString& message, const QDateTime& timestamp) override
    {
        m_messages.append({severity, source, message, timestamp});
    }

    const QList<SMessage>& messages() const { return m_messages; }
    void clear() { m_messages.clear(); }

private:
    QList<SMessage> m_messages;
};

} // namespace HostFakes
