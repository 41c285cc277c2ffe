#pragma once

#include "Bytes.h"
#include "CameraModel.h"
#include "Clock.h"
#include "PacketSink.h"
#include "SettingsSource.h"

#include <cerrno>
#include <cstdint>
#include <vector>

namespace gigeemu::test {

class CFakeClock : public IClock {
public:
    std::int64_t nowNs() const override { return m_now; }
    void advanceMs(std::int64_t ms) { m_now += ms * 1000000; }
    std::int64_t m_now = 1000000000;
};

struct SSentPacket {
    std::int64_t atNs;
    std::vector<std::uint8_t> bytes;
    std::uint32_t ip;
    std::uint16_t port;
};

// Records what would have left; datagrams above mtu fail as a DF send would.
class CRecordingSink : public IPacketSink {
public:
    explicit CRecordingSink(const IClock& clock, std::size_t mtu = 65535) : m_clock(clock), m_mtu(mtu) {}
    void send(SOutPacket* packets, std::size_t count, bool) override
    {
        for (std::size_t i = 0; i < count; ++i) {
            if (packets[i].size + 28 > m_mtu) {
                packets[i].error = EMSGSIZE;
                continue;
            }
            packets[i].error = 0;
            m_sent.push_back({m_clock.nowNs(), {packets[i].data, packets[i].data + packets[i].size},
                              packets[i].ip, packets[i].port});
        }
    }
    std::uint16_t localPort() const override { return 40000; }

    const IClock& m_clock;
    std::size_t m_mtu;
    std::vector<SSentPacket> m_sent;
};

// The device lock is not needed where one thread drives everything.
class CModelSource : public ISettingsSource {
public:
    explicit CModelSource(CCameraModel& model) : m_model(model) {}
    SStreamSettings streamSettings() override { return m_model.streamSettings(); }
    void acquisitionDone(std::uint32_t) override { m_model.stopAcquisition(); }
    CCameraModel& m_model;
};

inline std::vector<std::uint8_t> gvcpCommand(std::uint16_t command, std::uint16_t reqId,
                                             const std::vector<std::uint32_t>& words, std::uint8_t flags = 0x01)
{
    std::vector<std::uint8_t> out(8 + 4 * words.size());
    out[0] = 0x42;
    out[1] = flags;
    putBe16(&out[2], command);
    putBe16(&out[4], std::uint16_t(4 * words.size()));
    putBe16(&out[6], reqId);
    for (std::size_t i = 0; i < words.size(); ++i)
        putBe32(&out[8 + 4 * i], words[i]);
    return out;
}

} // namespace gigeemu::test
