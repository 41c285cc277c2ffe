#pragma once

#include <Core/Plugin/CPluginManager.h>

#include <QObject>
#include <QStringList>
#include <QTranslator>
#include <QWeakPointer>

namespace Viewer {

// The user's language, for the viewer's own texts and for every localized
// plug-in the manager holds. The choice is kept in the settings.
class CLanguageSelector : public QObject
{
    Q_OBJECT
public:
    explicit CLanguageSelector(const QWeakPointer<Core::Plugin::CPluginManager>& manager, QObject* parent = nullptr);
    ~CLanguageSelector() override;

    static QStringList languages();
    // Each language by its own name, so that a user who cannot read the
    // current one still finds theirs.
    static QString nativeName(const QString& language);
    // The saved choice, else the system's language if there are catalogs for it, else English.
    static QString savedLanguage();

    QString language() const { return m_language; }

    // Installs the catalogs and saves the choice; false for a language without catalogs.
    bool setLanguage(const QString& language);
    // The same for this run only.
    bool applyLanguage(const QString& language);

signals:
    void languageChanged(const QString& language);

private:
    QWeakPointer<Core::Plugin::CPluginManager> m_manager;
    QTranslator* m_translator = nullptr;
    QString m_language;
};

} // namespace Viewer
