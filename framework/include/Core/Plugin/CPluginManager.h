#pragma once

#include <Core/Plugin/IPlugin.h>
#include <Core/Plugin/SPluginSpec.h>
#include <Core/Service/IService.h>

#include <QList>
#include <QObject>
#include <QReadWriteLock>
#include <QSharedPointer>
#include <QStringList>

#include <memory>

class QPluginLoader;

namespace Core::Plugin {

// Holds the host's services and its plug-ins. Plug-ins are initialised
// after the plug-ins they depend on; a plug-in whose required dependency is
// missing is refused with a log entry.
class CPluginManager : public QObject
{
    Q_OBJECT
public:
    explicit CPluginManager(QObject* parent = nullptr);
    ~CPluginManager() override;

    void addService(const Core::Service::ServicePtr& service);
    void removeService(const Core::Service::ServicePtr& service);

    // A copy of the service list, taken under the read lock.
    void services(QList<Core::Service::ServicePtr>& out) const;
    QReadWriteLock* servicesLock() const;

    // Reads the metadata of every plug-in library in the folder; loads nothing yet.
    void addPluginFolder(const QString& folder);
    // For plug-ins linked into the host or its tests.
    void addPluginInstance(IPlugin* plugin, const QJsonObject& metaData);

    // initialize and start, in dependency order; returns the started plug-ins' names.
    QStringList loadPlugins(const QSharedPointer<CPluginManager>& self);
    // aboutToUninitialize, uninitialize and delete, in reverse order.
    void unloadPlugins(const QSharedPointer<CPluginManager>& self);

    QList<SPluginSpec> pluginSpecs() const;
    QList<IPlugin*> plugins() const;
    QStringList errors() const;

signals:
    void pluginsChanged();

private:
    struct SEntry;
    mutable QReadWriteLock m_servicesLock;
    QList<Core::Service::ServicePtr> m_services;
    std::vector<std::unique_ptr<SEntry>> m_entries;
    QList<SEntry*> m_started;
    QStringList m_errors;
};

using PluginManagerPtr = QSharedPointer<CPluginManager>;

} // namespace Core::Plugin
