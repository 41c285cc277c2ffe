#pragma once

#include <Core/Plugin/CPluginManager.h>

namespace Core::Plugin {

// The first registered service that casts to T; null with a null manager.
template <typename T>
QSharedPointer<T> getService(const PluginManagerWeakPtr& manager)
{
    const QSharedPointer<CPluginManager> strong = manager.toStrongRef();
    if (!strong)
        return {};
    QList<Core::Service::ServicePtr> list;
    strong->services(list);
    for (const Core::Service::ServicePtr& service : qAsConst(list)) {
        if (QSharedPointer<T> typed = qSharedPointerDynamicCast<T>(service))
            return typed;
    }
    return {};
}

} // namespace Core::Plugin
