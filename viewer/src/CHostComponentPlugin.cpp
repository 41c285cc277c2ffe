#include "CHostComponentPlugin.h"

#include <Core/Plugin/CPluginManager.h>

namespace Viewer {

QJsonObject CHostComponentPlugin::metaData(const QString& name, const QString& version)
{
    return QJsonObject{{"Name", name}, {"Version", version}, {"CompatVersion", version}, {"Required", true}};
}

void CHostComponentPlugin::addHostComponents(Core::Plugin::CPluginManager& manager)
{
    static const struct
    {
        const char* name;
        const char* version;
    } components[] = {
        {"AppCore", "2.0.0"},          {"CameraPool", "2.0.0"},     {"CameraSelector", "7.3.0"},
        {"DataProcessingCore", "2.0.0"}, {"ImageView", "7.3.0"},    {"MessageLogCore", "2.0.0"},
        {"ParameterCollectionPool", "2.0.0"}, {"ZentaViewer", "7.3.0"}, {"VideoRecording", "7.3.0"},
        {"ProblemAssistant", "2.0.0"},
    };
    for (const auto& component : components) {
        auto* plugin = new CHostComponentPlugin;
        plugin->setObjectName(QString::fromLatin1(component.name));
        manager.addPluginInstance(plugin, metaData(QString::fromLatin1(component.name),
                                                   QString::fromLatin1(component.version)));
    }
}

} // namespace Viewer
