#pragma once

#include <Plugin/ParameterCollectionPool/IParameterService.h>

#include <QHash>

#include <memory>

// Hands out the collections of another parameter service unchanged, except that
// writes to a camera's inter-packet delay ("GevSCPD", in any node map) are
// counted per camera key.
class CCountingParameterService : public Plugin::ParameterCollectionPool::IParameterService
{
    Q_OBJECT
public:
    void setInner(const QSharedPointer<Plugin::ParameterCollectionPool::IParameterService>& inner) { m_inner = inner; }
    ParameterCollection::ParameterCollectionPtr
    parameterCollection(const Core::CameraPoolComponents::CameraInfoPtr& camera) override;

    int delayWrites(const QString& cameraKey) const;
    void resetCounts();

private:
    QSharedPointer<Plugin::ParameterCollectionPool::IParameterService> m_inner;
    QHash<QString, std::shared_ptr<int>> m_writes;
};
