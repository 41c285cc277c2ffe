#pragma once

#include <cstddef>
#include <cstdint>

namespace gigeemu {

constexpr std::uint16_t kGvcpPort = 3956;
constexpr std::uint8_t kGvcpKey = 0x42;
constexpr std::uint8_t kFlagAckRequired = 0x01;
constexpr std::uint8_t kFlagBroadcastAck = 0x10;
constexpr std::size_t kGvcpHeaderSize = 8;
constexpr std::size_t kGvcpMaxDatagram = 576;
constexpr std::uint32_t kMaxMemCount = 536;
constexpr std::uint32_t kMaxReadRegs = 135;
constexpr std::uint32_t kMaxWriteRegs = 67;

enum ECommand : std::uint16_t {
    eDiscoveryCmd = 0x0002,
    ePacketResendCmd = 0x0040,
    eReadRegCmd = 0x0080,
    eWriteRegCmd = 0x0082,
    eReadMemCmd = 0x0084,
    eWriteMemCmd = 0x0086,
};

enum EStatus : std::uint16_t {
    eSuccess = 0x0000,
    eNotImplemented = 0x8001,
    eInvalidParameter = 0x8002,
    eInvalidAddress = 0x8003,
    eWriteProtect = 0x8004,
    eBadAlignment = 0x8005,
    eAccessDenied = 0x8006,
    ePacketUnavailable = 0x800C,
    eInvalidHeader = 0x800E,
};

enum EGvspFormat : std::uint8_t {
    eLeader = 1,
    eTrailer = 2,
    ePayload = 3,
};

// IP + UDP + GVSP headers in front of every stream payload.
constexpr std::uint32_t kGvspOverhead = 36;
constexpr std::uint32_t kIpUdpOverhead = 28;
constexpr std::uint32_t kLeaderIpSize = 72;
constexpr std::uint32_t kTrailerIpSize = 44;

} // namespace gigeemu
