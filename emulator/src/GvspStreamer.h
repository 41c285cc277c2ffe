#pragma once

#include "Clock.h"
#include "Config.h"
#include "LinkModel.h"
#include "PacketSink.h"
#include "Packetiser.h"
#include "SettingsSource.h"
#include "StreamControl.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <limits>
#include <mutex>
#include <random>
#include <thread>
#include <vector>

namespace gigeemu {

// Frame clock, pacer and resend ring of the stream channel.
// service() does what is due and says when to come back; run() drives it on a thread.
class CGvspStreamer : public IStreamControl {
public:
    static constexpr std::int64_t kIdle = std::numeric_limits<std::int64_t>::max();

    CGvspStreamer(const SConfig& config, IPacketSink& sink, const IClock& clock, ISettingsSource& source);
    ~CGvspStreamer() override;

    std::int64_t service(std::int64_t nowNs);
    void start();
    void stop();

    void settingsChanged() override;
    void softwareTrigger(std::uint32_t selector) override;
    void fireTestPacket(const SStreamSettings& settings) override;
    void resend(std::uint32_t blockId, std::uint32_t first, std::uint32_t last) override;
    std::uint64_t timestampTicks() const override;
    void resetTimestamp() override;
    const SStreamCounters& counters() const override { return m_counters; }
    std::uint16_t sourcePort() const override { return m_sink.localPort(); }

private:
    struct SQueuedFrame {
        SFrameInfo info;
        double startNs = 0;
        std::uint32_t nextPacket = 0;
    };
    struct SResendRequest {
        std::uint16_t blockId = 0;
        std::uint32_t first = 0;
        std::uint32_t last = 0;
    };
    struct SResendItem {
        SFrameInfo info;
        std::uint32_t packetId = 0;
        bool available = true;
        std::int64_t requestNs = 0;
    };

    void run();
    void expose(const SStreamSettings& s, double atNs);
    void takeEvents(std::int64_t nowNs, const SStreamSettings& s);
    void sendDue(std::int64_t nowNs, const SStreamSettings& s);
    void flush(const SStreamSettings& s);
    std::uint64_t ticksAt(double ns) const;

    SConfig m_config;
    CLinkModel m_link;
    IPacketSink& m_sink;
    const IClock& m_clock;
    ISettingsSource& m_source;
    CPacketiser m_packetiser;
    SStreamCounters m_counters;
    std::atomic<std::int64_t> m_epochNs;

    // Shared with the control thread.
    std::mutex m_eventMutex;
    std::condition_variable m_wake;
    bool m_changed = false;
    bool m_running = false;
    std::vector<std::uint32_t> m_triggers;
    std::vector<SResendRequest> m_resendRequests;
    std::thread m_thread;

    // Stream thread only.
    std::uint32_t m_serial = 0;
    bool m_acquiring = false;
    bool m_armed = false;
    bool m_singleDone = false;
    double m_nextExposureNs = 0;
    double m_lastExposureNs = -1e30;
    double m_linkFreeNs = 0;
    // Link time lost to late wake-ups and not yet paid back.
    double m_debtNs = 0;
    std::uint16_t m_nextBlockId = 1;
    std::deque<SQueuedFrame> m_frames;
    std::deque<SFrameInfo> m_history;
    std::deque<SResendItem> m_resends;
    std::mt19937_64 m_random;
    std::uniform_real_distribution<double> m_uniform{0.0, 1.0};
    std::vector<std::vector<std::uint8_t>> m_buffers;
    std::vector<SOutPacket> m_batch;
};

} // namespace gigeemu
