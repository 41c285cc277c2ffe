#include "CRecordingPlugin.h"

class CBetaPlugin : public CRecordingPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID ZENTA_PLUGIN_IID FILE "Beta.json")
    Q_INTERFACES(Core::Plugin::IPlugin)
public:
    CBetaPlugin() : CRecordingPlugin("Beta") {}
};

#include "BetaPlugin.moc"
