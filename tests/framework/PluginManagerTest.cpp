#include "plugins/CRecordingPlugin.h"

#include <Core/Logging/CLogCapture.h>
#include <Core/Plugin/CPluginManager.h>
#include <Core/Plugin/ServiceLookup.h>
#include <Plugin/ZentaViewer/IDeviceStateService.h>
#include <Plugin/MessageLogCore/IMessageLogService.h>

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>

using namespace Core::Plugin;

namespace {

QStringList recordedCalls(const Core::Logging::CLogCapture& capture)
{
    QStringList calls;
    const QList<Core::Logging::SLogEntry> entries = capture.entries();
    for (const Core::Logging::SLogEntry& entry : entries) {
        if (entry.categoryName == QLatin1String("tests.recordingPlugin"))
            calls.append(entry.text);
    }
    return calls;
}

class CFailingPlugin : public CRecordingPlugin
{
public:
    using CRecordingPlugin::CRecordingPlugin;
    bool initialize(const PluginManagerWeakPtr&) override { return false; }
};

// "Name:Version:CompatVersion>Dependency@Version,Other@Version?" where a
// trailing "?" marks an optional dependency and a leading "!" a plug-in
// whose initialize fails.
void addPlugin(CPluginManager& manager, QString description)
{
    const bool failing = description.startsWith(QLatin1Char('!'));
    if (failing)
        description.remove(0, 1);
    const QStringList parts = description.split(QLatin1Char('>'));
    const QStringList head = parts.first().split(QLatin1Char(':'));
    QJsonObject metaData{{"Name", head.value(0)}, {"Version", head.value(1)}};
    if (head.size() > 2)
        metaData.insert("CompatVersion", head.value(2));
    QJsonArray dependencies;
    for (QString dependency : parts.value(1).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        QJsonObject entry;
        if (dependency.endsWith(QLatin1Char('?'))) {
            dependency.chop(1);
            entry.insert("Type", "optional");
        }
        entry.insert("Name", dependency.section(QLatin1Char('@'), 0, 0));
        entry.insert("Version", dependency.section(QLatin1Char('@'), 1, 1));
        dependencies.append(entry);
    }
    metaData.insert("Dependencies", dependencies);
    const QByteArray name = head.value(0).toLatin1();
    IPlugin* plugin = failing ? new CFailingPlugin(name.constData()) : new CRecordingPlugin(name.constData());
    manager.addPluginInstance(plugin, metaData);
}

struct SResolutionCase
{
    const char* scenario;
    QStringList plugins;
    QStringList started;
    QStringList refused;
};

} // namespace

TEST(PluginManager, resolvesDependenciesByTable)
{
    const SResolutionCase cases[] = {
        {"dependency listed after its dependant starts first",
         {"Viewer:1.0.0>Core@2.0.0", "Core:2.0.0"}, {"Core", "Viewer"}, {}},
        {"missing required dependency is refused", {"Viewer:1.0.0>Core@2.0.0"}, {}, {"Viewer"}},
        {"missing optional dependency is no failure", {"Viewer:1.0.0>Assistant@2.0.0?"}, {"Viewer"}, {}},
        {"version inside the compat range is accepted",
         {"Core:2.5.0:2.0.0", "Viewer:1.0.0>Core@2.1.0"}, {"Core", "Viewer"}, {}},
        {"version newer than the dependency is refused",
         {"Core:2.0.0", "Viewer:1.0.0>Core@3.0.0"}, {"Core"}, {"Viewer"}},
        {"version older than the compat version is refused",
         {"Core:2.5.0:2.2.0", "Viewer:1.0.0>Core@2.1.0"}, {"Core"}, {"Viewer"}},
        {"refusal spreads to dependants",
         {"Top:1.0>Middle@1.0", "Middle:1.0>Gone@1.0"}, {}, {"Middle", "Top"}},
        {"a failed initialise refuses the dependants",
         {"!Core:1.0", "Viewer:1.0>Core@1.0", "Tool:1.0>Core@1.0?"}, {"Tool"}, {"Core", "Viewer"}},
        {"a cycle refuses both", {"A:1.0>B@1.0", "B:1.0>A@1.0", "C:1.0"}, {"C"}, {"A", "B"}},
        {"a second plug-in of a name is refused", {"Core:1.0", "Core:2.0"}, {"Core"}, {"Core"}},
    };
    Core::Logging::setStderrEnabled(false);
    for (const SResolutionCase& row : cases) {
        SCOPED_TRACE(row.scenario);
        auto manager = QSharedPointer<CPluginManager>::create();
        for (const QString& plugin : row.plugins)
            addPlugin(*manager, plugin);
        Core::Logging::CLogCapture capture;
        EXPECT_EQ(manager->loadPlugins(manager), row.started);
        QStringList refused;
        for (const SPluginSpec& pluginSpec : manager->pluginSpecs()) {
            if (!pluginSpec.errorString.isEmpty())
                refused.append(pluginSpec.name);
        }
        refused.sort();
        EXPECT_EQ(refused, row.refused);
        EXPECT_EQ(manager->errors().size(), row.refused.size());
        for (const QString& name : row.refused)
            EXPECT_TRUE(capture.contains(QStringLiteral("Plug-in \"%1\" was not loaded").arg(name)));
        manager->unloadPlugins(manager);
    }
    Core::Logging::setStderrEnabled(true);
}

TEST(PluginManager, loadsFolderInDependencyOrderAndUnloadsInReverse)
{
    Core::Logging::setStderrEnabled(false);
    auto manager = QSharedPointer<CPluginManager>::create();
    Core::Logging::CLogCapture capture;
    manager->addPluginFolder(QStringLiteral(BWM_TEST_PLUGIN_DIR));
    ASSERT_EQ(manager->pluginSpecs().size(), 3);

    EXPECT_EQ(manager->loadPlugins(manager), QStringList({"Alpha", "Beta"}));
    EXPECT_TRUE(capture.contains(
        QStringLiteral("Plug-in \"Orphan\" was not loaded: its required dependency \"Nowhere\" 1.0.0 is missing")));
    const QList<IPlugin*> plugins = manager->plugins();
    ASSERT_EQ(plugins.size(), 2);
    auto* alpha = qobject_cast<ALocalizedPlugin*>(plugins.first());
    ASSERT_NE(alpha, nullptr);
    EXPECT_EQ(alpha->catalogName(), QStringLiteral("Alpha"));

    manager->unloadPlugins(manager);
    Core::Logging::setStderrEnabled(true);
    EXPECT_EQ(recordedCalls(capture),
              QStringList({"Alpha initialize", "Beta initialize", "Alpha start", "Beta start",
                           "Beta aboutToUninitialize", "Alpha aboutToUninitialize", "Beta uninitialize",
                           "Alpha uninitialize"}));
    EXPECT_TRUE(manager->plugins().isEmpty());
}

namespace {

class CStateService : public Plugin::ZentaViewer::IDeviceStateService
{
public:
    explicit CStateService(quint64 handle) : m_handle(handle) {}
    void restoreDeviceState(quint64) override {}
    quint64 saveDeviceState() override { return m_handle; }

private:
    quint64 m_handle;
};

class CLogService : public Plugin::MessageLogCore::IMessageLogService
{
public:
    void addMessage(int, const QString&, const QString&, const QDateTime&) override {}
};

} // namespace

TEST(PluginManager, typedLookupGivesFirstServiceThatCasts)
{
    auto manager = QSharedPointer<CPluginManager>::create();
    manager->addService(Core::Service::ServicePtr(new CLogService));
    manager->addService(Core::Service::ServicePtr(new CStateService(1)));
    manager->addService(Core::Service::ServicePtr(new CStateService(2)));

    const auto state = getService<Plugin::ZentaViewer::IDeviceStateService>(manager);
    ASSERT_TRUE(state);
    EXPECT_EQ(state->saveDeviceState(), 1u);
    EXPECT_TRUE(getService<Plugin::MessageLogCore::IMessageLogService>(manager));

    manager->removeService(state);
    EXPECT_EQ(getService<Plugin::ZentaViewer::IDeviceStateService>(manager)->saveDeviceState(), 2u);

    PluginManagerWeakPtr gone;
    {
        auto shortLived = QSharedPointer<CPluginManager>::create();
        shortLived->addService(Core::Service::ServicePtr(new CLogService));
        gone = shortLived;
    }
    EXPECT_FALSE(getService<Plugin::MessageLogCore::IMessageLogService>(gone));
    EXPECT_FALSE(getService<Plugin::MessageLogCore::IMessageLogService>(PluginManagerWeakPtr()));
}
