#include "CLiveCameraController.h"

#include "CDeviceSelectorService.h"
#include "CMenuService.h"
#include "ViewerIds.h"

#include <Plugin/CameraPool/ICameraControlService.h>
#include <Plugin/CameraPool/ICameraEnumerationService.h>
#include <Plugin/CameraPool/ICameraStatusService.h>
#include <Plugin/CameraPool/ICameraStreamControlService.h>

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QTimer>

namespace Viewer {

using Core::CameraPoolComponents::CameraInfoPtr;
using Core::CameraPoolComponents::DeviceBaseInfoPtr;
using Core::CameraPoolComponents::ICameraInfo;

namespace {

QString keyOf(const CameraInfoPtr& camera)
{
    return camera ? camera->key() : QString();
}

bool hasSignal(const QObject* object, const char* signature)
{
    return object->metaObject()->indexOfSignal(QMetaObject::normalizedSignature(signature)) >= 0;
}

} // namespace

CLiveCameraController::CLiveCameraController(CDeviceSelectorService* selector, QObject* parent)
    : QObject(parent),
      m_open(new QAction(this)),
      m_start(new QAction(this)),
      m_stop(new QAction(this)),
      m_close(new QAction(this))
{
    qRegisterMetaType<Plugin::CameraPool::ICameraPtr>("Plugin::CameraPool::ICameraPtr");
    m_open->setObjectName(QString::fromLatin1(Ids::OpenCameraCommand));
    m_start->setObjectName(QString::fromLatin1(Ids::StartGrabCommand));
    m_stop->setObjectName(QString::fromLatin1(Ids::StopGrabCommand));
    m_close->setObjectName(QString::fromLatin1(Ids::CloseCameraCommand));
    // The selected camera when the action fires, whatever is selected later.
    const auto onSelected = [this](auto operation) {
        return [this, operation] {
            const CameraInfoPtr camera = m_selected;
            runDeferred([this, camera, operation] { (this->*operation)(camera); });
        };
    };
    connect(m_open, &QAction::triggered, this, onSelected(&CLiveCameraController::openCamera));
    connect(m_start, &QAction::triggered, this, onSelected(&CLiveCameraController::startGrab));
    connect(m_stop, &QAction::triggered, this, onSelected(&CLiveCameraController::stopGrab));
    connect(m_close, &QAction::triggered, this, onSelected(&CLiveCameraController::closeCamera));
    connect(selector, &CDeviceSelectorService::selectionChanged, this, &CLiveCameraController::onSelectionChanged);
    // A plain QObject gets no LanguageChange of its own.
    if (QCoreApplication::instance())
        QCoreApplication::instance()->installEventFilter(this);
    retranslate();
    updateActions();
}

CLiveCameraController::~CLiveCameraController()
{
    // The users this controller holds go back; the cameras' grabs are the
    // stream service's to stop.
    setLive({});
    if (m_services.control) {
        for (auto it = m_opened.cbegin(); it != m_opened.cend(); ++it)
            m_services.control->closeCamera(it.value()->cameraInfo());
    }
}

void CLiveCameraController::setServices(const SServices& services)
{
    for (QObject* old : {static_cast<QObject*>(m_services.enumeration.data()),
                         static_cast<QObject*>(m_services.status.data()),
                         static_cast<QObject*>(m_services.streams.data())}) {
        if (old)
            disconnect(old, nullptr, this, nullptr);
    }
    m_services = services;
    if (m_services.enumeration) {
        connect(m_services.enumeration.data(), &Plugin::CameraPool::ICameraEnumerationService::enumerationChanged,
                this, &CLiveCameraController::onEnumerationChanged);
    }
    if (m_services.status) {
        connect(m_services.status.data(), &Plugin::CameraPool::ICameraStatusService::cameraConnectionLost, this,
                &CLiveCameraController::onConnectionLost);
    }
    // The host's stream service also announces grabs that others start or
    // stop (a restored device state, a plug-in's stopAllGrabs).
    QObject* streams = m_services.streams.data();
    if (streams && hasSignal(streams, "grabStarted(Core::CameraPoolComponents::CameraInfoPtr)")) {
        connect(streams, SIGNAL(grabStarted(Core::CameraPoolComponents::CameraInfoPtr)), this,
                SLOT(onGrabStarted(Core::CameraPoolComponents::CameraInfoPtr)));
    }
    if (streams && hasSignal(streams, "grabStopped(Core::CameraPoolComponents::CameraInfoPtr)")) {
        connect(streams, SIGNAL(grabStopped(Core::CameraPoolComponents::CameraInfoPtr)), this,
                SLOT(onGrabStopped(Core::CameraPoolComponents::CameraInfoPtr)));
    }
    updateActions();
    onEnumerationChanged();
}

void CLiveCameraController::addToMenu(CMenuService* menus, const Core::CId& container, const Core::CId& group)
{
    Plugin::AppCore::IActionContainer* menu = menus->actionContainer(container);
    if (!menu)
        return;
    const Core::AppCoreComponents::CContext global(Ids::GlobalContext);
    menu->addCommand(menus->registerAction(m_open, Ids::OpenCameraCommand, global), group);
    menu->addCommand(menus->registerAction(m_start, Ids::StartGrabCommand, global), group);
    menu->addCommand(menus->registerAction(m_stop, Ids::StopGrabCommand, global), group);
    menu->addCommand(menus->registerAction(m_close, Ids::CloseCameraCommand, global), group);
}

bool CLiveCameraController::openCamera(const CameraInfoPtr& camera)
{
    if (!camera || !m_services.control)
        return false;
    if (m_opened.contains(camera->key()))
        return true;
    const Plugin::CameraPool::ICameraPtr open = m_services.control->openCamera(camera);
    if (!open) {
        const QString reason = m_services.lastError ? m_services.lastError() : QString();
        emit failed(reason.isEmpty() ? tr("Could not open %1").arg(camera->displayName())
                                     : tr("Could not open %1: %2").arg(camera->displayName(), reason));
        updateActions();
        return false;
    }
    m_opened.insert(camera->key(), open);
    updateActions();
    return true;
}

bool CLiveCameraController::startGrab(const CameraInfoPtr& camera)
{
    if (!camera || !m_services.streams)
        return false;
    const QString earlierError = m_services.lastError ? m_services.lastError() : QString();
    if (!m_services.streams->startGrab(camera)) {
        // The pool keeps only the reason of a failed open; an older one would mislead.
        QString reason = m_services.lastError ? m_services.lastError() : QString();
        if (reason == earlierError)
            reason.clear();
        emit failed(reason.isEmpty() ? tr("Could not start grabbing from %1").arg(camera->displayName())
                                     : tr("Could not start grabbing from %1: %2").arg(camera->displayName(), reason));
        updateActions();
        return false;
    }
    onGrabStarted(camera);
    return true;
}

void CLiveCameraController::stopGrab(const CameraInfoPtr& camera)
{
    if (!camera || !m_services.streams)
        return;
    // The live view lets go first, so that the stream service's release is
    // the last one and the camera closes.
    if (m_liveKey == camera->key())
        showAnotherGrabbingCamera(camera->key());
    m_services.streams->stopGrab(camera);
    onGrabStopped(camera);
}

void CLiveCameraController::closeCamera(const CameraInfoPtr& camera)
{
    if (!camera)
        return;
    if (isGrabbing(camera) || m_liveKey == camera->key())
        stopGrab(camera);
    const Plugin::CameraPool::ICameraPtr open = m_opened.take(camera->key());
    if (open && m_services.control)
        m_services.control->closeCamera(open->cameraInfo());
    updateActions();
}

void CLiveCameraController::grabWhenListed(const QString& pattern)
{
    m_pendingGrab = pattern;
    onEnumerationChanged();
}

void CLiveCameraController::onActivated(const DeviceBaseInfoPtr& device)
{
    const CameraInfoPtr camera = device.dynamicCast<ICameraInfo>();
    if (!camera || m_busy)
        return;
    if (isGrabbing(camera))
        runDeferred([this, camera] { stopGrab(camera); });
    else
        runDeferred([this, camera] { startGrab(camera); });
}

void CLiveCameraController::onSelectionChanged(DeviceBaseInfoPtr device)
{
    m_selected = device.dynamicCast<ICameraInfo>();
    if (m_selected && isGrabbing(m_selected))
        setLive(m_selected);
    updateActions();
}

void CLiveCameraController::onGrabStarted(CameraInfoPtr camera)
{
    setLive(camera);
    updateActions();
}

void CLiveCameraController::onGrabStopped(CameraInfoPtr camera)
{
    if (camera && m_liveKey == camera->key())
        showAnotherGrabbingCamera(camera->key());
    updateActions();
}

void CLiveCameraController::onConnectionLost(CameraInfoPtr camera)
{
    if (!camera)
        return;
    emit failed(tr("The connection to %1 was lost").arg(camera->displayName()));
    closeCamera(camera);
}

void CLiveCameraController::onEnumerationChanged()
{
    if (m_pendingGrab.isEmpty())
        return;
    const QList<CameraInfoPtr> cameras = listedCameras();
    CameraInfoPtr match;
    for (const CameraInfoPtr& camera : cameras) {
        if (camera->key() == m_pendingGrab) {
            match = camera;
            break;
        }
        if (!match && (camera->key().contains(m_pendingGrab, Qt::CaseInsensitive) ||
                       camera->displayName().contains(m_pendingGrab, Qt::CaseInsensitive)))
            match = camera;
    }
    if (!match)
        return;
    m_pendingGrab.clear();
    runDeferred([this, match] { startGrab(match); });
}

QList<CameraInfoPtr> CLiveCameraController::listedCameras() const
{
    QList<CameraInfoPtr> cameras;
    if (!m_services.enumeration)
        return cameras;
    for (const Plugin::CameraPool::TransportLayerPtr& layer : m_services.enumeration->transportLayers()) {
        if (!layer)
            continue;
        for (const CameraInfoPtr& camera : layer->cameras()) {
            if (camera)
                cameras.append(camera);
        }
    }
    return cameras;
}

bool CLiveCameraController::isGrabbing(const CameraInfoPtr& camera) const
{
    return camera && m_services.status && m_services.status->isCameraGrabbing(camera);
}

void CLiveCameraController::setLive(const CameraInfoPtr& camera)
{
    if (keyOf(camera) == m_liveKey && (m_live || !camera))
        return;
    // Acquired before the old one is released: the same device keeps a user.
    const Plugin::CameraPool::ICameraPtr next =
        camera && m_services.control ? m_services.control->acquireCamera(camera) : Plugin::CameraPool::ICameraPtr();
    const Plugin::CameraPool::ICameraPtr previous = m_live;
    m_live = next;
    m_liveKey = next ? camera->key() : QString();
    if (previous && m_services.control)
        m_services.control->releaseCamera(previous);
    if (previous != next)
        emit liveCameraChanged(next);
}

void CLiveCameraController::showAnotherGrabbingCamera(const QString& exceptKey)
{
    CameraInfoPtr other;
    if (m_selected && m_selected->key() != exceptKey && isGrabbing(m_selected))
        other = m_selected;
    for (const CameraInfoPtr& camera : listedCameras()) {
        if (!other && camera->key() != exceptKey && isGrabbing(camera))
            other = camera;
    }
    setLive(other);
}

void CLiveCameraController::runDeferred(std::function<void()> operation)
{
    if (m_busy)
        return;
    m_busy = true;
    updateActions();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    // Opening blocks until the camera answers; the menu closes and the
    // window repaints before that.
    QTimer::singleShot(0, this, [this, operation = std::move(operation)] {
        operation();
        QApplication::restoreOverrideCursor();
        m_busy = false;
        updateActions();
    });
}

void CLiveCameraController::updateActions()
{
    const bool camera = m_selected && !m_busy;
    const bool grabbing = isGrabbing(m_selected);
    const bool opened = m_selected && m_opened.contains(m_selected->key());
    m_open->setEnabled(camera && m_services.control && !opened && !grabbing);
    m_start->setEnabled(camera && m_services.streams && !grabbing);
    m_stop->setEnabled(camera && m_services.streams && grabbing);
    m_close->setEnabled(camera && (opened || grabbing));
}

void CLiveCameraController::retranslate()
{
    m_open->setText(tr("Open camera"));
    m_start->setText(tr("Start grabbing"));
    m_stop->setText(tr("Stop grabbing"));
    m_close->setText(tr("Close camera"));
}

bool CLiveCameraController::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == QCoreApplication::instance() && event->type() == QEvent::LanguageChange)
        retranslate();
    return QObject::eventFilter(watched, event);
}

} // namespace Viewer
