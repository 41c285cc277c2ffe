#pragma once

#include "CameraModel.h"
#include "Protocol.h"
#include "StreamControl.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace gigeemu {

struct SDeviceIdentity {
    std::uint32_t ip = 0;
    std::uint32_t netmask = 0;
    std::array<std::uint8_t, 6> mac{};
    std::string xmlFileName;
};

// The device's address map: one handler per 32-bit word, with access rules and side effects.
class CRegisterSpace {
public:
    static constexpr std::uint32_t kXmlBase = 0x00100000;

    CRegisterSpace(CCameraModel& model, IStreamControl& stream, SDeviceIdentity identity,
                   std::vector<std::uint8_t> xmlBlob);

    EStatus read(std::uint32_t address, std::uint32_t& value) const;
    EStatus write(std::uint32_t address, std::uint32_t value);

    std::uint32_t heartbeatTimeoutMs() const { return m_heartbeatMs; }
    bool heartbeatDisabled() const { return (m_gvcpConfig & 1u) != 0; }
    std::uint32_t deviceIp() const { return m_identity.ip; }
    // Closing the stream channel when control is lost.
    void closeStreamChannel();
    // A control command answered, retries and discovery aside: what a host's
    // register traffic costs, readable at EmulatorControlCommands.
    void countCommand() { ++m_commands; }

private:
    void putText(std::uint32_t address, std::uint32_t size, const std::string& text);
    bool readText(std::uint32_t address, std::uint32_t& value) const;
    EStatus writeVendor(std::uint32_t address, std::uint32_t value);
    EStatus readVendor(std::uint32_t address, std::uint32_t& value) const;
    EStatus writeTriggered(std::uint32_t address, std::uint32_t value);

    CCameraModel& m_model;
    IStreamControl& m_stream;
    SDeviceIdentity m_identity;
    std::vector<std::uint8_t> m_xml;
    std::vector<std::uint8_t> m_text;
    std::uint32_t m_ipConfig = 0x6;
    std::uint32_t m_persistentIp = 0;
    std::uint32_t m_persistentMask = 0;
    std::uint32_t m_persistentGateway = 0;
    std::uint32_t m_heartbeatMs;
    std::uint32_t m_commands = 0;
    std::uint32_t m_gvcpConfig = 0;
    std::uint64_t m_latched = 0;
    std::uint32_t m_scpsExtra = 0;
    std::uint32_t m_sccfg = 0;
};

} // namespace gigeemu
