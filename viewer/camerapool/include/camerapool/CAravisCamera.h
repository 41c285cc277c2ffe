#pragma once

#include <camerapool/CCameraInfo.h>
#include <camerapool/CFrameExchange.h>
#include <camerapool/CFrameGapCounter.h>

#include <Plugin/CameraPool/ICamera.h>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

typedef struct _ArvCamera ArvCamera;
typedef struct _ArvDevice ArvDevice;
typedef struct _ArvGc ArvGc;
typedef struct _ArvStream ArvStream;
typedef struct _ArvBuffer ArvBuffer;

namespace CameraPool {

class CParameterHub;

// An open Aravis camera. One recursive lock guards every Aravis call on it;
// the stream callback takes no lock, it only moves buffers and bumps atomics.
class CAravisCamera : public Plugin::CameraPool::ICamera
{
    Q_OBJECT
public:
    // Takes the camera reference; discard gets it back when the camera closes.
    CAravisCamera(const CCameraInfoPtr& info, ArvCamera* camera, std::function<void(ArvCamera*)> discard);
    ~CAravisCamera() override;

    bool startGrabbing() override;
    void stopGrabbing() override;
    bool isGrabbing() const override { return m_grabbing.load(); }
    Core::CameraPoolComponents::CameraInfoPtr cameraInfo() const override { return m_info; }

    bool isConnectionLost() const { return m_connectionLost.load(); }
    // For a while after an access failed only after the GigE Vision timeouts,
    // accesses raise at once instead of waiting for them again. A while, not
    // for good: on an overloaded link a live camera's answers can be lost too,
    // and a dead one is declared lost by Aravis' heartbeat before it ends.
    bool isUnresponsive() const;
    // Throws as a register access would, without waiting for one in progress.
    void checkReachable() const;
    bool isOpen() const { return m_open.load(); }
    // Stops grabbing and gives the device back; later access raises.
    void close();

    // Runs f(camera, device, genicam) under the camera's lock. Raises the GenICam
    // exception at once when the camera is closed or its connection is lost.
    template <typename F>
    auto access(F&& f) const
    {
        const std::unique_lock<std::recursive_timed_mutex> guard = lockForAccess();
        const CTimeoutWatch watch(*this);
        return f(m_camera, m_device, m_genicam);
    }

    bool isGigE() const { return m_isGigE; }
    qint64 maxNumBuffer() const { return m_maxNumBuffer.load(); }
    void setMaxNumBuffer(qint64 count);
    // A counter of the stream by Aravis' name ("n_failures", ...), kept across restarts;
    // "n_underruns" and "n_missing_frames" count frames.
    quint64 streamStatistic(const char* name) const;
    // Aravis' packet-size probe, with the stream torn down and rebuilt around it.
    void probePacketSize();
    // The receive buffer a stream of the current payload asks the kernel for.
    qint64 streamSocketBufferRequest() const;

    quint64 grabbedCount() const { return m_grabbed.load(std::memory_order_relaxed); }
    quint64 failedCount() const { return m_failed.load(std::memory_order_relaxed); }

    // The live view asks for copies of the frames; off by default.
    void setFrameCopyEnabled(bool enabled) { m_copyFrames.store(enabled); }
    // GUI thread only.
    const CFrameExchange::SFrame* takeLatestFrame() { return m_frames.takeLatest(); }

    CParameterHub* parameterHub() const { return m_hub; }
    bool isController() const { return m_isController; }

    // What a stream's callback calls; cleared before a stream is let go on
    // another thread, and deleted with the stream.
    struct SStreamTarget
    {
        std::atomic<CAravisCamera*> camera{nullptr};
        std::atomic<int> busy{0};
    };

    // Called by Aravis: the first on the stream thread, the second on the heartbeat thread.
    void onBufferDone(ArvBuffer* buffer);
    void onControlLost();

private:
    // Marks the camera unresponsive when the access it spans fails after a
    // time that only the transport's timeouts take.
    class CTimeoutWatch
    {
    public:
        explicit CTimeoutWatch(const CAravisCamera& camera);
        ~CTimeoutWatch();
        CTimeoutWatch(const CTimeoutWatch&) = delete;
        CTimeoutWatch& operator=(const CTimeoutWatch&) = delete;

    private:
        const CAravisCamera& m_camera;
        int m_exceptions;
        qint64 m_startNs;
        bool m_outermost;
    };

    std::unique_lock<std::recursive_timed_mutex> lockForAccess() const;
    void createStreamLocked();
    void probeLocked();
    void destroyStreamLocked(bool stopAcquisition);
    void onConnectionLostQueued();

    CCameraInfoPtr m_info;
    Core::CameraPoolComponents::CameraInfoPtr m_baseInfo;
    bool m_isController = true;
    ArvCamera* m_camera = nullptr;
    ArvDevice* m_device = nullptr;
    ArvGc* m_genicam = nullptr;
    ArvStream* m_stream = nullptr;
    SStreamTarget* m_streamTarget = nullptr;
    // The callback's view of m_stream.
    std::atomic<ArvStream*> m_liveStream{nullptr};
    std::function<void(ArvCamera*)> m_discard;
    mutable std::recursive_timed_mutex m_mutex;
    bool m_isGigE = false;
    unsigned long m_controlLostHandler = 0;

    std::atomic<bool> m_grabbing{false};
    std::atomic<bool> m_connectionLost{false};
    // Monotonic ns until which the camera counts as not answering; 0 for none.
    mutable std::atomic<qint64> m_unresponsiveUntilNs{0};
    // Monotonic ns when the register access under way began; 0 for none.
    mutable std::atomic<qint64> m_accessSinceNs{0};
    std::atomic<bool> m_open{false};
    std::atomic<bool> m_copyFrames{false};
    std::atomic<qint64> m_maxNumBuffer{10};
    std::atomic<quint64> m_grabbed{0};
    std::atomic<quint64> m_failed{0};
    QMap<QByteArray, quint64> m_statisticsBase;
    // Guards m_stream's replacement and m_statisticsBase for the statistics'
    // readers, who must not wait behind a register access to a silent camera.
    mutable std::mutex m_statisticsMutex;
    // Replaces Aravis' underrun and missed-frame counts, which are not per frame.
    std::unique_ptr<CFrameGapCounter> m_gaps;
    CFrameExchange m_frames;
    CParameterHub* m_hub = nullptr;
};

using CAravisCameraPtr = QSharedPointer<CAravisCamera>;

} // namespace CameraPool
