#pragma once

#include <Plugin/MessageLogCore/IMessageLogService.h>

#include <QStandardItemModel>

namespace Viewer {

// The viewer's message log: one row per message, newest last.
class CMessageLogService : public Plugin::MessageLogCore::IMessageLogService
{
    Q_OBJECT
public:
    // The levels of the host's log, which plug-ins pass as they log them.
    enum ESeverity
    {
        SeverityFailure = 0,
        SeverityInfo = 1,
        SeverityWarning = 2,
        SeverityError = 3,
    };
    enum EColumn
    {
        ColumnTime,
        ColumnSeverity,
        ColumnSource,
        ColumnMessage,
    };

    explicit CMessageLogService(QObject* parent = nullptr);
    ~CMessageLogService() override;

    // Safe from any thread; the row is added on the service's thread.
    void addMessage(int severity, const QString& source, const QString& message, const QDateTime& timestamp) override;

    // Also shows log entries of the error level.
    void followLogErrors();

    QStandardItemModel* model() { return &m_model; }

private:
    Q_INVOKABLE void appendRow(int severity, const QString& source, const QString& message, const QDateTime& timestamp);

    QStandardItemModel m_model;
    int m_listener = -1;
};

} // namespace Viewer
