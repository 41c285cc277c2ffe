#pragma once

#include "Config.h"
#include "LinkModel.h"
#include "Protocol.h"
#include "StreamSettings.h"

#include <cstdint>

namespace gigeemu {

// Feature state of one camera and the rates computed from it.
class CCameraModel {
public:
    explicit CCameraModel(const SConfig& config);

    enum ETrigger : std::uint32_t { eFrameStart = 0, eAcquisitionStart = 1 };

    const SConfig& config() const { return m_config; }
    const CLinkModel& link() const { return m_link; }

    std::uint32_t width() const { return m_width; }
    std::uint32_t height() const { return m_height; }
    std::uint32_t pixelFormat() const { return m_pixelFormat; }
    std::uint32_t payloadSize() const;
    std::uint32_t packetSize() const { return m_packetSize; }
    bool doNotFragment() const { return m_doNotFragment; }
    std::uint64_t scpd() const { return m_scpd; }
    std::uint64_t scpdMax() const { return m_config.tickHz / 100; }
    std::uint64_t ftd() const { return m_ftd; }
    bool frameRateEnabled() const { return m_frameRateEnable; }
    float frameRate() const { return m_frameRate; }
    std::uint32_t acquisitionMode() const { return m_acquisitionMode; }
    bool acquiring() const { return m_acquiring; }
    std::uint32_t acquisitionSerial() const { return m_acquisitionSerial; }
    std::uint32_t triggerSelector() const { return m_triggerSelector; }
    std::uint32_t triggerMode(std::uint32_t selector) const { return m_triggerMode[selector & 1]; }
    std::uint32_t triggerSource(std::uint32_t selector) const { return m_triggerSource[selector & 1]; }
    bool limitMode() const { return m_limitMode; }
    std::uint64_t limit() const { return m_limit; }
    std::uint64_t limitMax() const { return std::uint64_t(m_config.linkMbps) * 125000; }

    double sensorFrameRate() const;
    double linkFrameRate() const;
    double resultingFrameRate() const;
    std::uint64_t deviceThroughput() const;

    EStatus setWidth(std::uint32_t v);
    EStatus setHeight(std::uint32_t v);
    EStatus setPixelFormat(std::uint32_t v);
    EStatus setPacketSize(std::uint32_t v);
    void setDoNotFragment(bool on) { m_doNotFragment = on; }
    EStatus setScpd(std::uint32_t v);
    EStatus setFtd(std::uint32_t v);
    EStatus setFrameRateEnable(std::uint32_t v);
    EStatus setFrameRate(float v);
    EStatus setAcquisitionMode(std::uint32_t v);
    EStatus setTriggerSelector(std::uint32_t v);
    EStatus setTriggerMode(std::uint32_t selector, std::uint32_t v);
    EStatus setTriggerSource(std::uint32_t selector, std::uint32_t v);
    EStatus setLimitMode(std::uint32_t v);
    EStatus setLimit(std::uint32_t v);
    std::uint16_t hostPort() const { return m_hostPort; }
    void setHostPort(std::uint16_t port) { m_hostPort = port; }
    std::uint32_t destination() const { return m_destination; }
    void setDestination(std::uint32_t ip) { m_destination = ip; }
    void startAcquisition();
    void stopAcquisition() { m_acquiring = false; }

    SStreamSettings streamSettings() const;

private:
    EStatus fit(std::uint64_t v, std::uint64_t lo, std::uint64_t hi, std::uint64_t inc, bool down,
                std::uint64_t& out) const;
    bool imageFormatLocked() const { return m_acquiring; }
    void deriveScpd();

    SConfig m_config;
    CLinkModel m_link;
    std::uint32_t m_width;
    std::uint32_t m_height;
    std::uint32_t m_pixelFormat;
    std::uint32_t m_packetSize;
    bool m_doNotFragment = false;
    std::uint64_t m_scpd = 0;
    std::uint64_t m_ftd = 0;
    bool m_frameRateEnable = true;
    float m_frameRate;
    std::uint32_t m_acquisitionMode = 0;
    bool m_acquiring = false;
    std::uint32_t m_acquisitionSerial = 0;
    std::uint32_t m_triggerSelector = 0;
    std::uint32_t m_triggerMode[2] = {0, 0};
    std::uint32_t m_triggerSource[2] = {1, 1};
    bool m_limitMode = false;
    std::uint64_t m_limit;
    std::uint16_t m_hostPort = 0;
    std::uint32_t m_destination = 0;
};

} // namespace gigeemu
