#include <Core/Plugin/CPluginManager.h>

#include <Core/Logging/Logging.h>
#include <Core/Plugin/ALocalizedPlugin.h>

#include <QDir>
#include <QLibrary>
#include <QPluginLoader>
#include <QPointer>
#include <QVersionNumber>

#include <functional>

namespace Core::Plugin {

namespace {

quint64 logCategory()
{
    static const quint64 id = Core::Logging::getCatId("zenta.core.pluginManager");
    return id;
}

bool versionFits(const SPluginSpec& candidate, const QString& wanted)
{
    if (wanted.isEmpty())
        return true;
    const QVersionNumber version = QVersionNumber::fromString(wanted);
    return QVersionNumber::fromString(candidate.compatVersion) <= version
           && version <= QVersionNumber::fromString(candidate.version);
}

} // namespace

struct CPluginManager::SEntry
{
    enum EState
    {
        Read,
        Resolving,
        Resolved,
        Refused,
        Initialized,
        Started,
        Stopped,
    };

    SPluginSpec pluginSpec;
    std::unique_ptr<QPluginLoader> loader;
    QPointer<IPlugin> plugin;
    EState state = Read;
};

CPluginManager::CPluginManager(QObject* parent) : QObject(parent) {}

CPluginManager::~CPluginManager()
{
    // Without the shared pointer of its owner there is no manager to hand
    // over any more; the plug-ins still get their calls, with an empty one.
    for (auto it = m_started.crbegin(); it != m_started.crend(); ++it) {
        if ((*it)->plugin)
            (*it)->plugin->aboutToUninitialize();
    }
    for (auto it = m_started.crbegin(); it != m_started.crend(); ++it) {
        if ((*it)->plugin) {
            (*it)->plugin->uninitialize({});
            delete (*it)->plugin.data();
        }
    }
    // Instances handed in that never started are still ours.
    for (const auto& entry : m_entries)
        delete entry->plugin.data();
}

void CPluginManager::addService(const Core::Service::ServicePtr& service)
{
    if (!service)
        return;
    QWriteLocker lock(&m_servicesLock);
    if (!m_services.contains(service))
        m_services.append(service);
}

void CPluginManager::removeService(const Core::Service::ServicePtr& service)
{
    QWriteLocker lock(&m_servicesLock);
    m_services.removeAll(service);
}

void CPluginManager::services(QList<Core::Service::ServicePtr>& out) const
{
    QReadLocker lock(&m_servicesLock);
    out = m_services;
}

QReadWriteLock* CPluginManager::servicesLock() const
{
    return &m_servicesLock;
}

void CPluginManager::addPluginFolder(const QString& folder)
{
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& file : files) {
        if (!QLibrary::isLibrary(file.fileName()))
            continue;
        auto loader = std::make_unique<QPluginLoader>(file.absoluteFilePath());
        const QJsonObject metaData = loader->metaData();
        if (metaData.value(QLatin1String("IID")).toString() != QLatin1String(ZENTA_PLUGIN_IID)) {
            Core::Logging::createLogEntry(Core::Logging::LogLevelInfo, logCategory(),
                                          QStringLiteral("%1 is no plug-in of this host, skipped").arg(file.fileName()));
            continue;
        }
        auto entry = std::make_unique<SEntry>();
        entry->pluginSpec = SPluginSpec::fromMetaData(metaData, file.absoluteFilePath());
        entry->loader = std::move(loader);
        m_entries.push_back(std::move(entry));
    }
}

void CPluginManager::addPluginInstance(IPlugin* plugin, const QJsonObject& metaData)
{
    if (!plugin)
        return;
    auto entry = std::make_unique<SEntry>();
    entry->pluginSpec = SPluginSpec::fromMetaData(metaData, QString());
    entry->plugin = plugin;
    m_entries.push_back(std::move(entry));
}

QStringList CPluginManager::loadPlugins(const QSharedPointer<CPluginManager>& self)
{
    auto refuse = [this](SEntry* entry, const QString& reason) {
        entry->state = SEntry::Refused;
        entry->pluginSpec.errorString = reason;
        const QString text = QStringLiteral("Plug-in \"%1\" was not loaded: %2")
                                 .arg(entry->pluginSpec.name.isEmpty() ? entry->pluginSpec.fileName : entry->pluginSpec.name, reason);
        m_errors.append(text);
        Core::Logging::createLogEntry(Core::Logging::LogLevelError, logCategory(), text);
    };
    auto find = [this](const QString& name) -> SEntry* {
        for (const auto& entry : m_entries) {
            if (entry->pluginSpec.name == name)
                return entry.get();
        }
        return nullptr;
    };

    // Names are unique; a later library of the same name loses.
    for (const auto& entry : m_entries) {
        if (entry->state != SEntry::Read)
            continue;
        if (!entry->pluginSpec.errorString.isEmpty())
            refuse(entry.get(), entry->pluginSpec.errorString);
        else if (find(entry->pluginSpec.name) != entry.get())
            refuse(entry.get(), QStringLiteral("another plug-in of that name is loaded already"));
    }

    std::vector<SEntry*> order;
    std::function<bool(SEntry*)> resolve = [&](SEntry* entry) -> bool {
        switch (entry->state) {
        case SEntry::Read:
            break;
        case SEntry::Resolving:
            return false;
        case SEntry::Refused:
        case SEntry::Stopped:
            return false;
        default:
            return true;
        }
        entry->state = SEntry::Resolving;
        for (const SPluginDependency& dependency : qAsConst(entry->pluginSpec.dependencies)) {
            SEntry* target = find(dependency.name);
            const bool present = target && versionFits(target->pluginSpec, dependency.version);
            if (!present) {
                if (dependency.optional)
                    continue;
                refuse(entry, target ? QStringLiteral("its required dependency \"%1\" %2 is there only as %3")
                                           .arg(dependency.name, dependency.version, target->pluginSpec.version)
                                     : QStringLiteral("its required dependency \"%1\" %2 is missing")
                                           .arg(dependency.name, dependency.version));
                return false;
            }
            if (target->state == SEntry::Resolving) {
                refuse(entry, QStringLiteral("its dependencies form a cycle through \"%1\"").arg(dependency.name));
                return false;
            }
            if (!resolve(target) && !dependency.optional) {
                if (entry->state != SEntry::Refused)
                    refuse(entry, QStringLiteral("its required dependency \"%1\" was not loaded").arg(dependency.name));
                return false;
            }
        }
        entry->state = SEntry::Resolved;
        order.push_back(entry);
        return true;
    };
    for (const auto& entry : m_entries)
        resolve(entry.get());

    std::vector<SEntry*> initialized;
    for (SEntry* entry : order) {
        // A dependency may have failed after resolving, when loading or initialising.
        bool dependenciesUp = true;
        for (const SPluginDependency& dependency : qAsConst(entry->pluginSpec.dependencies)) {
            const SEntry* target = find(dependency.name);
            if (!dependency.optional && target && target->state != SEntry::Initialized
                && target->state != SEntry::Started) {
                refuse(entry, QStringLiteral("its required dependency \"%1\" was not loaded").arg(dependency.name));
                dependenciesUp = false;
                break;
            }
        }
        if (!dependenciesUp)
            continue;
        if (!entry->plugin && entry->loader) {
            QObject* instance = entry->loader->instance();
            entry->plugin = qobject_cast<IPlugin*>(instance);
            if (!entry->plugin) {
                refuse(entry, instance ? QStringLiteral("the library's object is no plug-in")
                                       : entry->loader->errorString());
                continue;
            }
        }
        if (auto* localized = qobject_cast<ALocalizedPlugin*>(entry->plugin.data()))
            localized->setCatalogName(entry->pluginSpec.name);
        if (!entry->plugin->initialize(self.toWeakRef())) {
            refuse(entry, QStringLiteral("it failed to initialise"));
            delete entry->plugin.data();
            continue;
        }
        entry->state = SEntry::Initialized;
        initialized.push_back(entry);
    }

    QStringList names;
    for (SEntry* entry : initialized) {
        if (!entry->plugin->start()) {
            const QString text = QStringLiteral("Plug-in \"%1\" reported a failed start").arg(entry->pluginSpec.name);
            m_errors.append(text);
            Core::Logging::createLogEntry(Core::Logging::LogLevelError, logCategory(), text);
        }
        entry->state = SEntry::Started;
        m_started.append(entry);
        names.append(entry->pluginSpec.name);
    }
    emit pluginsChanged();
    return names;
}

void CPluginManager::unloadPlugins(const QSharedPointer<CPluginManager>& self)
{
    const QList<SEntry*> started = m_started;
    m_started.clear();
    for (auto it = started.crbegin(); it != started.crend(); ++it) {
        if ((*it)->plugin)
            (*it)->plugin->aboutToUninitialize();
    }
    for (auto it = started.crbegin(); it != started.crend(); ++it) {
        if ((*it)->plugin)
            (*it)->plugin->uninitialize(self.toWeakRef());
    }
    // The libraries stay mapped on purpose: objects they made, such as
    // solutions handed to a service, may outlive the plug-in object.
    for (auto it = started.crbegin(); it != started.crend(); ++it) {
        delete (*it)->plugin.data();
        (*it)->state = SEntry::Stopped;
    }
    emit pluginsChanged();
}

QList<SPluginSpec> CPluginManager::pluginSpecs() const
{
    QList<SPluginSpec> result;
    for (const auto& entry : m_entries)
        result.append(entry->pluginSpec);
    return result;
}

QList<IPlugin*> CPluginManager::plugins() const
{
    QList<IPlugin*> result;
    for (const SEntry* entry : m_started) {
        if (entry->plugin)
            result.append(entry->plugin.data());
    }
    return result;
}

QStringList CPluginManager::errors() const
{
    return m_errors;
}

} // namespace Core::Plugin
