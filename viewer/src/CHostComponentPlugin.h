#pragma once

#include <Core/Plugin/IPlugin.h>

#include <QJsonObject>

namespace Core::Plugin {
class CPluginManager;
}

namespace Viewer {

// A part built into the viewer, entered in the plug-in manager under its
// component name so that plug-ins can name it among their dependencies.
class CHostComponentPlugin : public Core::Plugin::IPlugin
{
    Q_OBJECT
public:
    using IPlugin::IPlugin;

    bool initialize(const Core::Plugin::PluginManagerWeakPtr&) override { return true; }
    bool start() override { return true; }
    bool uninitialize(const Core::Plugin::PluginManagerWeakPtr&) override { return true; }

    static QJsonObject metaData(const QString& name, const QString& version);
    // The viewer's components and their versions.
    static void addHostComponents(Core::Plugin::CPluginManager& manager);
};

} // namespace Viewer
