#include <camerapool/CStringNodeParameter.h>

#include <camerapool/Aravis.h>

namespace CameraPool {

ParameterCollection::ParameterDataConstPtr CStringNodeParameter::parameterData() const
{
    return ParameterCollection::ParameterDataConstPtr(new ParameterCollection::ParameterData(m_name, getValue()));
}

void CStringNodeParameter::setValue(const QString& value)
{
    withWritableNode([&](ArvGcNode* node) {
        CGErrorSink error;
        arv_gc_string_set_value(ARV_GC_STRING(node), value.toUtf8().constData(), error.out());
        error.check();
        return 0;
    });
    notifyWritten();
}

QString CStringNodeParameter::getValue() const
{
    return withNode([](ArvGcNode* node) {
        CGErrorSink error;
        const char* value = arv_gc_string_get_value(ARV_GC_STRING(node), error.out());
        error.check();
        return QString::fromUtf8(value);
    });
}

} // namespace CameraPool
