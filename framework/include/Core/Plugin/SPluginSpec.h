#pragma once

#include <QJsonObject>
#include <QList>
#include <QString>

namespace Core::Plugin {

struct SPluginDependency
{
    QString name;
    QString version;
    bool optional = false;
};

// The metadata of one plug-in as read from its library.
struct SPluginSpec
{
    QString fileName;
    QString name;
    QString version;
    QString compatVersion;
    bool required = false;
    QString description;
    QList<SPluginDependency> dependencies;
    QJsonObject metaData;
    QString errorString;

    static SPluginSpec fromMetaData(const QJsonObject& metaData, const QString& fileName);
};

} // namespace Core::Plugin
