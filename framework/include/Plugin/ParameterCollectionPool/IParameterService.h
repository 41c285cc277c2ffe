#pragma once

#include <Core/CameraPoolComponents/ICameraInfo.h>
#include <Core/Service/IService.h>
#include <ParameterCollection/IParameterCollection.h>

namespace Plugin::ParameterCollectionPool {

class IParameterService : public Core::Service::IService
{
    Q_OBJECT
public:
    using IService::IService;

    // Every collection of one camera shares its nodes and change notifications.
    virtual ParameterCollection::ParameterCollectionPtr
    parameterCollection(const Core::CameraPoolComponents::CameraInfoPtr& camera) = 0;
};

} // namespace Plugin::ParameterCollectionPool
