#include "CRecordingPlugin.h"

class CAlphaPlugin : public CRecordingPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID ZENTA_PLUGIN_IID FILE "Alpha.json")
    Q_INTERFACES(Core::Plugin::IPlugin)
public:
    CAlphaPlugin() : CRecordingPlugin("Alpha") {}
};

#include "AlphaPlugin.moc"
