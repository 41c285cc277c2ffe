#include "GvspStreamer.h"

#include "Protocol.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <sys/prctl.h>

namespace gigeemu {

namespace {
constexpr std::size_t kBatch = 64;
constexpr std::size_t kMaxQueuedFrames = 4;
// How far a late wake-up may catch up on the link schedule at once. A real
// camera's pacing is exact; ours must not turn scheduling delays into bursts
// that no camera sends.
constexpr double kMaxCatchUpNs = 500e3;
// Time beyond that is not lost but owed, and paid back with every packet by
// at most 8 % of its interval: the camera keeps its frame rate through the
// scheduling noise of a busy machine, and is never more than 9 % faster than
// its pacing, which a switch short of full load absorbs. Older debt than
// kMaxDebtNs is written off.
constexpr double kMaxDebtNs = 20e6;
constexpr double kRepayShare = 0.08;
constexpr std::int64_t kMinSleepNs = 50000;
constexpr std::uint32_t kMaxResendRange = 4096;
constexpr std::uint32_t kToTrailer = 0xFFFFFF;
} // namespace

CGvspStreamer::CGvspStreamer(const SConfig& config, IPacketSink& sink, const IClock& clock, ISettingsSource& source)
    : m_config(config)
    , m_link(config.linkMbps, config.tickHz)
    , m_sink(sink)
    , m_clock(clock)
    , m_source(source)
    , m_epochNs(clock.nowNs())
    , m_random(config.seed)
    , m_buffers(kBatch, std::vector<std::uint8_t>(CPacketiser::kMaxDatagram))
{
    m_batch.reserve(kBatch);
}

CGvspStreamer::~CGvspStreamer()
{
    stop();
}

void CGvspStreamer::start()
{
    std::lock_guard<std::mutex> lock(m_eventMutex);
    m_running = true;
    m_thread = std::thread([this] { run(); });
}

void CGvspStreamer::stop()
{
    {
        std::lock_guard<std::mutex> lock(m_eventMutex);
        if (!m_running)
            return;
        m_running = false;
    }
    m_wake.notify_all();
    m_thread.join();
}

void CGvspStreamer::run()
{
    // The timer slack would make the sleeps below uneven; they set the pacing's grain.
    prctl(PR_SET_TIMERSLACK, 1UL);
    for (;;) {
        const std::int64_t now = m_clock.nowNs();
        // A wake-up per packet costs a core at 1 Gbit/s of 1500-byte packets; packets due
        // within the next kMinSleepNs leave together, a burst no switch notices.
        const std::int64_t next = std::max(service(now), now + kMinSleepNs);
        std::unique_lock<std::mutex> lock(m_eventMutex);
        if (!m_running)
            return;
        if (m_changed) {
            m_changed = false;
            continue;
        }
        const auto pred = [this] { return m_changed || !m_running; };
        if (next == kIdle)
            m_wake.wait(lock, pred);
        else
            m_wake.wait_until(lock, std::chrono::steady_clock::time_point(std::chrono::nanoseconds(next)), pred);
        m_changed = false;
    }
}

void CGvspStreamer::settingsChanged()
{
    {
        std::lock_guard<std::mutex> lock(m_eventMutex);
        m_changed = true;
    }
    m_wake.notify_all();
}

void CGvspStreamer::softwareTrigger(std::uint32_t selector)
{
    {
        std::lock_guard<std::mutex> lock(m_eventMutex);
        m_triggers.push_back(selector);
        m_changed = true;
    }
    m_wake.notify_all();
}

void CGvspStreamer::resend(std::uint32_t blockId, std::uint32_t first, std::uint32_t last)
{
    {
        std::lock_guard<std::mutex> lock(m_eventMutex);
        m_resendRequests.push_back(SResendRequest{std::uint16_t(blockId), first, last});
        m_changed = true;
    }
    m_wake.notify_all();
}

void CGvspStreamer::fireTestPacket(const SStreamSettings& s)
{
    if (!s.channelOpen())
        return;
    std::vector<std::uint8_t> buffer(s.packetSize);
    SOutPacket p;
    p.data = buffer.data();
    p.size = CPacketiser::buildTestPacket(s.packetSize, buffer.data());
    p.ip = s.destIp;
    p.port = s.destPort;
    m_sink.send(&p, 1, m_config.allowFragmentation && !s.doNotFragment);
    if (p.error == 0)
        ++m_counters.testPackets;
    else if (p.error == EMSGSIZE)
        ++m_counters.droppedForSize;
}

std::uint64_t CGvspStreamer::ticksAt(double ns) const
{
    const double t = (ns - double(m_epochNs.load())) * double(m_config.tickHz) / 1e9;
    return t <= 0 ? 0 : std::uint64_t(t);
}

std::uint64_t CGvspStreamer::timestampTicks() const
{
    return ticksAt(double(m_clock.nowNs()));
}

void CGvspStreamer::resetTimestamp()
{
    m_epochNs = m_clock.nowNs();
}

void CGvspStreamer::takeEvents(std::int64_t nowNs, const SStreamSettings& s)
{
    std::vector<std::uint32_t> triggers;
    std::vector<SResendRequest> requests;
    {
        std::lock_guard<std::mutex> lock(m_eventMutex);
        triggers.swap(m_triggers);
        requests.swap(m_resendRequests);
    }
    for (std::uint32_t selector : triggers) {
        if (!s.acquiring)
            continue;
        if (selector == 1) {
            if (s.acquisitionStartTriggered && !m_armed) {
                m_armed = true;
                m_nextExposureNs = double(nowNs);
            }
        } else if (s.frameStartTriggered && m_armed && !m_singleDone
                   && double(nowNs) - m_lastExposureNs >= s.triggerIntervalSeconds * 1e9) {
            expose(s, double(nowNs));
        }
    }
    for (const SResendRequest& r : requests) {
        const std::uint32_t first = r.first;
        std::uint32_t last = std::min(r.last, first + kMaxResendRange);
        auto held = std::find_if(m_history.begin(), m_history.end(),
                                 [&](const SFrameInfo& f) { return f.blockId == r.blockId; });
        SResendItem item;
        item.requestNs = nowNs;
        if (held != m_history.end()) {
            item.info = *held;
            last = std::min(last, CPacketiser::packetCount(*held) - 1);
        } else {
            // Without the frame the trailer's id is unknown: answer the first packet only.
            item.info.blockId = r.blockId;
            item.available = false;
            if (r.last == kToTrailer)
                last = first;
        }
        for (std::uint32_t id = first; id <= last; ++id) {
            item.packetId = id;
            m_resends.push_back(item);
        }
    }
}

void CGvspStreamer::expose(const SStreamSettings& s, double atNs)
{
    m_lastExposureNs = atNs;
    ++m_counters.frames;
    SFrameInfo f;
    f.blockId = m_nextBlockId;
    m_nextBlockId = m_nextBlockId == 0xFFFF ? 1 : std::uint16_t(m_nextBlockId + 1);
    f.timestamp = ticksAt(atNs);
    f.width = s.width;
    f.height = s.height;
    f.pixelFormat = s.pixelFormat;
    f.payloadSize = s.payloadSize;
    f.packetSize = s.packetSize;
    m_history.push_back(f);
    while (m_history.size() > m_config.resendFrames)
        m_history.pop_front();
    if (s.singleFrame) {
        m_singleDone = true;
        m_source.acquisitionDone(s.acquisitionSerial);
    }
    if (!s.channelOpen() || m_frames.size() >= kMaxQueuedFrames)
        return;
    m_frames.push_back(SQueuedFrame{f, atNs + s.frameDelaySeconds * 1e9, 0});
}

std::int64_t CGvspStreamer::service(std::int64_t nowNs)
{
    const SStreamSettings s = m_source.streamSettings();
    if (s.acquiring && (!m_acquiring || s.acquisitionSerial != m_serial)) {
        m_serial = s.acquisitionSerial;
        m_armed = !s.acquisitionStartTriggered;
        m_singleDone = false;
        m_nextExposureNs = double(nowNs);
    }
    m_acquiring = s.acquiring;
    takeEvents(nowNs, s);

    const bool freeRunning = s.acquiring && m_armed && !m_singleDone && !s.frameStartTriggered;
    if (freeRunning) {
        const double interval = s.frameIntervalSeconds * 1e9;
        // Short stalls are absorbed by the frame queue; after a long one, restart the frame
        // clock instead of catching up with a burst of frames.
        if (m_nextExposureNs < double(nowNs) - double(kMaxQueuedFrames) * interval)
            m_nextExposureNs = double(nowNs);
        while (m_nextExposureNs <= double(nowNs) && !m_singleDone) {
            expose(s, m_nextExposureNs);
            m_nextExposureNs += interval;
        }
    }
    sendDue(nowNs, s);

    double next = double(kIdle);
    if (!m_resends.empty())
        next = std::max(m_linkFreeNs, double(nowNs));
    if (!m_frames.empty())
        next = std::min(next, std::max(m_frames.front().startNs, m_linkFreeNs));
    if (freeRunning && !m_singleDone)
        next = std::min(next, m_nextExposureNs);
    return next >= double(kIdle) ? kIdle : std::int64_t(std::ceil(next));
}

void CGvspStreamer::sendDue(std::int64_t nowNs, const SStreamSettings& s)
{
    const double now = double(nowNs);
    const double gap = s.gapSeconds * 1e9;
    // Only a frame that waited is owed time: an idle link owes nothing.
    if (!m_frames.empty()) {
        const double due = std::max(m_linkFreeNs, m_frames.front().startNs);
        if (due < now - kMaxCatchUpNs)
            m_debtNs = std::min(kMaxDebtNs, m_debtNs + (now - kMaxCatchUpNs - due));
    }
    m_linkFreeNs = std::max(m_linkFreeNs, now - kMaxCatchUpNs);
    for (;;) {
        if (m_batch.size() == kBatch)
            flush(s);
        if (!m_resends.empty() && m_linkFreeNs <= now) {
            const SResendItem item = m_resends.front();
            m_resends.pop_front();
            std::uint8_t* buf = m_buffers[m_batch.size()].data();
            SOutPacket p;
            p.data = buf;
            if (item.available) {
                p.size = m_packetiser.build(item.info, item.packetId, buf);
                ++m_counters.resent;
            } else {
                p.size = CPacketiser::buildUnavailable(item.info.blockId, item.packetId, buf);
            }
            m_linkFreeNs = std::max(m_linkFreeNs, double(item.requestNs))
                + m_link.wireSeconds(std::uint32_t(p.size + kIpUdpOverhead)) * 1e9 + gap;
            m_batch.push_back(p);
            continue;
        }
        if (m_frames.empty())
            break;
        SQueuedFrame& f = m_frames.front();
        const double departure = std::max(f.startNs, m_linkFreeNs);
        if (departure > now)
            break;
        const std::uint32_t ipSize = CPacketiser::datagramSize(f.info, f.nextPacket) + kIpUdpOverhead;
        const double interval = m_link.wireSeconds(ipSize) * 1e9 + gap;
        const double repay = std::min(m_debtNs, interval * kRepayShare);
        m_debtNs -= repay;
        m_linkFreeNs = departure + interval - repay;
        if (m_config.lossRatio > 0 && m_uniform(m_random) < m_config.lossRatio) {
            ++m_counters.droppedByLoss;
        } else {
            std::uint8_t* buf = m_buffers[m_batch.size()].data();
            SOutPacket p;
            p.data = buf;
            p.size = m_packetiser.build(f.info, f.nextPacket, buf);
            m_batch.push_back(p);
        }
        if (++f.nextPacket == CPacketiser::packetCount(f.info)) {
            m_frames.pop_front();
            ++m_counters.framesSent;
        }
    }
    flush(s);
}

void CGvspStreamer::flush(const SStreamSettings& s)
{
    if (m_batch.empty())
        return;
    if (s.channelOpen()) {
        for (SOutPacket& p : m_batch) {
            p.ip = s.destIp;
            p.port = s.destPort;
        }
        m_sink.send(m_batch.data(), m_batch.size(), m_config.allowFragmentation && !s.doNotFragment);
        for (const SOutPacket& p : m_batch) {
            if (p.error == 0)
                ++m_counters.packets;
            else if (p.error == EMSGSIZE)
                ++m_counters.droppedForSize;
        }
    }
    m_batch.clear();
}

} // namespace gigeemu
