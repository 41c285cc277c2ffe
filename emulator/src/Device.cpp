#include "Device.h"

namespace gigeemu {

CDevice::CDevice(const SConfig& config, const SDeviceIdentity& identity, std::vector<std::uint8_t> xmlBlob,
                 IPacketSink& sink, const IClock& clock)
    : m_model(config)
    , m_streamer(config, sink, clock, *this)
    , m_registers(m_model, m_streamer, identity, std::move(xmlBlob))
    , m_handler(m_registers, m_streamer, clock)
{
}

CDevice::~CDevice()
{
    m_streamer.stop();
}

std::optional<SGvcpReply> CDevice::handle(const std::uint8_t* data, std::size_t size, SPeer from, bool viaBroadcast)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_handler.handle(data, size, from, viaBroadcast);
}

void CDevice::checkHeartbeat()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_handler.checkHeartbeat();
}

std::int64_t CDevice::nextDeadlineNs()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_handler.nextDeadlineNs();
}

SStreamSettings CDevice::streamSettings()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_model.streamSettings();
}

void CDevice::acquisitionDone(std::uint32_t acquisitionSerial)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_model.acquisitionSerial() == acquisitionSerial)
        m_model.stopAcquisition();
}

} // namespace gigeemu
