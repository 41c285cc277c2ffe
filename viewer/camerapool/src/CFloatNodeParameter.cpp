#include <camerapool/CFloatNodeParameter.h>

#include <ParameterCollection/ECorrection.h>

#include <camerapool/Aravis.h>

namespace CameraPool {

namespace {

double read(double (*getter)(ArvGcFloat*, GError**), ArvGcNode* node)
{
    CGErrorSink error;
    const double value = getter(ARV_GC_FLOAT(node), error.out());
    error.check();
    return value;
}

} // namespace

ParameterCollection::ParameterDataConstPtr CFloatNodeParameter::parameterData() const
{
    return ParameterCollection::ParameterDataConstPtr(new ParameterCollection::ParameterData(m_name, getValue()));
}

double CFloatNodeParameter::getValueOrDefault(double defaultValue) const
{
    try {
        return isReadable() ? getValue() : defaultValue;
    } catch (const std::exception&) {
        return defaultValue;
    }
}

double CFloatNodeParameter::getValue() const
{
    return withNode([](ArvGcNode* node) { return read(arv_gc_float_get_value, node); });
}

double CFloatNodeParameter::getMin() const
{
    return withNode([](ArvGcNode* node) { return read(arv_gc_float_get_min, node); });
}

double CFloatNodeParameter::getMax() const
{
    return withNode([](ArvGcNode* node) { return read(arv_gc_float_get_max, node); });
}

void CFloatNodeParameter::setValue(double value, int correction)
{
    withWritableNode([&](ArvGcNode* node) {
        double target = value;
        if (correction != ParameterCollection::CorrectionNone)
            target = qBound(read(arv_gc_float_get_min, node), value, read(arv_gc_float_get_max, node));
        CGErrorSink error;
        arv_gc_float_set_value(ARV_GC_FLOAT(node), target, error.out());
        error.check();
        return 0;
    });
    notifyWritten();
}

QString CFloatNodeParameter::unit() const
{
    return withNode([](ArvGcNode* node) { return QString::fromUtf8(arv_gc_float_get_unit(ARV_GC_FLOAT(node))); });
}

} // namespace CameraPool
