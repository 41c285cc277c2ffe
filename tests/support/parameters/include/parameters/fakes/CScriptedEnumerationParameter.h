#pragma once

#include <parameters/fakes/TScriptedParameter.h>

#include <ParameterCollection/IEnumerationParameter.h>

namespace ParameterFakes {

// Accepts only the scripted settable entries.
class CScriptedEnumerationParameter : public TScriptedParameter<ParameterCollection::IEnumerationParameter>
{
public:
    using TScriptedParameter::TScriptedParameter;

    void setValue(const GenICam_3_1_Dorvik_zenta::gcstring& entry) override
    {
        beginWrite();
        const QString text = QString::fromStdString(entry);
        if (!node().entries.contains(text))
            fail("no such settable entry");
        store(text);
    }
    GenICam_3_1_Dorvik_zenta::gcstring getValue() const override { return readValue().toString().toStdString(); }
    GenICam_3_1_Dorvik_zenta::gcstring_vector getSettableValues() const override
    {
        readMeta();
        GenICam_3_1_Dorvik_zenta::gcstring_vector result;
        for (const QString& entry : node().entries)
            result.push_back(entry.toStdString());
        return result;
    }
};

} // namespace ParameterFakes
