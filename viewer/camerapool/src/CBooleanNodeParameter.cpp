#include <camerapool/CBooleanNodeParameter.h>

#include <camerapool/Aravis.h>

namespace CameraPool {

ParameterCollection::ParameterDataConstPtr CBooleanNodeParameter::parameterData() const
{
    return ParameterCollection::ParameterDataConstPtr(new ParameterCollection::ParameterData(m_name, getValue()));
}

void CBooleanNodeParameter::setValue(bool value)
{
    withWritableNode([&](ArvGcNode* node) {
        CGErrorSink error;
        arv_gc_boolean_set_value(ARV_GC_BOOLEAN(node), value, error.out());
        error.check();
        return 0;
    });
    notifyWritten();
}

bool CBooleanNodeParameter::getValue() const
{
    return withNode([](ArvGcNode* node) {
        CGErrorSink error;
        const bool value = arv_gc_boolean_get_value(ARV_GC_BOOLEAN(node), error.out());
        error.check();
        return value;
    });
}

} // namespace CameraPool
