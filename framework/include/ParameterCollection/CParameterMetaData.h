#pragma once

#include <QMap>
#include <QString>

namespace ParameterCollection {

// String properties of a node: "AccessMode" ("RO", "RW", "WO", "NA", "NI"),
// "DisplayName", "ToolTip", "Unit", "Visibility", ...
class CParameterMetaData
{
public:
    CParameterMetaData() = default;
    explicit CParameterMetaData(const QMap<QString, QString>& properties) : m_properties(properties) {}

    QString property(const QString& name) const { return m_properties.value(name); }
    bool hasProperty(const QString& name) const { return m_properties.contains(name); }
    const QMap<QString, QString>& properties() const { return m_properties; }

private:
    QMap<QString, QString> m_properties;
};

} // namespace ParameterCollection
