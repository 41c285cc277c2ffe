#pragma once

#include <parameters/fakes/TScriptedParameter.h>

#include <ParameterCollection/IBooleanParameter.h>

namespace ParameterFakes {

class CScriptedBooleanParameter : public TScriptedParameter<ParameterCollection::IBooleanParameter>
{
public:
    using TScriptedParameter::TScriptedParameter;

    void setValue(bool value) override
    {
        beginWrite();
        store(value);
    }
    bool getValue() const override { return readValue().toBool(); }
};

} // namespace ParameterFakes
