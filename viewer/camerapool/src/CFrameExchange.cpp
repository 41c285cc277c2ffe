#include <camerapool/CFrameExchange.h>

#include <cstring>

namespace CameraPool {

void CFrameExchange::reset(size_t capacity)
{
    for (SFrame& slot : m_slots) {
        slot.data.assign(capacity, 0);
        slot.size = 0;
    }
    m_writeSlot = 0;
    m_readSlot = 1;
    m_middle.store(2);
}

void CFrameExchange::publish(const void* data, size_t size, int width, int height, quint32 pixelFormat)
{
    SFrame& slot = m_slots[m_writeSlot];
    if (size > slot.data.size())
        size = slot.data.size();
    std::memcpy(slot.data.data(), data, size);
    slot.size = size;
    slot.width = width;
    slot.height = height;
    slot.pixelFormat = pixelFormat;
    m_writeSlot = m_middle.exchange(m_writeSlot | FreshBit, std::memory_order_acq_rel) & 3;
}

const CFrameExchange::SFrame* CFrameExchange::takeLatest()
{
    if (!(m_middle.load(std::memory_order_acquire) & FreshBit))
        return nullptr;
    m_readSlot = m_middle.exchange(m_readSlot, std::memory_order_acq_rel) & 3;
    return &m_slots[m_readSlot];
}

} // namespace CameraPool
