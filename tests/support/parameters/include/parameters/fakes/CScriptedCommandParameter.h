#pragma once

#include <parameters/fakes/TScriptedParameter.h>

#include <ParameterCollection/ICommandParameter.h>

namespace ParameterFakes {

// An execution is a write of true: it is counted, recorded and runs afterWrite.
class CScriptedCommandParameter : public TScriptedParameter<ParameterCollection::ICommandParameter>
{
public:
    using TScriptedParameter::TScriptedParameter;

    void execute(bool verify) override
    {
        beginWrite();
        store(true);
        if (verify && !writable())
            fail("not writable after execution");
    }
    bool isDone() const override
    {
        readMeta();
        return true;
    }
};

} // namespace ParameterFakes
