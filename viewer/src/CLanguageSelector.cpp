#include "CLanguageSelector.h"

#include <Core/Plugin/ALocalizedPlugin.h>

#include <QCoreApplication>
#include <QLocale>
#include <QSettings>

namespace Viewer {

namespace {

const char SettingsKey[] = "Viewer/Language";

} // namespace

CLanguageSelector::CLanguageSelector(const QWeakPointer<Core::Plugin::CPluginManager>& manager, QObject* parent)
    : QObject(parent), m_manager(manager)
{
}

CLanguageSelector::~CLanguageSelector()
{
    if (m_translator)
        QCoreApplication::removeTranslator(m_translator);
}

QStringList CLanguageSelector::languages()
{
    return {QStringLiteral("en"), QStringLiteral("ja"), QStringLiteral("ko"), QStringLiteral("zh")};
}

QString CLanguageSelector::nativeName(const QString& language)
{
    if (language == QLatin1String("ja"))
        return QStringLiteral("日本語");
    if (language == QLatin1String("ko"))
        return QStringLiteral("한국어");
    if (language == QLatin1String("zh"))
        return QStringLiteral("中文");
    return QStringLiteral("English");
}

QString CLanguageSelector::savedLanguage()
{
    const QString saved = QSettings().value(QLatin1String(SettingsKey)).toString();
    if (languages().contains(saved))
        return saved;
    const QString system = QLocale().name().section(QLatin1Char('_'), 0, 0);
    return languages().contains(system) ? system : QStringLiteral("en");
}

bool CLanguageSelector::setLanguage(const QString& language)
{
    if (!applyLanguage(language))
        return false;
    QSettings().setValue(QLatin1String(SettingsKey), language);
    return true;
}

bool CLanguageSelector::applyLanguage(const QString& language)
{
    if (!languages().contains(language))
        return false;
    auto* translator = new QTranslator(this);
    if (!translator->load(QStringLiteral(":/zentaviewer/translation/zentaviewer_%1.qm").arg(language))) {
        delete translator;
        return false;
    }
    if (m_translator) {
        QCoreApplication::removeTranslator(m_translator);
        delete m_translator;
    }
    m_translator = translator;
    QCoreApplication::installTranslator(m_translator);

    // Plug-ins loaded later take it when the manager names their catalog.
    Core::Plugin::ALocalizedPlugin::setDefaultLanguage(language);
    if (const auto manager = m_manager.toStrongRef()) {
        for (Core::Plugin::IPlugin* plugin : manager->plugins()) {
            if (auto* localized = qobject_cast<Core::Plugin::ALocalizedPlugin*>(plugin)) {
                if (!localized->setLanguage(language))
                    localized->setLanguage(QStringLiteral("en"));
            }
        }
    }
    const bool changed = m_language != language;
    m_language = language;
    if (changed)
        emit languageChanged(language);
    return true;
}

} // namespace Viewer
