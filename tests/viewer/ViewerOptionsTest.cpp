#include "CViewerOptions.h"

#include <gtest/gtest.h>

using namespace Viewer;

TEST(ViewerOptions, parsedByTable)
{
    struct SCase
    {
        const char* scenario;
        QStringList arguments;
        QString environmentFolder;
        QString expected;   // "<plug-in folder> open=<0|1> shot=<file>@<ms> lang=<l> grab=<c>", or "error"
    };
    const QString defaults = " open=0 shot=@3000 lang= grab=";
    const SCase cases[] = {
        {"default is the plugins folder beside the binary", {}, "", "/opt/zenta/bin/plugins" + defaults},
        {"environment variable overrides the default", {}, "/env/plugins", "/env/plugins" + defaults},
        {"flag overrides the environment", {"--plugin-dir", "/flag/plugins"}, "/env/plugins", "/flag/plugins" + defaults},
        {"flag in its = form", {"--plugin-dir=/flag/plugins"}, "", "/flag/plugins" + defaults},
        {"screenshot, delay and open",
         {"--open-bandwidth-manager", "--screenshot", "/tmp/s.png", "--screenshot-delay", "750"}, "",
         "/opt/zenta/bin/plugins open=1 shot=/tmp/s.png@750 lang= grab="},
        {"language and camera", {"--language", "ja", "--grab", "EMU0001"}, "",
         "/opt/zenta/bin/plugins open=0 shot=@3000 lang=ja grab=EMU0001"},
        {"zero delay", {"--screenshot-delay", "0"}, "", "/opt/zenta/bin/plugins open=0 shot=@0 lang= grab="},
        {"delay not a number", {"--screenshot-delay", "soon"}, "", "error"},
        {"negative delay", {"--screenshot-delay=-5"}, "", "error"},
        {"unknown language", {"--language", "de"}, "", "error"},
        {"unknown flag", {"--no-such-flag"}, "", "error"},
    };
    for (const SCase& row : cases) {
        QProcessEnvironment environment;
        if (!row.environmentFolder.isEmpty())
            environment.insert("ZENTA_PLUGIN_DIR", row.environmentFolder);
        const SViewerOptions o = SViewerOptions::parse(QStringList{"zenta-viewer"} + row.arguments, environment,
                                                       "/opt/zenta/bin");
        const QString parsed = QStringLiteral("%1 open=%2 shot=%3@%4 lang=%5 grab=%6")
                                   .arg(o.pluginDir)
                                   .arg(int(o.openBandwidthManager))
                                   .arg(o.screenshotFile)
                                   .arg(o.screenshotDelayMs)
                                   .arg(o.language, o.grabCamera);
        EXPECT_EQ(o.error.isEmpty() ? parsed : QStringLiteral("error"), row.expected) << row.scenario;
    }
}
