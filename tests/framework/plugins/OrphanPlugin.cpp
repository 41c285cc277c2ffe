#include "CRecordingPlugin.h"

class COrphanPlugin : public CRecordingPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID ZENTA_PLUGIN_IID FILE "Orphan.json")
    Q_INTERFACES(Core::Plugin::IPlugin)
public:
    COrphanPlugin() : CRecordingPlugin("Orphan") {}
};

#include "OrphanPlugin.moc"
