#include <Core/Plugin/ALocalizedPlugin.h>

#include <QCoreApplication>
#include <QTranslator>

namespace Core::Plugin {

ALocalizedPlugin::~ALocalizedPlugin()
{
    if (m_translator) {
        QCoreApplication::removeTranslator(m_translator);
        delete m_translator;
    }
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
