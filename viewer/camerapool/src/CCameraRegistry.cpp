#include <camerapool/CCameraRegistry.h>

#include <camerapool/Aravis.h>

#include <QPointer>

namespace CameraPool {

CCameraRegistry::CCameraRegistry(const QSharedPointer<CCameraEnumerationService>& enumeration)
    : m_enumeration(enumeration)
{
    qRegisterMetaType<Core::CameraPoolComponents::CameraInfoPtr>();
    QPointer<CCameraRegistry> self(this);
    m_enumeration->setOpenCamerasProvider([self] {
        return self ? self->openCameras() : QList<Core::CameraPoolComponents::CameraInfoPtr>();
    });
}

CCameraRegistry::~CCameraRegistry()
{
    closeAll();
    m_enumeration->setOpenCamerasProvider({});
}

QString CCameraRegistry::aravisIdOf(const Core::CameraPoolComponents::CameraInfoPtr& info) const
{
    if (const auto* own = dynamic_cast<const CCameraInfo*>(info.data()))
        return own->aravisId();
    if (const CCameraInfoPtr known = m_enumeration->findCamera(info->key()))
        return known->aravisId();
    return info->key();
}

CAravisCameraPtr CCameraRegistry::acquire(const Core::CameraPoolComponents::CameraInfoPtr& info)
{
    if (!info)
        return {};
    auto it = m_entries.find(info->key());
    if (it == m_entries.end())
        return {};
    ++it->users;
    return it->camera;
}

CAravisCameraPtr CCameraRegistry::open(const Core::CameraPoolComponents::CameraInfoPtr& info)
{
    if (!info)
        return {};
    if (CAravisCameraPtr camera = acquire(info))
        return camera;
    CCameraInfoPtr own = qSharedPointerDynamicCast<CCameraInfo>(info);
    if (!own)
        own = m_enumeration->findCamera(info->key());
    if (!own)
        own = CCameraInfoPtr::create(info->displayName(), info->key(), info->deviceClass(), info->properties(), info->key());

    ArvCamera* device = m_enumeration->openDevice(aravisIdOf(info), &m_lastError);
    if (!device)
        return {};
    QPointer<CCameraEnumerationService> enumeration(m_enumeration.data());
    CAravisCameraPtr camera(new CAravisCamera(own, device, [enumeration](ArvCamera* released) {
                                if (enumeration)
                                    enumeration->discardDevice(released);
                                else
                                    g_object_unref(released);
                            }),
                            &QObject::deleteLater);
    if (!camera->isController()) {
        m_lastError = QStringLiteral("The camera %1 is controlled by another application").arg(info->displayName());
        camera->close();
        return {};
    }
    const Core::CameraPoolComponents::CameraInfoPtr shared = own;
    connect(camera.data(), &Plugin::CameraPool::ICamera::cameraConnectionLost, this,
            [this, shared] { emit cameraConnectionLost(shared); });
    m_entries.insert(info->key(), SEntry{camera, 1});
    return camera;
}

void CCameraRegistry::release(const QString& key)
{
    auto it = m_entries.find(key);
    if (it == m_entries.end())
        return;
    if (--it->users > 0)
        return;
    const CAravisCameraPtr camera = it->camera;
    m_entries.erase(it);
    camera->close();
}

CAravisCameraPtr CCameraRegistry::find(const QString& key) const
{
    return m_entries.value(key).camera;
}

QList<CAravisCameraPtr> CCameraRegistry::cameras() const
{
    QList<CAravisCameraPtr> result;
    for (const SEntry& entry : m_entries)
        result.append(entry.camera);
    return result;
}

QList<Core::CameraPoolComponents::CameraInfoPtr> CCameraRegistry::openCameras() const
{
    QList<Core::CameraPoolComponents::CameraInfoPtr> result;
    for (const SEntry& entry : m_entries)
        result.append(entry.camera->cameraInfo());
    return result;
}

void CCameraRegistry::closeAll()
{
    const QMap<QString, SEntry> entries = m_entries;
    m_entries.clear();
    for (const SEntry& entry : entries)
        entry.camera->close();
}

} // namespace CameraPool
