#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

// Frame and byte rate over a sliding window of recent images.
// addSample runs on one grab thread without locking or allocating;
// computeResult may run on another thread at the same time.
//
// Window: the images of the last second (kWindowNs), but no more than the
// last kCapacity images; above kCapacity images per second the window
// shrinks to the time those images span. The rate is the number of images
// in the window divided by the window's length, measured up to now, so a
// stream that stops decays to 0 within one window. Right after a reset the
// window starts at the first image. Until two images have arrived since
// construction or the last reset there is nothing to average.
//
// Threads: exactly one thread may call addSample at a time (the grab
// thread); computeResult and reset may run on any other single thread
// meanwhile. reset only moves the reader's start marker, so it never writes
// what addSample writes.
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
    // Sample i lives in slot i % kCapacity. m_begun is raised before a slot
    // is overwritten and m_count after it is complete, so a reader can tell
    // which of the slots it copied were overwritten meanwhile.
    std::atomic<std::uint64_t> m_begun{0};
    std::atomic<std::uint64_t> m_count{0};
    // Index of the first sample after the last reset; written by the reader side only.
    std::atomic<std::uint64_t> m_resetAt{0};
};
