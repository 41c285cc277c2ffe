#pragma once

#include <QMetaType>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

namespace ParameterCollection {

// A snapshot of a parameter, handed out with change notifications.
class ParameterData
{
public:
    ParameterData() = default;
    ParameterData(const QString& name, const QVariant& value) : name(name), value(value) {}
    virtual ~ParameterData() = default;

    QString name;
    QVariant value;
};

using ParameterDataConstPtr = QSharedPointer<const ParameterData>;

} // namespace ParameterCollection

Q_DECLARE_METATYPE(ParameterCollection::ParameterDataConstPtr)
