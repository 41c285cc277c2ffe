#pragma once

#include <Core/Plugin/IPlugin.h>

#include <QString>

class QTranslator;

namespace Core::Plugin {

// A plug-in whose catalogs live in its resources as
// ":/translation/<catalogName>_<language>.qm".
class ALocalizedPlugin : public IPlugin
{
    Q_OBJECT
public:
    using IPlugin::IPlugin;
    ~ALocalizedPlugin() override;

    // Installs the catalog of the language ("en", "ja", "ko", "zh") in place
    // of the one installed before; false if the plug-in has no such catalog.
    virtual bool setLanguage(const QString& language);

    // The language a plug-in takes as soon as its catalog is named, so that
    // the texts it creates in initialize and start are in that language.
    static void setDefaultLanguage(const QString& language);
    static QString defaultLanguage();

    // The plug-in manager sets it from the metadata "Name" when it loads.
    void setCatalogName(const QString& name);
    QString catalogName() const { return m_catalogName; }

private:
    QString m_catalogName;
    QTranslator* m_translator = nullptr;
};

} // namespace Core::Plugin
