#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace bwm::link {

struct SSwitchQueueConfig
{
    std::uint64_t rateBitsPerSecond = 1000000000;
    std::size_t capacityBytes = 256 * 1024;
    // Preamble 8, FCS 4 and inter-frame gap 12: the captured frame lacks them.
    std::size_t overheadBytes = 24;
    std::size_t maxFrameBytes = 9216 + 18;
    // Holds what the modelled switch has sent but the pump has not yet
    // written; 0 leaves room for 8 MiB beyond the buffer.
    std::size_t storeBytes = 0;
};

struct SQueuedFrame
{
    const std::uint8_t* data;
    std::size_t size;
    std::int64_t dueNs;
};

// The switch port that feeds the host adapter: a drop-tail queue of
// capacityBytes, drained at the link rate. Every time is passed in by the
// caller, so the model follows the frames' arrival stamps rather than the
// moment the pump got round to them.
class CSwitchQueue
{
public:
    enum class EPush { Queued, DroppedFull, DroppedOverrun, DroppedTooBig };

    explicit CSwitchQueue(const SSwitchQueueConfig& config);

    EPush push(const std::uint8_t* data, std::size_t size, std::int64_t arrivalNs);

    bool empty() const { return m_entries.empty(); }
    std::size_t size() const { return m_entries.size(); }
    // Frame that leaves next; only valid while !empty().
    SQueuedFrame front() const;
    void pop();
    // INT64_MAX when empty.
    std::int64_t nextDueNs() const;

    // Bytes the modelled switch holds at the last arrival: frames not yet
    // fully on the wire, the one being sent included.
    std::size_t backlogBytes() const { return m_backlogBytes; }
    std::int64_t wireTimeNs(std::size_t frameBytes) const;

private:
    struct SEntry
    {
        std::size_t offset;
        std::size_t size;
        std::int64_t dueNs;
    };

    void retireUntil(std::int64_t ns);
    bool reserve(std::size_t size, std::size_t& offset) const;

    SSwitchQueueConfig m_config;
    std::vector<std::uint8_t> m_store;
    std::size_t m_tail = 0;
    std::deque<SEntry> m_entries;
    // Leading entries already sent in the model but not yet handed to the host.
    std::size_t m_retired = 0;
    std::size_t m_backlogBytes = 0;
    std::int64_t m_lastArrivalNs = INT64_MIN;
    std::int64_t m_wireFreeNs = INT64_MIN;
};

} // namespace bwm::link
