#include "plugins/CRecordingPlugin.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

namespace {

QString hello()
{
    return QCoreApplication::translate("LocalizedTest", "Hello");
}

QString onlyGerman()
{
    return QCoreApplication::translate("LocalizedTest", "Only German");
}

} // namespace

TEST(LocalizedPlugin, setLanguageReplacesTheInstalledCatalog)
{
    {
        CRecordingPlugin plugin("Localized");
        EXPECT_FALSE(plugin.setLanguage(QStringLiteral("de"))) << "no catalog name yet";
        plugin.setCatalogName(QStringLiteral("Localized"));

        ASSERT_TRUE(plugin.setLanguage(QStringLiteral("de")));
        EXPECT_EQ(hello(), QStringLiteral("Hallo"));
        EXPECT_EQ(onlyGerman(), QStringLiteral("Nur Deutsch"));

        ASSERT_TRUE(plugin.setLanguage(QStringLiteral("fr")));
        EXPECT_EQ(hello(), QStringLiteral("Bonjour"));
        EXPECT_EQ(onlyGerman(), QStringLiteral("Only German"));

        EXPECT_FALSE(plugin.setLanguage(QStringLiteral("ja")));
        EXPECT_EQ(hello(), QStringLiteral("Bonjour"));
    }
    EXPECT_EQ(hello(), QStringLiteral("Hello"));
}
