#include <camerapool/CAravisCamera.h>

#include <camerapool/AravisError.h>
#include <camerapool/CParameterHub.h>
#include <camerapool/CTestPacketProbe.h>
#include <camerapool/PacketSizeSearch.h>
#include <camerapool/SocketDrops.h>
#include <camerapool/StreamSocketBuffer.h>

#include <Core/Logging/Logging.h>

#include <QDeadlineTimer>

#include <camerapool/Aravis.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <exception>
#include <thread>

namespace CameraPool {

namespace {

const char* const StatisticNames[] = {"n_completed_buffers", "n_failures", "n_missing_packets", "n_resend_requests",
                                      "n_resent_packets"};
const char SocketDropsName[] = "n_socket_drops";

void streamCallback(void* userData, ArvStreamCallbackType type, ArvBuffer* buffer)
{
    if (type != ARV_STREAM_CALLBACK_TYPE_BUFFER_DONE)
        return;
    auto* target = static_cast<CAravisCamera::SStreamTarget*>(userData);
    target->busy.fetch_add(1);
    if (CAravisCamera* camera = target->camera.load())
        camera->onBufferDone(buffer);
    target->busy.fetch_sub(1);
}

void controlLostCallback(ArvDevice*, gpointer userData)
{
    static_cast<CAravisCamera*>(userData)->onControlLost();
}

// Once per process: the limit is the machine's, not the camera's.
void warnOnceAboutReceiveBufferLimit(qint64 requestedBytes)
{
    static std::atomic<bool> warned{false};
    if (warned.load())
        return;
    const QString warning = receiveBufferLimitWarning(requestedBytes, receiveBufferLimitBytes());
    if (warning.isEmpty() || warned.exchange(true))
        return;
    static const quint64 category = Core::Logging::getCatId("zenta.viewer.cameraPool");
    Core::Logging::createLogEntry(Core::Logging::LogLevelWarning, category, warning);
}

bool packetSocketAllowed()
{
    return qEnvironmentVariableIntValue("ZENTA_ARV_PACKET_SOCKET") == 1;
}

} // namespace

CAravisCamera::CAravisCamera(const CCameraInfoPtr& info, ArvCamera* camera, std::function<void(ArvCamera*)> discard)
    : m_info(info), m_baseInfo(info), m_camera(camera), m_discard(std::move(discard))
{
    m_open.store(m_camera != nullptr);
    m_device = arv_camera_get_device(m_camera);
    m_genicam = arv_device_get_genicam(m_device);
    m_isGigE = arv_camera_is_gv_device(m_camera);
    // Aravis neither range-checks nor access-checks by default; the host's contract wants both.
    arv_gc_set_range_check_policy(m_genicam, ARV_RANGE_CHECK_POLICY_ENABLE);
    arv_gc_set_access_check_policy(m_genicam, ARV_ACCESS_CHECK_POLICY_ENABLE);
    if (m_isGigE) {
        ArvGvDevice* gv = ARV_GV_DEVICE(m_device);
        // Only the optimisation run changes the packet size.
        arv_gv_device_set_packet_size_adjustment(gv, ARV_GV_PACKET_SIZE_ADJUSTMENT_NEVER);
        m_isController = arv_gv_device_is_controller(gv);
    }
    m_gaps = std::make_unique<CFrameGapCounter>(m_isGigE);
    m_controlLostHandler = g_signal_connect(m_device, "control-lost", G_CALLBACK(controlLostCallback), this);
    m_hub = new CParameterHub(this);
}

CAravisCamera::~CAravisCamera()
{
    close();
}

// Aravis gives up on a GigE Vision command after 5 tries of 500 ms; a failure
// that took a second or more was one of those, not a refusal by the camera.
constexpr qint64 UnansweredNs = 1000000000;
// Aravis declares a silent camera lost within about 5 s of heartbeats.
constexpr qint64 SilenceNs = 10000000000;

// Past Aravis' first 500 ms timeout: the camera did not answer that try.
constexpr qint64 RetryingNs = 600000000;

CAravisCamera::CTimeoutWatch::CTimeoutWatch(const CAravisCamera& camera)
    : m_camera(camera),
      m_exceptions(std::uncaught_exceptions()),
      m_startNs(QDeadlineTimer::current().deadlineNSecs()),
      m_outermost(camera.m_accessSinceNs.load() == 0)
{
    if (m_outermost)
        m_camera.m_accessSinceNs.store(m_startNs);
}

CAravisCamera::CTimeoutWatch::~CTimeoutWatch()
{
    if (m_outermost)
        m_camera.m_accessSinceNs.store(0);
    const qint64 now = QDeadlineTimer::current().deadlineNSecs();
    if (std::uncaught_exceptions() > m_exceptions && now - m_startNs >= UnansweredNs)
        m_camera.m_unresponsiveUntilNs.store(now + SilenceNs);
}

bool CAravisCamera::isUnresponsive() const
{
    const qint64 until = m_unresponsiveUntilNs.load();
    return until != 0 && QDeadlineTimer::current().deadlineNSecs() < until;
}

void CAravisCamera::close()
{
    std::lock_guard<std::recursive_timed_mutex> guard(m_mutex);
    if (!m_camera)
        return;
    if (m_hub)
        m_hub->stopPolling();
    destroyStreamLocked(true);
    g_signal_handler_disconnect(m_device, m_controlLostHandler);
    ArvCamera* camera = m_camera;
    m_camera = nullptr;
    m_open.store(false);
    m_device = nullptr;
    m_genicam = nullptr;
    if (m_discard)
        m_discard(camera);
    else
        g_object_unref(camera);
}

void CAravisCamera::checkReachable() const
{
    if (m_connectionLost.load())
        throwGenICam(QStringLiteral("The connection to the camera %1 is lost").arg(m_info->displayName()));
    if (isUnresponsive())
        throwGenICam(QStringLiteral("The camera %1 does not answer").arg(m_info->displayName()));
    if (!m_open.load())
        throwGenICam(QStringLiteral("The camera %1 is closed").arg(m_info->displayName()));
}

std::unique_lock<std::recursive_timed_mutex> CAravisCamera::lockForAccess() const
{
    // Checked before the lock as well: a dead camera's register access blocks for seconds.
    checkReachable();
    std::unique_lock<std::recursive_timed_mutex> guard(m_mutex, std::defer_lock);
    // Not behind an access that is already retrying: this thread (the
    // window's, often) would wait out the rest of the transport's timeouts.
    while (!guard.try_lock_for(std::chrono::milliseconds(50))) {
        const qint64 since = m_accessSinceNs.load();
        if (since != 0 && QDeadlineTimer::current().deadlineNSecs() - since >= RetryingNs)
            throwGenICam(QStringLiteral("The camera %1 does not answer").arg(m_info->displayName()));
        checkReachable();
    }
    if (!m_camera)
        throwGenICam(QStringLiteral("The camera %1 is closed").arg(m_info->displayName()));
    if (m_connectionLost.load())
        throwGenICam(QStringLiteral("The connection to the camera %1 is lost").arg(m_info->displayName()));
    return guard;
}

bool CAravisCamera::startGrabbing()
{
    std::lock_guard<std::recursive_timed_mutex> guard(m_mutex);
    if (m_grabbing.load())
        return true;
    if (!m_camera || m_connectionLost.load())
        return false;
    try {
        createStreamLocked();
    } catch (const std::exception& e) {
        qWarning("Cannot start grabbing on %s: %s", qPrintable(m_info->displayName()), e.what());
        destroyStreamLocked(false);
        return false;
    }
    return true;
}

void CAravisCamera::stopGrabbing()
{
    std::lock_guard<std::recursive_timed_mutex> guard(m_mutex);
    destroyStreamLocked(true);
}

void CAravisCamera::createStreamLocked()
{
    CGErrorSink error;
    const guint payload = arv_camera_get_payload(m_camera, error.out());
    error.check();
    if (m_isGigE) {
        arv_camera_gv_set_stream_options(m_camera, packetSocketAllowed() ? ARV_GV_STREAM_OPTION_NONE
                                                                         : ARV_GV_STREAM_OPTION_PACKET_SOCKET_DISABLED);
    }
    m_frames.reset(payload);
    m_gaps->restart();
    m_streamTarget = new SStreamTarget;
    m_streamTarget->camera.store(this);
    ArvStream* stream = arv_camera_create_stream(m_camera, streamCallback, m_streamTarget, error.out());
    {
        const std::lock_guard<std::mutex> statistics(m_statisticsMutex);
        m_stream = stream;
    }
    error.check();
    if (!m_stream)
        throwGenICam(QStringLiteral("Aravis created no stream"));
    if (m_isGigE) {
        const qint64 socketBuffer = streamSocketBufferBytes(qint64(payload));
        g_object_set(m_stream, "socket-buffer", ARV_GV_STREAM_SOCKET_BUFFER_FIXED, "socket-buffer-size",
                     gint(socketBuffer), nullptr);
        setReceiveBufferOfLocalPort(arv_gv_stream_get_port(ARV_GV_STREAM(m_stream)), socketBuffer);
        warnOnceAboutReceiveBufferLimit(socketBuffer);
    }
    const qint64 buffers = qMax<qint64>(1, m_maxNumBuffer.load());
    for (qint64 i = 0; i < buffers; ++i)
        arv_stream_push_buffer(m_stream, arv_buffer_new_allocate(payload));
    m_liveStream.store(m_stream);
    arv_camera_start_acquisition(m_camera, error.out());
    error.check();
    m_grabbing.store(true);
}

void CAravisCamera::destroyStreamLocked(bool stopAcquisition)
{
    const bool wasGrabbing = m_grabbing.exchange(false);
    const bool answers = !m_connectionLost.load() && !isUnresponsive();
    if (wasGrabbing && stopAcquisition && m_camera && answers) {
        CGErrorSink ignored;
        arv_camera_stop_acquisition(m_camera, ignored.out());
    }
    if (!m_stream)
        return;
    m_liveStream.store(nullptr);
    ArvStream* stream = m_stream;
    {
        const std::lock_guard<std::mutex> statistics(m_statisticsMutex);
        for (const char* name : StatisticNames) {
            if (m_isGigE || qstrncmp(name, "n_missing", 9) != 0)
                m_statisticsBase[name] += arv_stream_get_info_uint64_by_name(stream, name);
        }
        if (m_isGigE)
            m_statisticsBase[SocketDropsName] +=
                quint64(std::max<qint64>(0, udpSocketDrops(arv_gv_stream_get_port(ARV_GV_STREAM(stream)))));
        m_stream = nullptr;
    }
    SStreamTarget* target = m_streamTarget;
    m_streamTarget = nullptr;
    if (answers) {
        // Joins the stream thread; never called from the callback.
        g_object_unref(stream);
        delete target;
        return;
    }
    // Aravis' teardown tells the camera to stop the stream channel and waits
    // for the answer that a dead camera never gives: elsewhere, so the caller
    // does not wait for the transport's timeouts. The stream stops calling us.
    target->camera.store(nullptr);
    // A callback that saw the camera before it was cleared finishes first.
    while (target->busy.load() != 0)
        std::this_thread::yield();
    std::thread([stream, target] {
        g_object_unref(stream);
        delete target;
    }).detach();
}

void CAravisCamera::onBufferDone(ArvBuffer*)
{
    ArvStream* stream = m_liveStream.load();
    ArvBuffer* buffer = stream ? arv_stream_try_pop_buffer(stream) : nullptr;
    if (!buffer)
        return;
    size_t received = 0;
    const void* data = arv_buffer_get_data(buffer, &received);
    const bool success = arv_buffer_get_status(buffer) == ARV_BUFFER_STATUS_SUCCESS;
    // On the stream thread, which alone writes the count it reads.
    m_gaps->onBuffer(arv_buffer_get_frame_id(buffer), arv_stream_get_info_uint64_by_name(stream, "n_underruns"));
    (success ? m_grabbed : m_failed).fetch_add(1, std::memory_order_relaxed);
    if (success && m_copyFrames.load(std::memory_order_relaxed)
        && arv_buffer_get_payload_type(buffer) == ARV_BUFFER_PAYLOAD_TYPE_IMAGE) {
        m_frames.publish(data, received, arv_buffer_get_image_width(buffer), arv_buffer_get_image_height(buffer),
                         arv_buffer_get_image_pixel_format(buffer));
    }
    emit cameraImageGrabbed(m_baseInfo, Zenta::CGrabResultPtr(Zenta::CGrabResultData(success, received)));
    arv_stream_push_buffer(stream, buffer);
}

void CAravisCamera::onControlLost()
{
    if (m_connectionLost.exchange(true))
        return;
    QMetaObject::invokeMethod(this, [this] { onConnectionLostQueued(); }, Qt::QueuedConnection);
}

void CAravisCamera::onConnectionLostQueued()
{
    emit cameraConnectionLost();
}

void CAravisCamera::setMaxNumBuffer(qint64 count)
{
    if (count < 1)
        throwGenICam(QStringLiteral("MaxNumBuffer must be at least 1"));
    m_maxNumBuffer.store(count);
}

quint64 CAravisCamera::streamStatistic(const char* name) const
{
    if (qstrcmp(name, "n_underruns") == 0)
        return m_gaps->underrunFrames();
    if (qstrcmp(name, "n_missing_frames") == 0)
        return m_gaps->missedFrames();
    const std::lock_guard<std::mutex> guard(m_statisticsMutex);
    quint64 value = m_statisticsBase.value(name);
    // The kernel's count for the stream's own socket: a new stream has a new socket.
    if (qstrcmp(name, SocketDropsName) == 0)
        return m_stream && m_isGigE
                   ? value + quint64(std::max<qint64>(0, udpSocketDrops(arv_gv_stream_get_port(ARV_GV_STREAM(m_stream)))))
                   : value;
    if (m_stream)
        value += arv_stream_get_info_uint64_by_name(m_stream, name);
    return value;
}

qint64 CAravisCamera::streamSocketBufferRequest() const
{
    const std::unique_lock<std::recursive_timed_mutex> guard = lockForAccess();
    CGErrorSink error;
    const guint payload = arv_camera_get_payload(m_camera, error.out());
    error.check();
    return streamSocketBufferBytes(qint64(payload));
}

void CAravisCamera::probePacketSize()
{
    const std::unique_lock<std::recursive_timed_mutex> guard = lockForAccess();
    if (!m_isGigE)
        throwGenICam(QStringLiteral("Packet size probing needs a GigE Vision camera"));
    // The probe repoints the stream channel at its own socket and leaves it there.
    const bool wasGrabbing = m_grabbing.load();
    destroyStreamLocked(true);
    std::exception_ptr failure;
    try {
        probeLocked();
    } catch (...) {
        failure = std::current_exception();
    }
    if (wasGrabbing)
        createStreamLocked();
    if (failure)
        std::rethrow_exception(failure);
}

// Aravis' own probe climbs from the current size to the node's maximum with
// three tries per size, about a hundred register commands at 0.3-1 ms each on
// a real camera; the host adapter's MTU, tried first, is nearly always the answer.
void CAravisCamera::probeLocked()
{
    CTestPacketProbe probe(m_device);
    CGErrorSink error;
    gint64 minimum = 0;
    gint64 maximum = 0;
    arv_device_get_integer_feature_bounds(m_device, "GevSCPSPacketSize", &minimum, &maximum, error.out());
    error.check();
    const qint64 increment = arv_device_get_integer_feature_increment(m_device, "GevSCPSPacketSize", error.out());
    error.check();
    const qint64 found = largestCarriedPacketSize(qMax<qint64>(minimum, 576), maximum, increment,
                                                  mtuOfLocalAddress(probe.hostAddress()),
                                                  [&probe](qint64 size) { return probe.carries(size); });
    // Nothing arrived (a firewall drops test packets as a broken path does): the camera keeps its size.
    probe.setPacketSize(found > 0 ? found : probe.originalPacketSize());
}

} // namespace CameraPool
