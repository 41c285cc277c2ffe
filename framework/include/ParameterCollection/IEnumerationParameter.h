#pragma once

#include <GenICam/gcstring.h>
#include <ParameterCollection/IParameter.h>

namespace ParameterCollection {

class IEnumerationParameter : public IParameter
{
    Q_OBJECT
public:
    using IParameter::IParameter;

    virtual void setValue(const GenICam_3_1_Dorvik_zenta::gcstring& entry) = 0;
    virtual GenICam_3_1_Dorvik_zenta::gcstring getValue() const = 0;
    // The entries that can be set now, in the camera's order.
    virtual GenICam_3_1_Dorvik_zenta::gcstring_vector getSettableValues() const = 0;
};

using EnumerationParameterPtr = QSharedPointer<IEnumerationParameter>;

} // namespace ParameterCollection
