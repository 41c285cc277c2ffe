#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace Viewer {

struct SViewerOptions
{
    QString pluginDir;
    bool openBandwidthManager = false;
    QString screenshotFile;
    int screenshotDelayMs = 3000;
    // For this run only; empty keeps the saved choice.
    QString language;
    // Starts grabbing the camera of this key, or whose key or name contains it, once it is listed.
    QString grabCamera;
    QString error;

    // The plug-in folder: --plugin-dir, else ZENTA_PLUGIN_DIR, else "plugins" beside the binary.
    static SViewerOptions parse(const QStringList& arguments, const QProcessEnvironment& environment,
                                const QString& applicationDir);
};

} // namespace Viewer
