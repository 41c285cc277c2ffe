#pragma once

#include <QObject>
#include <QWeakPointer>

namespace Core::Plugin {

class CPluginManager;
using PluginManagerWeakPtr = QWeakPointer<CPluginManager>;

enum class UninitializeMode
{
    Synchronous,
    Asynchronous,
};

// What a plug-in offers the host. The host calls initialize, start, and at
// its end aboutToUninitialize and uninitialize, in that order.
class IPlugin : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~IPlugin() override = default;

    virtual bool initialize(const PluginManagerWeakPtr& pluginManager) = 0;
    virtual bool start() = 0;
    virtual bool uninitialize(const PluginManagerWeakPtr& pluginManager) = 0;
    virtual bool checkPluginClosability(bool /*force*/) { return true; }
    virtual UninitializeMode aboutToUninitialize() { return UninitializeMode::Synchronous; }
};

} // namespace Core::Plugin

#define ZENTA_PLUGIN_IID "org.zenta.viewer.Core.Plugin.IPlugin/2.0"
Q_DECLARE_INTERFACE(Core::Plugin::IPlugin, ZENTA_PLUGIN_IID)
