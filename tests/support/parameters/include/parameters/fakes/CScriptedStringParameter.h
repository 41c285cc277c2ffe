#pragma once

#include <parameters/fakes/TScriptedParameter.h>

#include <ParameterCollection/IStringParameter.h>

namespace ParameterFakes {

class CScriptedStringParameter : public TScriptedParameter<ParameterCollection::IStringParameter>
{
public:
    using TScriptedParameter::TScriptedParameter;

    void setValue(const QString& value) override
    {
        beginWrite();
        store(value);
    }
    QString getValue() const override { return readValue().toString(); }
};

} // namespace ParameterFakes
