#pragma once

#include "Clock.h"
#include "Protocol.h"
#include "RegisterSpace.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace gigeemu {

struct SPeer {
    std::uint32_t ip = 0;
    std::uint16_t port = 0;
    bool operator==(const SPeer& o) const { return ip == o.ip && port == o.port; }
};

struct SGvcpReply {
    std::vector<std::uint8_t> bytes;
    SPeer to;
};

// Decodes control commands, enforces privilege and heartbeat, and builds the acks.
class CGvcpHandler {
public:
    CGvcpHandler(CRegisterSpace& registers, IStreamControl& stream, const IClock& clock);

    // viaBroadcast: the datagram reached a broadcast socket, where only discovery is honoured.
    std::optional<SGvcpReply> handle(const std::uint8_t* data, std::size_t size, SPeer from, bool viaBroadcast);
    // Releases control when the heartbeat has expired.
    void checkHeartbeat();
    // When checkHeartbeat next has something to do; -1 when nothing is pending.
    std::int64_t nextDeadlineNs() const;

    bool hasPrimary() const { return m_ccp != 0; }
    SPeer primary() const { return m_primary; }

private:
    std::optional<SGvcpReply> execute(std::uint16_t command, std::uint8_t flags, const std::uint8_t* body,
                                      std::size_t length, std::uint16_t reqId, SPeer from);
    std::vector<std::uint8_t> ack(std::uint16_t status, std::uint16_t command, std::uint16_t reqId,
                                  const std::vector<std::uint8_t>& body) const;
    std::vector<std::uint8_t> discoveryBody() const;
    EStatus readWord(std::uint32_t address, std::uint32_t& value, SPeer from) const;
    EStatus writeWord(std::uint32_t address, std::uint32_t value, SPeer from);
    EStatus writeControl(std::uint32_t value, SPeer from);
    void release();
    void handleResend(std::uint8_t flags, const std::uint8_t* body, std::size_t length);

    CRegisterSpace& m_registers;
    IStreamControl& m_stream;
    const IClock& m_clock;
    std::uint32_t m_ccp = 0;
    SPeer m_primary;
    std::int64_t m_lastHeardNs = 0;

    struct SLastCommand {
        SPeer from;
        std::uint16_t reqId = 0;
        std::uint16_t command = 0;
        std::optional<SGvcpReply> reply;
        bool valid = false;
    } m_last;
};

} // namespace gigeemu
