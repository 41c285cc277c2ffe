#include "LinkPump.h"

#include <poll.h>
#include <time.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>

namespace bwm::link {
namespace {

std::int64_t clockNs(clockid_t id)
{
    timespec ts{};
    clock_gettime(id, &ts);
    return static_cast<std::int64_t>(ts.tv_sec) * 1000000000 + ts.tv_nsec;
}

constexpr std::int64_t kStatsPeriodNs = 200000000;
// Bounds one turn of the loop so neither direction starves the other.
constexpr std::size_t kCaptureBatch = 512;

} // namespace

CLinkPump::CLinkPump(const SLinkPumpConfig& config)
    : m_config(config)
    , m_tap(config.tapName)
    , m_ring(config.vethName, config.queue.maxFrameBytes, config.ringBytes)
    , m_queue(config.queue)
    , m_hostFrame(65536)
{
}

void CLinkPump::captureFromCameras(std::int64_t realToMonoNs, std::int64_t nowNs)
{
    m_ring.drain(
        [&](const SCapturedFrame& frame) {
            if (frame.size < frame.wireSize) {
                ++m_stats.framesTooBig;
                return;
            }
            switch (m_queue.push(frame.data, frame.size, frame.stampNs - realToMonoNs)) {
            case CSwitchQueue::EPush::Queued:
                m_stats.maxBacklogBytes =
                    std::max<std::uint64_t>(m_stats.maxBacklogBytes, m_queue.backlogBytes());
                // A batch read late is already partly due; sending it now keeps
                // the store from filling with frames the switch has sent.
                if (m_queue.nextDueNs() <= nowNs)
                    deliverDue(nowNs);
                break;
            case CSwitchQueue::EPush::DroppedFull:
                ++m_stats.framesDropped;
                m_stats.bytesDropped += frame.size;
                break;
            case CSwitchQueue::EPush::DroppedOverrun:
                ++m_stats.framesOverrun;
                break;
            case CSwitchQueue::EPush::DroppedTooBig:
                ++m_stats.framesTooBig;
                break;
            }
        },
        kCaptureBatch);
}

void CLinkPump::deliverDue(std::int64_t nowNs)
{
    while (!m_queue.empty() && m_queue.nextDueNs() <= nowNs) {
        const SQueuedFrame frame = m_queue.front();
        if (m_tap.write(frame.data, frame.size)) {
            ++m_stats.framesToHost;
            m_stats.bytesToHost += frame.size;
        } else {
            ++m_stats.hostWriteErrors;
        }
        m_queue.pop();
    }
}

void CLinkPump::forwardFromHost()
{
    for (int i = 0; i < 64; ++i) {
        const std::size_t n = m_tap.read(m_hostFrame.data(), m_hostFrame.size());
        if (n == 0)
            return;
        if (m_ring.send(m_hostFrame.data(), n))
            ++m_stats.framesToCameras;
    }
}

void CLinkPump::writeStatsFile() const
{
    if (m_config.statsFile.empty())
        return;
    const std::string tmp = m_config.statsFile + ".tmp";
    {
        std::ofstream out(tmp, std::ios::trunc);
        out << m_stats.format() << '\n';
    }
    std::rename(tmp.c_str(), m_config.statsFile.c_str());
}

void CLinkPump::run(volatile std::sig_atomic_t* stop, volatile std::sig_atomic_t* report,
                    const sigset_t& waitMask)
{
    pollfd fds[2] = {{m_ring.fd(), POLLIN, 0}, {m_tap.fd(), POLLIN, 0}};
    std::int64_t nextStats = clockNs(CLOCK_MONOTONIC);
    while (!*stop) {
        std::int64_t now = clockNs(CLOCK_MONOTONIC);
        captureFromCameras(clockNs(CLOCK_REALTIME) - now, now);
        now = clockNs(CLOCK_MONOTONIC);
        deliverDue(now);
        if (fds[1].revents & POLLIN)
            forwardFromHost();

        if (now >= nextStats || *report) {
            m_stats.framesRingDropped += m_ring.takeDrops();
            m_stats.takenAtNs = now;
            writeStatsFile();
            if (*report)
                std::cerr << m_stats.format() << std::endl;
            *report = 0;
            nextStats = now + kStatsPeriodNs;
        }

        now = clockNs(CLOCK_MONOTONIC);
        // While frames wait, wake on a timer only, like an adapter's interrupt
        // coalescing: a wake-up per frame costs more than the frame itself, and
        // the arrival stamps keep the model exact however late the ring is read.
        const bool busy = !m_queue.empty();
        fds[0].events = busy ? 0 : POLLIN;
        const std::int64_t due =
            busy ? std::max(m_queue.nextDueNs(), now + m_config.coalesceNs) : nextStats;
        const std::int64_t wake = std::min(due, nextStats);
        const std::int64_t wait = std::max<std::int64_t>(wake - now, 0);
        const timespec timeout{static_cast<time_t>(wait / 1000000000),
                               static_cast<long>(wait % 1000000000)};
        fds[1].revents = 0;
        ::ppoll(fds, 2, &timeout, &waitMask);
    }
    m_stats.framesRingDropped += m_ring.takeDrops();
    m_stats.takenAtNs = clockNs(CLOCK_MONOTONIC);
    writeStatsFile();
}

} // namespace bwm::link
