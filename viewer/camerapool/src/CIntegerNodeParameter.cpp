#include <camerapool/CIntegerNodeParameter.h>

#include <camerapool/IntegerCorrection.h>

#include <camerapool/Aravis.h>

namespace CameraPool {

namespace {

qint64 read(gint64 (*getter)(ArvGcInteger*, GError**), ArvGcNode* node)
{
    CGErrorSink error;
    const qint64 value = getter(ARV_GC_INTEGER(node), error.out());
    error.check();
    return value;
}

} // namespace

ParameterCollection::ParameterDataConstPtr CIntegerNodeParameter::parameterData() const
{
    return withNode([&](ArvGcNode* node) {
        return ParameterCollection::ParameterDataConstPtr(new ParameterCollection::IntegerParameterData(
            m_name, read(arv_gc_integer_get_value, node), read(arv_gc_integer_get_min, node),
            read(arv_gc_integer_get_max, node), read(arv_gc_integer_get_inc, node)));
    });
}

void CIntegerNodeParameter::setValue(qint64 value, int correction)
{
    withWritableNode([&](ArvGcNode* node) {
        const qint64 minimum = read(arv_gc_integer_get_min, node);
        const qint64 maximum = read(arv_gc_integer_get_max, node);
        const qint64 increment = qMax<qint64>(1, read(arv_gc_integer_get_inc, node));
        const qint64 target = correctInteger(value, minimum, maximum, increment, correction);
        // Aravis checks the range but not the increment.
        if (target >= minimum && target <= maximum && (target - minimum) % increment != 0) {
            throwGenICam(QStringLiteral("[%1] Value '%2' is not on the increment %3 from the minimum '%4'")
                             .arg(m_name)
                             .arg(target)
                             .arg(increment)
                             .arg(minimum));
        }
        CGErrorSink error;
        arv_gc_integer_set_value(ARV_GC_INTEGER(node), target, error.out());
        error.check();
        return 0;
    });
    notifyWritten();
}

void CIntegerNodeParameter::setValueVerified(qint64 value, bool verify)
{
    setValue(value, ParameterCollection::CorrectionNone);
    if (verify) {
        const qint64 actual = getValue();
        if (actual != value)
            throwGenICam(QStringLiteral("[%1] Wrote '%2' but read back '%3'").arg(m_name).arg(value).arg(actual));
    }
}

qint64 CIntegerNodeParameter::getValue() const
{
    return withNode([](ArvGcNode* node) { return read(arv_gc_integer_get_value, node); });
}

qint64 CIntegerNodeParameter::getMin() const
{
    return withNode([](ArvGcNode* node) { return read(arv_gc_integer_get_min, node); });
}

qint64 CIntegerNodeParameter::getMax() const
{
    return withNode([](ArvGcNode* node) { return read(arv_gc_integer_get_max, node); });
}

qint64 CIntegerNodeParameter::getInc() const
{
    return withNode([](ArvGcNode* node) { return read(arv_gc_integer_get_inc, node); });
}

bool CIntegerNodeParameter::trySetValue(qint64 value)
{
    try {
        if (!isWritable())
            return false;
        setValue(value, ParameterCollection::CorrectionNone);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

qint64 CIntegerNodeParameter::getValueOrDefault(qint64 defaultValue) const
{
    try {
        return isReadable() ? getValue() : defaultValue;
    } catch (const std::exception&) {
        return defaultValue;
    }
}

void CIntegerNodeParameter::setToMinimum()
{
    setValue(getMin(), ParameterCollection::CorrectionNone);
}

bool CIntegerNodeParameter::trySetToMaximum()
{
    try {
        if (!isWritable())
            return false;
        setValue(getMax(), ParameterCollection::CorrectionDown);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool CIntegerNodeParameter::trySetToMinimum()
{
    try {
        if (!isWritable())
            return false;
        setToMinimum();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace CameraPool
