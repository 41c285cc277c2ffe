#pragma once

#include <Core/Logging/Logging.h>
#include <Core/Plugin/ALocalizedPlugin.h>

// Logs every call the host makes, so that a test can read the order back.
class CRecordingPlugin : public Core::Plugin::ALocalizedPlugin
{
public:
    explicit CRecordingPlugin(const char* name) : m_name(QString::fromLatin1(name)) {}

    bool initialize(const Core::Plugin::PluginManagerWeakPtr& manager) override
    {
        record(manager ? "initialize" : "initialize without manager");
        return true;
    }
    bool start() override
    {
        record("start");
        return true;
    }
    Core::Plugin::UninitializeMode aboutToUninitialize() override
    {
        record("aboutToUninitialize");
        return Core::Plugin::UninitializeMode::Synchronous;
    }
    bool uninitialize(const Core::Plugin::PluginManagerWeakPtr&) override
    {
        record("uninitialize");
        return true;
    }

private:
    void record(const char* call)
    {
        static const quint64 category = Core::Logging::getCatId("tests.recordingPlugin");
        Core::Logging::createLogEntry(Core::Logging::LogLevelInfo, category,
                                      m_name + QLatin1Char(' ') + QLatin1String(call));
    }

    QString m_name;
};
