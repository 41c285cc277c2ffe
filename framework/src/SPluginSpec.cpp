#include <Core/Plugin/SPluginSpec.h>

#include <QJsonArray>

namespace Core::Plugin {

SPluginSpec SPluginSpec::fromMetaData(const QJsonObject& metaData, const QString& fileName)
{
    // Accepts the loader's whole block as well as its user part.
    const QJsonObject data =
        metaData.value(QLatin1String("MetaData")).isObject() ? metaData.value(QLatin1String("MetaData")).toObject()
                                                              : metaData;
    SPluginSpec spec;
    spec.fileName = fileName;
    spec.metaData = data;
    spec.name = data.value(QLatin1String("Name")).toString();
    spec.version = data.value(QLatin1String("Version")).toString();
    spec.compatVersion = data.value(QLatin1String("CompatVersion")).toString(spec.version);
    spec.required = data.value(QLatin1String("Required")).toBool(false);
    spec.description = data.value(QLatin1String("Description")).toString();
    const QJsonArray dependencies = data.value(QLatin1String("Dependencies")).toArray();
    for (const QJsonValue& value : dependencies) {
        const QJsonObject object = value.toObject();
        SPluginDependency dependency;
        dependency.name = object.value(QLatin1String("Name")).toString();
        dependency.version = object.value(QLatin1String("Version")).toString();
        dependency.optional =
            object.value(QLatin1String("Type")).toString().compare(QLatin1String("optional"), Qt::CaseInsensitive) == 0;
        if (dependency.name.isEmpty()) {
            spec.errorString = QStringLiteral("a dependency has no name");
            continue;
        }
        spec.dependencies.append(dependency);
    }
    if (spec.name.isEmpty())
        spec.errorString = QStringLiteral("the metadata has no \"Name\"");
    return spec;
}

} // namespace Core::Plugin
