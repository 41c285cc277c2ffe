#include <camerapool/CParameterCollection.h>

#include <camerapool/CParameterHub.h>

#include <camerapool/Aravis.h>

namespace CameraPool {

namespace {

bool splitName(const QString& fullName, ENodeMap* map, QString* node)
{
    if (!fullName.startsWith(QLatin1Char('@'))) {
        *map = ENodeMap::CameraDevice;
        *node = fullName;
        return !fullName.isEmpty();
    }
    const int slash = fullName.indexOf(QLatin1Char('/'));
    if (slash < 0)
        return false;
    const QStringRef prefix = fullName.leftRef(slash);
    if (prefix == QLatin1String("@CameraDevice"))
        *map = ENodeMap::CameraDevice;
    else if (prefix == QLatin1String("@StreamGrabber0"))
        *map = ENodeMap::StreamGrabber;
    else if (prefix == QLatin1String("@DeviceTransportLayer"))
        *map = ENodeMap::DeviceTransportLayer;
    else
        return false;
    *node = fullName.mid(slash + 1);
    return !node->isEmpty();
}

} // namespace

CParameterCollection::CParameterCollection(const CAravisCameraPtr& camera, std::function<void()> release)
    : m_camera(camera), m_release(std::move(release))
{
}

CParameterCollection::~CParameterCollection()
{
    if (m_release)
        m_release();
}

ParameterCollection::ParameterPtr CParameterCollection::lookup(const QString& name) const
{
    for (const QString& alternative : name.split(QLatin1Char('|'))) {
        ENodeMap map = ENodeMap::CameraDevice;
        QString node;
        if (!splitName(alternative.trimmed(), &map, &node))
            continue;
        const QString key = QString::number(int(map)) + QLatin1Char('/') + node;
        CParameterHub* hub = m_camera->parameterHub();
        if (ParameterCollection::ParameterPtr cached = hub->cached(key))
            return cached;
        ParameterCollection::ParameterPtr created;
        try {
            created = CParameterFactory::create(m_camera, map, node);
        } catch (const std::exception&) {
            // A lookup gives null rather than raising, even on a lost camera.
            return {};
        }
        if (created) {
            hub->remember(key, created);
            return created;
        }
    }
    return {};
}

ParameterCollection::CommandParameterPtr CParameterCollection::getCommandParameter(const QString& name) const
{
    return qSharedPointerDynamicCast<ParameterCollection::ICommandParameter>(lookup(name));
}

ParameterCollection::FloatParameterPtr CParameterCollection::getFloatParameter(const QString& name) const
{
    return qSharedPointerDynamicCast<ParameterCollection::IFloatParameter>(lookup(name));
}

ParameterCollection::EnumerationParameterPtr CParameterCollection::getEnumerationParameter(const QString& name) const
{
    return qSharedPointerDynamicCast<ParameterCollection::IEnumerationParameter>(lookup(name));
}

ParameterCollection::BooleanParameterPtr CParameterCollection::getBooleanParameter(const QString& name) const
{
    return qSharedPointerDynamicCast<ParameterCollection::IBooleanParameter>(lookup(name));
}

ParameterCollection::IntegerParameterPtr CParameterCollection::getIntegerParameter(const QString& name) const
{
    return qSharedPointerDynamicCast<ParameterCollection::IIntegerParameter>(lookup(name));
}

ParameterCollection::ParameterPtr CParameterCollection::getParameter(const QString& name) const
{
    return lookup(name);
}

bool CParameterCollection::contains(const QString& name) const
{
    return !lookup(name).isNull();
}

ParameterCollection::StringParameterPtr CParameterCollection::getStringParameter(const QString& name) const
{
    return qSharedPointerDynamicCast<ParameterCollection::IStringParameter>(lookup(name));
}

QStringList CParameterCollection::getCategoryFeatures(const QString& category) const
{
    try {
        return m_camera->access([&](ArvCamera*, ArvDevice*, ArvGc* genicam) {
            QStringList features;
            const QByteArray name = (category.isEmpty() ? QStringLiteral("Root") : category).toUtf8();
            ArvGcNode* node = arv_gc_get_node(genicam, name.constData());
            if (node && ARV_IS_GC_CATEGORY(node)) {
                for (const GSList* it = arv_gc_category_get_features(ARV_GC_CATEGORY(node)); it; it = it->next)
                    features.append(QString::fromUtf8(static_cast<const char*>(it->data)));
            }
            return features;
        });
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace CameraPool
