#include <Core/Plugin/SPluginSpec.h>

#include <QJsonArray>

namespace Core::Plugin {

SPluginSpec SPluginSpec::fromMetaData(const QJsonObject& metaData, const QString& fileName)
{
    // Accepts the loader's whole block as well as its user part.
    const QJsonObject data =
        metaData.value(QLatin1String("MetaData")).isObject() ? metaData.value(QLatin1String("MetaData")).toObject()
                                                              : metaData;
    SPluginSpec pluginSpec;
    pluginSpec.fileName = fileName;
    pluginSpec.metaData = data;
    pluginSpec.name = data.value(QLatin1String("Name")).toString();
    pluginSpec.version = data.value(QLatin1String("Version")).toString();
    pluginSpec.compatVersion = data.value(QLatin1String("CompatVersion")).toString(pluginSpec.version);
    pluginSpec.required = data.value(QLatin1String("Required")).toBool(false);
    pluginSpec.description = data.value(QLatin1String("Description")).toString();
    const QJsonArray dependencies = data.value(QLatin1String("Dependencies")).toArray();
    for (const QJsonValue& value : dependencies) {
        const QJsonObject object = value.toObject();
        SPluginDependency dependency;
        dependency.name = object.value(QLatin1String("Name")).toString();
        dependency.version = object.value(QLatin1String("Version")).toString();
        dependency.optional =
            object.value(QLatin1String("Type")).toString().compare(QLatin1String("optional"), Qt::CaseInsensitive) == 0;
        if (dependency.name.isEmpty()) {
            pluginSpec.errorString = QStringLiteral("a dependency has no name");
            continue;
        }
        pluginSpec.dependencies.append(dependency);
    }
    if (pluginSpec.name.isEmpty())
        pluginSpec.errorString = QStringLiteral("the metadata has no \"Name\"");
    return pluginSpec;
}

} // namespace Core::Plugin
