#include <Core/Plugin/ALocalizedPlugin.h>

#include <QCoreApplication>
#include <QTranslator>

namespace Core::Plugin {

namespace {

QString& defaultLanguageValue()
{
    static QString language;
    return language;
}

} // namespace

ALocalizedPlugin::~ALocalizedPlugin()
{
    if (m_translator) {
        QCoreApplication::removeTranslator(m_translator);
        delete m_translator;
    }
}

void ALocalizedPlugin::setDefaultLanguage(const QString& language)
{
    defaultLanguageValue() = language;
}

QString ALocalizedPlugin::defaultLanguage()
{
    return defaultLanguageValue();
}

void ALocalizedPlugin::setCatalogName(const QString& name)
{
    m_catalogName = name;
    if (!defaultLanguageValue().isEmpty())
        setLanguage(defaultLanguageValue());
}

bool ALocalizedPlugin::setLanguage(const QString& language)
{
    if (m_catalogName.isEmpty())
        return false;
    auto* translator = new QTranslator(this);
    if (!translator->load(QStringLiteral(":/translation/%1_%2.qm").arg(m_catalogName, language))) {
        delete translator;
        return false;
    }
    if (m_translator) {
        QCoreApplication::removeTranslator(m_translator);
        delete m_translator;
    }
    m_translator = translator;
    QCoreApplication::installTranslator(m_translator);
    return true;
}

} // namespace Core::Plugin
