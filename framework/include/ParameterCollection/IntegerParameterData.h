#pragma once

#include <ParameterCollection/ParameterData.h>

namespace ParameterCollection {

class IntegerParameterData : public ParameterData
{
public:
    IntegerParameterData() = default;
    IntegerParameterData(const QString& name, qint64 value, qint64 minimum, qint64 maximum, qint64 increment)
        : ParameterData(name, value), value(value), minimum(minimum), maximum(maximum), increment(increment) {}

    qint64 value = 0;
    qint64 minimum = 0;
    qint64 maximum = 0;
    qint64 increment = 1;
};

} // namespace ParameterCollection
