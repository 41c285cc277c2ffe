#include "CMessageLogService.h"

#include <Core/Logging/Logging.h>

#include <QIcon>
#include <QLocale>
#include <QThread>

namespace Viewer {

namespace {

QIcon severityIcon(int severity)
{
    switch (severity) {
    case CMessageLogService::SeverityWarning:
        return QIcon(QStringLiteral(":/zentaviewercomponents/Resources/Warning_16_black.png"));
    case CMessageLogService::SeverityError:
    case CMessageLogService::SeverityFailure:
        return QIcon(QStringLiteral(":/zentaviewercomponents/Resources/Error_16.png"));
    default:
        return QIcon(QStringLiteral(":/zentaviewercomponents/Resources/Info_32.png"));
    }
}

QString severityText(int severity)
{
    switch (severity) {
    case CMessageLogService::SeverityWarning:
        return CMessageLogService::tr("Warning");
    case CMessageLogService::SeverityError:
        return CMessageLogService::tr("Error");
    case CMessageLogService::SeverityFailure:
        return CMessageLogService::tr("Failure");
    default:
        return CMessageLogService::tr("Information");
    }
}

} // namespace

CMessageLogService::CMessageLogService(QObject* parent) : IMessageLogService(parent)
{
    m_model.setHorizontalHeaderLabels({tr("Time"), tr("Severity"), tr("Source"), tr("Message")});
}

CMessageLogService::~CMessageLogService()
{
    if (m_listener >= 0)
        Core::Logging::removeLogListener(m_listener);
}

void CMessageLogService::addMessage(int severity, const QString& source, const QString& message,
                                    const QDateTime& timestamp)
{
    // The time of arrival, not of display, stands in for a missing timestamp.
    const QDateTime time = timestamp.isValid() ? timestamp : QDateTime::currentDateTime();
    if (QThread::currentThread() == thread()) {
        appendRow(severity, source, message, time);
        return;
    }
    QMetaObject::invokeMethod(this, "appendRow", Qt::QueuedConnection, Q_ARG(int, severity),
                              Q_ARG(QString, source), Q_ARG(QString, message), Q_ARG(QDateTime, time));
}

void CMessageLogService::followLogErrors()
{
    if (m_listener >= 0)
        return;
    m_listener = Core::Logging::addLogListener([this](const Core::Logging::SLogEntry& entry) {
        if (entry.level == Core::Logging::LogLevelError)
            addMessage(SeverityError, entry.categoryName, entry.text, QDateTime());
    });
}

void CMessageLogService::appendRow(int severity, const QString& source, const QString& message,
                                   const QDateTime& timestamp)
{
    auto* time = new QStandardItem(QLocale().toString(timestamp, QLocale::ShortFormat));
    time->setData(timestamp, Qt::UserRole);
    auto* level = new QStandardItem(severityIcon(severity), severityText(severity));
    level->setData(severity, Qt::UserRole);
    QList<QStandardItem*> row{time, level, new QStandardItem(source), new QStandardItem(message)};
    for (QStandardItem* item : row)
        item->setEditable(false);
    m_model.appendRow(row);
}

} // namespace Viewer
