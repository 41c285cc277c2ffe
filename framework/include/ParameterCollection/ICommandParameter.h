#pragma once

#include <ParameterCollection/IParameter.h>

namespace ParameterCollection {

class ICommandParameter : public IParameter
{
    Q_OBJECT
public:
    using IParameter::IParameter;

    // With verify, raises if the node is not writable afterwards.
    virtual void execute(bool verify) = 0;
    virtual bool isDone() const = 0;
};

using CommandParameterPtr = QSharedPointer<ICommandParameter>;

} // namespace ParameterCollection
