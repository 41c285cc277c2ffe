#include "RegisterSpace.h"

#include "Bytes.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace gigeemu {

namespace {
// Text registers live in one byte array from the vendor name to the second URL.
constexpr std::uint32_t kTextBase = 0x0048;
constexpr std::uint32_t kTextEnd = 0x0600;
constexpr std::uint32_t kUserNameAddress = 0x00E8;
constexpr std::uint32_t kUserNameEnd = 0x00F8;
constexpr std::uint32_t kFirstUrlAddress = 0x0200;
constexpr std::uint32_t kBootstrapEnd = 0xA000;
constexpr std::uint32_t kFireTestPacket = 1u << 31;
constexpr std::uint32_t kDoNotFragment = 1u << 30;
constexpr std::uint32_t kScpsKnown = kDoNotFragment;
constexpr std::uint32_t kSccfgKnown = 0;

std::uint32_t floatBits(float f)
{
    std::uint32_t u = 0;
    std::memcpy(&u, &f, 4);
    return u;
}

float bitsFloat(std::uint32_t u)
{
    float f = 0;
    std::memcpy(&f, &u, 4);
    return f;
}

std::string hex(std::uint64_t v)
{
    char buf[20];
    std::snprintf(buf, sizeof buf, "%llx", static_cast<unsigned long long>(v));
    return buf;
}
} // namespace

CRegisterSpace::CRegisterSpace(CCameraModel& model, IStreamControl& stream, SDeviceIdentity identity,
                               std::vector<std::uint8_t> xmlBlob)
    : m_model(model)
    , m_stream(stream)
    , m_identity(std::move(identity))
    , m_xml(std::move(xmlBlob))
    , m_text(kTextEnd - kTextBase, 0)
    , m_heartbeatMs(model.config().heartbeatMs)
{
    const SConfig& c = model.config();
    putText(0x0048, 32, c.vendor);
    putText(0x0068, 32, c.model);
    putText(0x0088, 32, "1.0.0");
    putText(0x00A8, 48, "gige-emulator");
    putText(0x00D8, 16, c.serial);
    putText(kUserNameAddress, 16, c.userId);
    putText(kFirstUrlAddress, 512,
            "Local:" + m_identity.xmlFileName + ";" + hex(kXmlBase) + ";" + hex(m_xml.size()));
}

void CRegisterSpace::putText(std::uint32_t address, std::uint32_t size, const std::string& text)
{
    std::uint8_t* p = &m_text[address - kTextBase];
    std::memset(p, 0, size);
    std::memcpy(p, text.data(), std::min<std::size_t>(text.size(), size - 1));
}

bool CRegisterSpace::readText(std::uint32_t address, std::uint32_t& value) const
{
    if (address < kTextBase || address >= kTextEnd || (address >= kUserNameEnd && address < kFirstUrlAddress))
        return false;
    value = getBe32(&m_text[address - kTextBase]);
    return true;
}

EStatus CRegisterSpace::read(std::uint32_t address, std::uint32_t& value) const
{
    if (address % 4 != 0)
        return eBadAlignment;
    if (readText(address, value))
        return eSuccess;
    if (address >= kXmlBase) {
        // The last block of the description is read rounded up; beyond it there is nothing.
        const std::uint64_t offset = address - kXmlBase;
        if (offset >= ((m_xml.size() + 511) & ~std::size_t(511)))
            return eInvalidAddress;
        value = 0;
        for (std::uint64_t i = 0; i < 4; ++i)
            value = (value << 8) | (offset + i < m_xml.size() ? m_xml[offset + i] : 0);
        return eSuccess;
    }
    if (address >= kBootstrapEnd)
        return readVendor(address, value);
    const SConfig& c = m_model.config();
    switch (address) {
    case 0x0000: value = 0x00010002; break;
    case 0x0004: value = 0x80000001; break;
    case 0x0008: value = (std::uint32_t(m_identity.mac[0]) << 8) | m_identity.mac[1]; break;
    case 0x000C: value = getBe32(&m_identity.mac[2]); break;
    case 0x0010: value = 0x7; break;
    case 0x0014: value = m_ipConfig; break;
    case 0x0024: value = m_identity.ip; break;
    case 0x0034: value = m_identity.netmask; break;
    case 0x0044: value = 0; break;
    case 0x0600: value = 1; break;
    case 0x064C: value = m_persistentIp; break;
    case 0x065C: value = m_persistentMask; break;
    case 0x066C: value = m_persistentGateway; break;
    case 0x0670: value = c.linkMbps; break;
    case 0x0900: value = 0; break;
    case 0x0904: value = 1; break;
    case 0x0910: value = 1; break;
    case 0x092C: value = 0xC0000000; break;
    case 0x0934: value = c.resend ? 0xF8000007 : 0xF8000003; break;
    case 0x0938: value = m_heartbeatMs; break;
    case 0x093C: value = std::uint32_t(c.tickHz >> 32); break;
    case 0x0940: value = std::uint32_t(c.tickHz); break;
    case 0x0944: value = 0; break;
    case 0x0948: value = std::uint32_t(m_latched >> 32); break;
    case 0x094C: value = std::uint32_t(m_latched); break;
    case 0x0954: value = m_gvcpConfig; break;
    case 0x0958: value = 100; break;
    case 0x0D00: value = m_model.hostPort(); break;
    case 0x0D04: value = m_model.packetSize() | (m_model.doNotFragment() ? kDoNotFragment : 0) | m_scpsExtra; break;
    case 0x0D08: value = std::uint32_t(m_model.scpd()); break;
    case 0x0D18: value = m_model.destination(); break;
    case 0x0D1C: value = m_stream.sourcePort(); break;
    case 0x0D20: value = 0; break;
    case 0x0D24: value = m_sccfg; break;
    default: return eInvalidAddress;
    }
    return eSuccess;
}

EStatus CRegisterSpace::readVendor(std::uint32_t address, std::uint32_t& value) const
{
    const CCameraModel& m = m_model;
    const SConfig& c = m.config();
    const SStreamCounters& n = m_stream.counters();
    const std::uint32_t sel = m.triggerSelector();
    switch (address) {
    case 0xA000: value = m.width(); break;
    case 0xA004: value = m.height(); break;
    case 0xA008: value = m.pixelFormat(); break;
    case 0xA00C: value = m.payloadSize(); break;
    case 0xA010: value = c.sensorWidth; break;
    case 0xA014: value = c.sensorHeight; break;
    case 0xA100: value = m.acquisitionMode(); break;
    case 0xA104:
    case 0xA108:
    case 0xA220: value = 0; break;
    case 0xA10C: value = m.frameRateEnabled() ? 1 : 0; break;
    case 0xA110: value = floatBits(m.frameRate()); break;
    case 0xA114: value = floatBits(float(m.sensorFrameRate())); break;
    case 0xA118: value = floatBits(float(m.resultingFrameRate())); break;
    case 0xA200: value = sel; break;
    case 0xA204: value = m.triggerMode(0); break;
    case 0xA214: value = m.triggerMode(1); break;
    case 0xA208: value = m.triggerSource(0); break;
    case 0xA218: value = m.triggerSource(1); break;
    case 0xA300: value = std::uint32_t(m.ftd()); break;
    case 0xA304: value = std::uint32_t(m.deviceThroughput()); break;
    case 0xA400: value = 0; break;
    case 0xA404:
        if (!c.throughputLimit)
            return eInvalidAddress;
        value = m.limitMode() ? 1 : 0;
        break;
    case 0xA408:
        if (!c.throughputLimit)
            return eInvalidAddress;
        value = std::uint32_t(m.limit());
        break;
    case 0xA500: value = n.frames; break;
    case 0xA504: value = n.packets; break;
    case 0xA508: value = n.droppedForSize; break;
    case 0xA50C: value = n.droppedByLoss; break;
    case 0xA510: value = n.resent; break;
    case 0xA514: value = n.testPackets; break;
    case 0xA518: value = n.framesSent; break;
    case 0xA51C: value = m_commands; break;
    default: return eInvalidAddress;
    }
    return eSuccess;
}

EStatus CRegisterSpace::write(std::uint32_t address, std::uint32_t value)
{
    if (address % 4 != 0)
        return eBadAlignment;
    if (address >= kUserNameAddress && address < kUserNameEnd) {
        putBe32(&m_text[address - kTextBase], value);
        return eSuccess;
    }
    std::uint32_t ignored = 0;
    if (address >= kBootstrapEnd)
        return writeVendor(address, value);
    switch (address) {
    case 0x0014: m_ipConfig = value & 0x7; return eSuccess;
    case 0x064C: m_persistentIp = value; return eSuccess;
    case 0x065C: m_persistentMask = value; return eSuccess;
    case 0x066C: m_persistentGateway = value; return eSuccess;
    case 0x0938:
        if (value < 500) {
            if (m_model.config().strictWrites)
                return eInvalidParameter;
            value = 500;
        }
        m_heartbeatMs = value;
        return eSuccess;
    case 0x0944:
        if (value & 1u)
            m_stream.resetTimestamp();
        if (value & 2u)
            m_latched = m_stream.timestampTicks();
        return eSuccess;
    case 0x0954: m_gvcpConfig = value & 1u; return eSuccess;
    case 0x0D00:
        m_model.setHostPort(std::uint16_t(value));
        m_stream.settingsChanged();
        return eSuccess;
    case 0x0D04: {
        const EStatus s = m_model.setPacketSize(value & 0xFFFF);
        if (s != eSuccess)
            return s;
        m_model.setDoNotFragment((value & kDoNotFragment) != 0);
        m_scpsExtra = value & kScpsKnown & ~kDoNotFragment;
        // The fire bit reads back 0, so a later read-modify-write of the size fires nothing.
        if (value & kFireTestPacket)
            m_stream.fireTestPacket(m_model.streamSettings());
        m_stream.settingsChanged();
        return eSuccess;
    }
    case 0x0D08: {
        const EStatus s = m_model.setScpd(value);
        m_stream.settingsChanged();
        return s;
    }
    case 0x0D18:
        m_model.setDestination(value);
        m_stream.settingsChanged();
        return eSuccess;
    case 0x0D24: m_sccfg = value & kSccfgKnown; return eSuccess;
    default:
        return read(address, ignored) == eSuccess ? eWriteProtect : eInvalidAddress;
    }
}

EStatus CRegisterSpace::writeVendor(std::uint32_t address, std::uint32_t value)
{
    CCameraModel& m = m_model;
    std::uint32_t ignored = 0;
    switch (address) {
    case 0xA000: return m.setWidth(value);
    case 0xA004: return m.setHeight(value);
    case 0xA008: return m.setPixelFormat(value);
    case 0xA100: return m.setAcquisitionMode(value);
    case 0xA10C: return m.setFrameRateEnable(value);
    case 0xA110: return m.setFrameRate(bitsFloat(value));
    case 0xA200: return m.setTriggerSelector(value);
    case 0xA204: return m.setTriggerMode(0, value);
    case 0xA214: return m.setTriggerMode(1, value);
    case 0xA208: return m.setTriggerSource(0, value);
    case 0xA218: return m.setTriggerSource(1, value);
    case 0xA300: return m.setFtd(value);
    case 0xA400: return value == 0 ? eSuccess : eInvalidParameter;
    case 0xA404: return m.setLimitMode(value);
    case 0xA408: return m.setLimit(value);
    case 0xA104:
    case 0xA108:
    case 0xA220: return writeTriggered(address, value);
    default:
        return readVendor(address, ignored) == eSuccess ? eWriteProtect : eInvalidAddress;
    }
}

EStatus CRegisterSpace::writeTriggered(std::uint32_t address, std::uint32_t value)
{
    if (value != 1)
        return eSuccess;
    if (address == 0xA104)
        m_model.startAcquisition();
    else if (address == 0xA108)
        m_model.stopAcquisition();
    else
        m_stream.softwareTrigger(m_model.triggerSelector());
    m_stream.settingsChanged();
    return eSuccess;
}

void CRegisterSpace::closeStreamChannel()
{
    m_model.stopAcquisition();
    m_model.setHostPort(0);
    m_stream.settingsChanged();
}

} // namespace gigeemu
