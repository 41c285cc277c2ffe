#pragma once

#include <Core/Service/IService.h>

#include <QDateTime>
#include <QString>

namespace Plugin::MessageLogCore {

class IMessageLogService : public Core::Service::IService
{
    Q_OBJECT
public:
    using IService::IService;

    // A null timestamp stands for the time of arrival.
    virtual void addMessage(int severity, const QString& source, const QString& message, const QDateTime& timestamp) = 0;
};

} // namespace Plugin::MessageLogCore
