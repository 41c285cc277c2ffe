#pragma once

#include <Plugin/ParameterCollectionPool/IParameterService.h>

#include <QHash>

namespace HostFakes {

// Gives the collection the test set for the camera's key, else the default
// one (which may be empty).
class CFakeParameterService : public Plugin::ParameterCollectionPool::IParameterService
{
public:
    using IParameterService::IParameterService;

    void setDefaultCollection(const ParameterCollection::ParameterCollectionPtr& collection)
    {
        m_default = collection;
    }
    void setCollection(const QString& key, const ParameterCollection::ParameterCollectionPtr& collection)
    {
        m_collections.insert(key, collection);
    }
    int requestCount() const { return m_requests; }

    ParameterCollection::ParameterCollectionPtr
    parameterCollection(const Core::CameraPoolComponents::CameraInfoPtr& camera) override
    {
        ++m_requests;
        if (camera && m_collections.contains(camera->key()))
            return m_collections.value(camera->key());
        return m_default;
    }

private:
    ParameterCollection::ParameterCollectionPtr m_default;
    QHash<QString, ParameterCollection::ParameterCollectionPtr> m_collections;
    int m_requests = 0;
};

} // namespace HostFakes
