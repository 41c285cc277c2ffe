#pragma once

#include <QObject>
#include <QSharedPointer>

namespace Core::Service {

// Base of every service registered with the plug-in manager; found by type.
class IService : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~IService() override = default;
};

using ServicePtr = QSharedPointer<IService>;

} // namespace Core::Service
