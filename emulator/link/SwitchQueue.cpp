#include "SwitchQueue.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace bwm::link {

CSwitchQueue::CSwitchQueue(const SSwitchQueueConfig& config)
    : m_config(config)
    , m_store(config.storeBytes ? config.storeBytes
                                : config.capacityBytes + (8u << 20) + 2 * config.maxFrameBytes)
{
}

std::int64_t CSwitchQueue::wireTimeNs(std::size_t frameBytes) const
{
    const unsigned __int128 bits = (frameBytes + m_config.overheadBytes) * 8u;
    const unsigned __int128 rate = m_config.rateBitsPerSecond;
    return static_cast<std::int64_t>((bits * 1000000000u + rate - 1) / rate);
}

void CSwitchQueue::retireUntil(std::int64_t ns)
{
    while (m_retired < m_entries.size() && m_entries[m_retired].dueNs <= ns) {
        m_backlogBytes -= m_entries[m_retired].size;
        ++m_retired;
    }
}

bool CSwitchQueue::reserve(std::size_t size, std::size_t& offset) const
{
    if (m_entries.empty()) {
        offset = 0;
        return size <= m_store.size();
    }
    const std::size_t head = m_entries.front().offset;
    if (m_tail >= head) {
        if (m_tail + size <= m_store.size()) {
            offset = m_tail;
            return true;
        }
        offset = 0;
        return size < head;
    }
    offset = m_tail;
    return m_tail + size < head;
}

CSwitchQueue::EPush CSwitchQueue::push(const std::uint8_t* data, std::size_t size,
                                       std::int64_t arrivalNs)
{
    if (size > m_config.maxFrameBytes)
        return EPush::DroppedTooBig;
    // Stamps from different CPUs can step back a little; time never does.
    arrivalNs = std::max(arrivalNs, m_lastArrivalNs);
    m_lastArrivalNs = arrivalNs;
    retireUntil(arrivalNs);
    if (m_backlogBytes + size > m_config.capacityBytes)
        return EPush::DroppedFull;
    std::size_t offset = 0;
    if (!reserve(size, offset))
        return EPush::DroppedOverrun;
    std::memcpy(m_store.data() + offset, data, size);
    m_tail = offset + size;
    const std::int64_t start = std::max(m_wireFreeNs, arrivalNs);
    m_wireFreeNs = start + wireTimeNs(size);
    m_entries.push_back({offset, size, m_wireFreeNs});
    m_backlogBytes += size;
    return EPush::Queued;
}

SQueuedFrame CSwitchQueue::front() const
{
    const SEntry& e = m_entries.front();
    return {m_store.data() + e.offset, e.size, e.dueNs};
}

void CSwitchQueue::pop()
{
    if (m_retired > 0)
        --m_retired;
    else
        m_backlogBytes -= m_entries.front().size;
    m_entries.pop_front();
    if (m_entries.empty())
        m_tail = 0;
}

std::int64_t CSwitchQueue::nextDueNs() const
{
    return m_entries.empty() ? std::numeric_limits<std::int64_t>::max()
                             : m_entries.front().dueNs;
}

} // namespace bwm::link
