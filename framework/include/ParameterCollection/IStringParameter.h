#pragma once

#include <ParameterCollection/IParameter.h>

namespace ParameterCollection {

class IStringParameter : public IParameter
{
    Q_OBJECT
public:
    using IParameter::IParameter;

    virtual void setValue(const QString& value) = 0;
    virtual QString getValue() const = 0;
};

using StringParameterPtr = QSharedPointer<IStringParameter>;

} // namespace ParameterCollection
