#pragma once

#include <camerapool/TNodeParameter.h>

#include <ParameterCollection/IEnumerationParameter.h>

namespace CameraPool {

class CEnumerationNodeParameter : public TNodeParameter<ParameterCollection::IEnumerationParameter>
{
public:
    using TNodeParameter::TNodeParameter;

    ParameterCollection::EParameterKind kind() const override { return ParameterCollection::EParameterKind::Enumeration; }
    ParameterCollection::ParameterDataConstPtr parameterData() const override;

    void setValue(const GenICam_3_1_Dorvik_zenta::gcstring& entry) override;
    GenICam_3_1_Dorvik_zenta::gcstring getValue() const override;
    GenICam_3_1_Dorvik_zenta::gcstring_vector getSettableValues() const override;
};

} // namespace CameraPool
