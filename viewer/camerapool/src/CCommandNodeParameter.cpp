#include <camerapool/CCommandNodeParameter.h>

#include <camerapool/Aravis.h>

namespace CameraPool {

ParameterCollection::ParameterDataConstPtr CCommandNodeParameter::parameterData() const
{
    return ParameterCollection::ParameterDataConstPtr(new ParameterCollection::ParameterData(m_name, QVariant()));
}

void CCommandNodeParameter::execute(bool verify)
{
    withWritableNode([&](ArvGcNode* node) {
        CGErrorSink error;
        arv_gc_command_execute(ARV_GC_COMMAND(node), error.out());
        error.check();
        if (verify && !CNodeState::isWritable(node))
            throwGenICam(QStringLiteral("[%1] The command left the node not writable").arg(m_name));
        return 0;
    });
    notifyWritten();
}

} // namespace CameraPool
