#pragma once

#include <ParameterCollection/IParameter.h>

namespace ParameterCollection {

class IBooleanParameter : public IParameter
{
    Q_OBJECT
public:
    using IParameter::IParameter;

    virtual void setValue(bool value) = 0;
    virtual bool getValue() const = 0;
};

using BooleanParameterPtr = QSharedPointer<IBooleanParameter>;

} // namespace ParameterCollection
