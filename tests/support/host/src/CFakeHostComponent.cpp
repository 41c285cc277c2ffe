#include <host/fakes/CFakeHostComponent.h>

namespace HostFakes {

QJsonObject CFakeHostComponent::metaData(const QString& name, const QString& version)
{
    return QJsonObject{{QStringLiteral("Name"), name},
                       {QStringLiteral("Version"), version},
                       {QStringLiteral("CompatVersion"), version},
                       {QStringLiteral("Required"), true}};
}

} // namespace HostFakes
