#include <camerapool/CEnumerationNodeParameter.h>

#include <camerapool/Aravis.h>

namespace CameraPool {

ParameterCollection::ParameterDataConstPtr CEnumerationNodeParameter::parameterData() const
{
    return ParameterCollection::ParameterDataConstPtr(
        new ParameterCollection::ParameterData(m_name, QString::fromStdString(getValue())));
}

void CEnumerationNodeParameter::setValue(const GenICam_3_1_Dorvik_zenta::gcstring& entry)
{
    withWritableNode([&](ArvGcNode* node) {
        CGErrorSink error;
        arv_gc_enumeration_set_string_value(ARV_GC_ENUMERATION(node), entry.c_str(), error.out());
        error.check();
        return 0;
    });
    notifyWritten();
}

GenICam_3_1_Dorvik_zenta::gcstring CEnumerationNodeParameter::getValue() const
{
    return withNode([](ArvGcNode* node) {
        CGErrorSink error;
        const char* value = arv_gc_enumeration_get_string_value(ARV_GC_ENUMERATION(node), error.out());
        error.check();
        return GenICam_3_1_Dorvik_zenta::gcstring(value ? value : "");
    });
}

GenICam_3_1_Dorvik_zenta::gcstring_vector CEnumerationNodeParameter::getSettableValues() const
{
    return withNode([](ArvGcNode* node) {
        CGErrorSink error;
        guint count = 0;
        const char** values = arv_gc_enumeration_dup_available_string_values(ARV_GC_ENUMERATION(node), &count, error.out());
        GenICam_3_1_Dorvik_zenta::gcstring_vector result;
        for (guint i = 0; values && i < count; ++i)
            result.emplace_back(values[i]);
        g_free(values);
        error.check();
        return result;
    });
}

} // namespace CameraPool
