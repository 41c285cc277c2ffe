#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

// Frame and byte rate over a sliding window of recent images.
// addSample runs on one grab thread without locking or allocating;
// computeResult may run on another thread at the same time.
class FpsStatistic
{
public:
    // Monotonic time in nanoseconds; replaceable for tests.
    using Clock = std::int64_t (*)();

    FpsStatistic();
    explicit FpsStatistic(Clock clock);
    FpsStatistic(const FpsStatistic&) = delete;
    FpsStatistic& operator=(const FpsStatistic&) = delete;

    void addSample(size_t bytes);
    // fps -1.0 and 0 bytes per second until there is something to average.
    void computeResult(double& fps, size_t& bytesPerSecond) const;
    void reset();

    static constexpr int kCapacity = 256;
    static constexpr std::int64_t kWindowNs = 1000000000;

private:
    struct SSlot
    {
        std::atomic<std::int64_t> time{0};
        std::atomic<std::uint64_t> bytes{0};
    };

    Clock m_clock;
    SSlot m_slots[kCapacity];
    std::atomic<std::uint64_t> m_count{0};
    std::atomic<std::uint64_t> m_resetAt{0};
};
