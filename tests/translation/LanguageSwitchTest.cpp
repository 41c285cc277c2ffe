// The viewer with the built Bandwidth Manager module, switched between
// languages through its Language menu while the dialog is open.
#include "CDeviceSelectorService.h"
#include "CDeviceStateService.h"
#include "CHostComponentPlugin.h"
#include "CLanguageSelector.h"
#include "CMainWindow.h"
#include "CMenuService.h"
#include "CMessageLogService.h"
#include "CProblemAssistantService.h"

#include <host/fakes/CModalResponder.h>

#include <Core/Plugin/ALocalizedPlugin.h>
#include <Core/Plugin/CPluginManager.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QImage>
#include <QProcess>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QTreeWidget>

#include <memory>
#include <ostream>

// Readable failures: gtest finds this next to QString.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE

namespace {

using ::testing::ElementsAre;

struct SDialogTexts
{
    QString title;
    QStringList buttons;
    QStringList headers;
};

SDialogTexts dialogTexts(QWidget* dialog)
{
    SDialogTexts texts;
    texts.title = dialog->windowTitle();
    for (const char* name : {"btnReset", "btnStart", "btnStop", "btnClose"}) {
        auto* button = dialog->findChild<QPushButton*>(QLatin1String(name));
        texts.buttons.append(button ? button->text() : QStringLiteral("<no %1>").arg(QLatin1String(name)));
    }
    if (auto* tree = dialog->findChild<QTreeWidget*>()) {
        for (int column = 0; column < tree->columnCount(); ++column)
            texts.headers.append(tree->headerItem()->text(column));
    }
    return texts;
}

class ViewerLanguages : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QSettings().remove(QStringLiteral("Viewer/Language"));
        m_menus = QSharedPointer<Viewer::CMenuService>::create();
        m_log = QSharedPointer<Viewer::CMessageLogService>::create();
        m_selector = QSharedPointer<Viewer::CDeviceSelectorService>::create();
        m_assistant = QSharedPointer<Viewer::CProblemAssistantService>::create();
        for (const Core::Service::ServicePtr& service : QList<Core::Service::ServicePtr>{
                 m_menus, m_log, m_selector, m_assistant,
                 QSharedPointer<Viewer::CDeviceStateService>::create(m_manager.toWeakRef())})
            m_manager->addService(service);
        m_languages = std::make_unique<Viewer::CLanguageSelector>(m_manager.toWeakRef());
        m_window = std::make_unique<Viewer::CMainWindow>(m_menus.data(), m_log.data(), m_selector.data(),
                                                         m_assistant.data());
        m_window->addLanguageMenu(m_languages.get());
        Viewer::CHostComponentPlugin::addHostComponents(*m_manager);
        m_manager->addPluginFolder(QStringLiteral(BWM_BINARY_DIR "/bin/plugins"));
    }

    void TearDown() override
    {
        m_manager->unloadPlugins(m_manager);
        m_window.reset();
        m_languages.reset();
        Core::Plugin::ALocalizedPlugin::setDefaultLanguage(QString());
    }

    void loadPlugins()
    {
        ASSERT_TRUE(m_manager->loadPlugins(m_manager).contains(QStringLiteral("BandwidthManager")))
            << m_manager->errors().join(QLatin1Char('\n')).toStdString();
    }

    // Through the menu, as the user does; the windows see the change once their events ran.
    void chooseLanguage(const QString& language)
    {
        QAction* action = m_window->findChild<QAction*>(QStringLiteral("Language.") + language);
        ASSERT_NE(action, nullptr) << language.toStdString();
        action->trigger();
        QCoreApplication::processEvents();
    }

    QAction* bandwidthManagerEntry() const
    {
        Plugin::AppCore::ICommand* command = m_menus->command("BandwidthManager.Start");
        return command ? command->action() : nullptr;
    }

    QStringList menuTitles() const
    {
        QStringList titles;
        for (const QAction* action : m_window->menuBar()->actions())
            titles.append(action->text());
        return titles;
    }

    Core::Plugin::PluginManagerPtr m_manager = Core::Plugin::PluginManagerPtr::create();
    QSharedPointer<Viewer::CMenuService> m_menus;
    QSharedPointer<Viewer::CMessageLogService> m_log;
    QSharedPointer<Viewer::CDeviceSelectorService> m_selector;
    QSharedPointer<Viewer::CProblemAssistantService> m_assistant;
    std::unique_ptr<Viewer::CLanguageSelector> m_languages;
    std::unique_ptr<Viewer::CMainWindow> m_window;
};

TEST_F(ViewerLanguages, OpenDialogFollowsTheLanguageMenu)
{
    loadPlugins();
    chooseLanguage(QStringLiteral("ja"));
    EXPECT_THAT(menuTitles(), ElementsAre("ファイル(&F)", "表示(&V)", "ツール(&T)", "言語(&L)", "ヘルプ(&H)"));
    QAction* entry = bandwidthManagerEntry();
    ASSERT_NE(entry, nullptr);

    SDialogTexts japanese;
    SDialogTexts english;
    HostFakes::CModalResponder responder;
    responder.expect([&](QWidget* dialog) {
        japanese = dialogTexts(dialog);
        chooseLanguage(QStringLiteral("en"));
        english = dialogTexts(dialog);
        HostFakes::CModalResponder::closeWindow()(dialog);
    });
    entry->trigger();
    ASSERT_EQ(responder.seen(), QStringList{"BandwidthDialog"});

    EXPECT_EQ(japanese.title, QStringLiteral("帯域幅マネージャー"));
    EXPECT_THAT(japanese.buttons, ElementsAre("統計をリセット(&R)", "解析を開始(&S)", "解析を停止(&T)", "閉じる"));
    EXPECT_THAT(japanese.headers, ElementsAre("カメラ", "帯域幅 (MB/s)", "", "受信ペイロード (MB/s)", "送信 fps",
                                              "受信 fps", "画像数", "エラー数"));

    EXPECT_EQ(english.title, QStringLiteral("Bandwidth Manager"));
    EXPECT_THAT(english.buttons, ElementsAre("&Reset Statistics", "&Start Analysis", "S&top Analysis", "Close"));
    EXPECT_THAT(english.headers, ElementsAre("Camera", "Bandwidth (MB/s)", "", "Payload Received (MB/s)", "fps Sent",
                                             "fps Received", "Images", "Errors"));
    EXPECT_THAT(menuTitles(), ElementsAre("&File", "&View", "&Tools", "&Language", "&Help"));
}

TEST_F(ViewerLanguages, ChoiceIsSavedAndReachesPluginsLoadedAfterIt)
{
    chooseLanguage(QStringLiteral("ko"));
    EXPECT_EQ(Viewer::CLanguageSelector::savedLanguage(), QStringLiteral("ko"));
    loadPlugins();
    QAction* entry = bandwidthManagerEntry();
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->text(), QStringLiteral("대역폭 관리자"));
    EXPECT_EQ(QCoreApplication::translate("BandwidthTreeWidget", "Camera"), QStringLiteral("카메라"));

    chooseLanguage(QStringLiteral("zh"));
    EXPECT_EQ(QCoreApplication::translate("BandwidthTreeWidget", "Camera"), QStringLiteral("相机"));
    EXPECT_EQ(menuTitles().value(0), QStringLiteral("文件(&F)"));
    EXPECT_TRUE(m_window->findChild<QAction*>(QStringLiteral("Language.zh"))->isChecked());
    EXPECT_FALSE(m_languages->setLanguage(QStringLiteral("xx")));
    EXPECT_EQ(Viewer::CLanguageSelector::savedLanguage(), QStringLiteral("zh"));
}

// The viewer under Xvfb with the dialog in Japanese, kept as a build artifact.
TEST(JapaneseScreenshot, ViewerRendersTheDialogInJapanese)
{
    ASSERT_FALSE(QFontDatabase().families(QFontDatabase::Japanese).isEmpty()) << "no font covers Japanese";
    const QString xvfbRun = QStandardPaths::findExecutable(QStringLiteral("xvfb-run"));
    if (xvfbRun.isEmpty())
        GTEST_SKIP() << "xvfb-run is not installed";

    const QString file = QStringLiteral(BWM_BINARY_DIR "/artifacts/screenshots/dialog-ja.png");
    QDir().mkpath(QStringLiteral(BWM_BINARY_DIR "/artifacts/screenshots"));
    QFile::remove(file);
    QProcess viewer;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    viewer.setProcessEnvironment(environment);
    viewer.setProcessChannelMode(QProcess::MergedChannels);
    viewer.start(xvfbRun, {QStringLiteral("-a"), QStringLiteral("-s"), QStringLiteral("-screen 0 1600x1000x24"),
                           QStringLiteral(BWM_BINARY_DIR "/bin/zenta-viewer"), QStringLiteral("--language"),
                           QStringLiteral("ja"), QStringLiteral("--open-bandwidth-manager"), QStringLiteral("--screenshot"),
                           file, QStringLiteral("--screenshot-delay"), QStringLiteral("2500")});
    ASSERT_TRUE(viewer.waitForStarted(10000));
    if (!viewer.waitForFinished(60000)) {
        viewer.kill();
        viewer.waitForFinished();
        FAIL() << "the viewer did not quit after its screenshot";
    }
    const QByteArray output = viewer.readAll();
    ASSERT_EQ(viewer.exitCode(), 0) << output.toStdString();
    const QImage image(file);
    ASSERT_FALSE(image.isNull()) << output.toStdString();
    EXPECT_GE(image.width(), 960);
    EXPECT_GE(image.height(), 540);
    const QSettings viewerSettings(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/Zenta/zenta-viewer.conf"),
                                   QSettings::IniFormat);
    EXPECT_TRUE(viewerSettings.value(QStringLiteral("Viewer/Language")).isNull())
        << "--language is for one run and is not saved";
}

} // namespace

int main(int argc, char** argv)
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("BandwidthManagerTests"));
    QCoreApplication::setApplicationName(QStringLiteral("translation_tests"));
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
