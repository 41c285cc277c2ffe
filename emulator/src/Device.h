#pragma once

#include "CameraModel.h"
#include "Clock.h"
#include "GvcpHandler.h"
#include "GvspStreamer.h"
#include "RegisterSpace.h"
#include "SettingsSource.h"

#include <memory>
#include <mutex>

namespace gigeemu {

// One emulated camera: its state behind one lock, shared by the control and the stream thread.
class CDevice : public ISettingsSource {
public:
    CDevice(const SConfig& config, const SDeviceIdentity& identity, std::vector<std::uint8_t> xmlBlob,
            IPacketSink& sink, const IClock& clock);
    ~CDevice() override;

    std::optional<SGvcpReply> handle(const std::uint8_t* data, std::size_t size, SPeer from, bool viaBroadcast);
    void checkHeartbeat();
    std::int64_t nextDeadlineNs();

    void startStreaming() { m_streamer.start(); }
    void stopStreaming() { m_streamer.stop(); }
    const SStreamCounters& counters() const { return m_streamer.counters(); }

    SStreamSettings streamSettings() override;
    void acquisitionDone(std::uint32_t acquisitionSerial) override;

private:
    std::mutex m_mutex;
    CCameraModel m_model;
    CGvspStreamer m_streamer;
    CRegisterSpace m_registers;
    CGvcpHandler m_handler;
};

} // namespace gigeemu
