#include <Utilities/FpsStatistic.h>

#include <algorithm>
#include <chrono>

namespace {

std::int64_t steadyNow()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

} // namespace

FpsStatistic::FpsStatistic() : FpsStatistic(&steadyNow) {}

FpsStatistic::FpsStatistic(Clock clock) : m_clock(clock ? clock : &steadyNow) {}

void FpsStatistic::addSample(size_t bytes)
{
    // Single writer: nobody else stores m_count, so a relaxed load is exact.
    const std::uint64_t index = m_count.load(std::memory_order_relaxed);
    m_begun.store(index + 1, std::memory_order_relaxed);
    // Release: a reader that sees either new value also sees m_begun raised.
    SSlot& slot = m_slots[index % kCapacity];
    slot.time.store(m_clock(), std::memory_order_release);
    slot.bytes.store(bytes, std::memory_order_release);
    m_count.store(index + 1, std::memory_order_release);
}

void FpsStatistic::computeResult(double& fps, size_t& bytesPerSecond) const
{
    fps = -1.0;
    bytesPerSecond = 0;

    const std::uint64_t count = m_count.load(std::memory_order_acquire);
    const std::uint64_t resetAt = m_resetAt.load(std::memory_order_relaxed);
    // Read after count, so every sample below count is at or before now.
    const std::int64_t now = m_clock();
    if (count < resetAt + 2)
        return;

    std::uint64_t first = std::max(resetAt, count > std::uint64_t(kCapacity) ? count - kCapacity : 0);
    std::int64_t times[kCapacity];
    std::uint64_t sizes[kCapacity];
    const std::uint64_t copied = count - first;
    for (std::uint64_t i = 0; i < copied; ++i) {
        const SSlot& slot = m_slots[(first + i) % kCapacity];
        times[i] = slot.time.load(std::memory_order_acquire);
        sizes[i] = slot.bytes.load(std::memory_order_acquire);
    }
    // Any slot the writer began to overwrite while we copied shows up here.
    const std::uint64_t begun = m_begun.load(std::memory_order_relaxed);
    const std::uint64_t overwritten = begun > std::uint64_t(kCapacity) ? begun - kCapacity : 0;
    std::uint64_t skip = overwritten > first ? overwritten - first : 0;
    if (skip >= copied)
        return;

    const std::int64_t windowStart = now - kWindowNs;
    std::int64_t start = windowStart;
    std::uint64_t images = 0;
    std::uint64_t bytes = 0;
    bool reachedWindowStart = false;
    for (std::uint64_t i = copied; i-- > skip;) {
        if (times[i] <= windowStart) {
            reachedWindowStart = true;
            break;
        }
        ++images;
        bytes += sizes[i];
    }
    if (!reachedWindowStart) {
        // The oldest usable image opens the window and is not counted in it.
        start = times[skip];
        --images;
        bytes -= sizes[skip];
    }

    const std::int64_t span = now - start;
    if (span <= 0) {
        fps = 0.0;
        return;
    }
    const double seconds = double(span) / 1e9;
    fps = double(images) / seconds;
    bytesPerSecond = size_t(double(bytes) / seconds);
}

void FpsStatistic::reset()
{
    m_resetAt.store(m_count.load(std::memory_order_acquire), std::memory_order_relaxed);
}
