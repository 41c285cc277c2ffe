#include "CViewerOptions.h"

#include <gtest/gtest.h>

using namespace Viewer;

TEST(ViewerOptions, pluginFolderByTable)
{
    struct SCase
    {
        const char* scenario;
        QStringList arguments;
        QString environmentFolder;
        QString expected;
    };
    const SCase cases[] = {
        {"default is the plugins folder beside the binary", {"zenta-viewer"}, "", "/opt/zenta/bin/plugins"},
        {"environment variable overrides the default", {"zenta-viewer"}, "/env/plugins", "/env/plugins"},
        {"flag overrides the environment", {"zenta-viewer", "--plugin-dir", "/flag/plugins"}, "/env/plugins",
         "/flag/plugins"},
        {"flag in its = form", {"zenta-viewer", "--plugin-dir=/flag/plugins"}, "", "/flag/plugins"},
    };
    for (const SCase& row : cases) {
        QProcessEnvironment environment;
        if (!row.environmentFolder.isEmpty())
            environment.insert("ZENTA_PLUGIN_DIR", row.environmentFolder);
        const SViewerOptions options = SViewerOptions::parse(row.arguments, environment, "/opt/zenta/bin");
        EXPECT_TRUE(options.error.isEmpty()) << row.scenario;
        EXPECT_EQ(options.pluginDir, row.expected) << row.scenario;
    }
}

TEST(ViewerOptions, screenshotAndOpenFlags)
{
    const SViewerOptions options = SViewerOptions::parse(
        {"zenta-viewer", "--open-bandwidth-manager", "--screenshot", "/tmp/s.png", "--screenshot-delay", "750"}, {},
        "/bin");
    EXPECT_TRUE(options.openBandwidthManager);
    EXPECT_EQ(options.screenshotFile, QStringLiteral("/tmp/s.png"));
    EXPECT_EQ(options.screenshotDelayMs, 750);

    EXPECT_FALSE(SViewerOptions::parse({"zenta-viewer", "--screenshot-delay", "soon"}, {}, "/bin").error.isEmpty());
    EXPECT_FALSE(SViewerOptions::parse({"zenta-viewer", "--no-such-flag"}, {}, "/bin").error.isEmpty());
}
