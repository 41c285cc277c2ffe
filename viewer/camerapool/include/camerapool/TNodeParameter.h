#pragma once

#include <camerapool/AravisError.h>
#include <camerapool/TParameterBase.h>

typedef struct _ArvGcNode ArvGcNode;

namespace CameraPool {

// Access mode, availability and meta data of a node of the camera's own node map.
class CNodeState
{
public:
    // Null when the camera has no feature node of that name.
    static ArvGcNode* find(ArvGc* genicam, const QString& name);
    static bool isImplemented(ArvGcNode* node);
    static bool isReadable(ArvGcNode* node);
    static bool isWritable(ArvGcNode* node);
    static ParameterCollection::CParameterMetaData metaData(ArvGcNode* node);
    static QString valueAsString(ArvGcNode* node);
};

template <typename TInterface>
class TNodeParameter : public TParameterBase<TInterface>
{
public:
    using TParameterBase<TInterface>::TParameterBase;

    bool isNull() const override
    {
        return withNode([](ArvGcNode* node) { return !CNodeState::isImplemented(node); });
    }
    bool isReadable() const override { return withNode(&CNodeState::isReadable); }
    bool isWritable() const override { return withNode(&CNodeState::isWritable); }
    ParameterCollection::CParameterMetaData metaData() const override { return withNode(&CNodeState::metaData); }
    QString valueAsString() const override { return withNode(&CNodeState::valueAsString); }

protected:
    template <typename F>
    auto withNode(F&& f) const
    {
        return this->m_camera->access([&](ArvCamera*, ArvDevice*, ArvGc* genicam) {
            ArvGcNode* node = CNodeState::find(genicam, this->m_name);
            if (!node)
                throwGenICam(QStringLiteral("The camera has no node %1").arg(this->m_name));
            return f(node);
        });
    }

    template <typename F>
    auto withWritableNode(F&& f) const
    {
        return withNode([&](ArvGcNode* node) {
            if (!CNodeState::isWritable(node))
                throwGenICam(QStringLiteral("The node %1 is not writable").arg(this->m_name));
            return f(node);
        });
    }
};

} // namespace CameraPool
