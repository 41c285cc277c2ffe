#pragma once

#include <Core/Plugin/IPlugin.h>

#include <QJsonObject>
#include <QString>

namespace HostFakes {

// A built-in part of the host ("AppCore", "CameraPool", ...) registered as a
// plug-in, so that plug-ins that depend on it by name can be started.
class CFakeHostComponent : public Core::Plugin::IPlugin
{
public:
    using IPlugin::IPlugin;

    bool initialize(const Core::Plugin::PluginManagerWeakPtr&) override { return true; }
    bool start() override { return true; }
    bool uninitialize(const Core::Plugin::PluginManagerWeakPtr&) override { return true; }

    static QJsonObject metaData(const QString& name, const QString& version);
};

} // namespace HostFakes
