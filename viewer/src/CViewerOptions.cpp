#include "CViewerOptions.h"

#include <QCommandLineParser>
#include <QDir>

namespace Viewer {

SViewerOptions SViewerOptions::parse(const QStringList& arguments, const QProcessEnvironment& environment,
                                     const QString& applicationDir)
{
    QCommandLineParser parser;
    const QCommandLineOption pluginDir("plugin-dir", "Folder to load plug-ins from.", "DIR");
    const QCommandLineOption open("open-bandwidth-manager", "Open the Bandwidth Manager after start.");
    const QCommandLineOption screenshot("screenshot", "Save a PNG of all windows, then quit.", "FILE");
    const QCommandLineOption delay("screenshot-delay", "Milliseconds before the screenshot.", "MS", "3000");
    const QCommandLineOption language("language", "Language for this run: en, ja, ko or zh.", "LANG");
    const QCommandLineOption grab("grab", "Start grabbing this camera (a key, or part of a key or serial number) once it is listed.", "CAMERA");
    parser.addOptions({pluginDir, open, screenshot, delay, language, grab});
    parser.addHelpOption();

    SViewerOptions options;
    if (!parser.parse(arguments)) {
        options.error = parser.errorText();
        return options;
    }
    if (parser.isSet(pluginDir))
        options.pluginDir = parser.value(pluginDir);
    else if (!environment.value(QStringLiteral("ZENTA_PLUGIN_DIR")).isEmpty())
        options.pluginDir = environment.value(QStringLiteral("ZENTA_PLUGIN_DIR"));
    else
        options.pluginDir = QDir(applicationDir).filePath(QStringLiteral("plugins"));
    options.openBandwidthManager = parser.isSet(open);
    options.screenshotFile = parser.value(screenshot);
    bool ok = false;
    options.screenshotDelayMs = parser.value(delay).toInt(&ok);
    if (!ok || options.screenshotDelayMs < 0)
        options.error = QStringLiteral("--screenshot-delay takes a number of milliseconds");
    options.grabCamera = parser.value(grab);
    options.language = parser.value(language);
    if (!options.language.isEmpty() && !QStringList{"en", "ja", "ko", "zh"}.contains(options.language))
        options.error = QStringLiteral("--language takes en, ja, ko or zh");
    if (parser.isSet(QStringLiteral("help")))
        options.error = parser.helpText();
    return options;
}

} // namespace Viewer
