#include "CameraModel.h"

#include "PixelFormats.h"

#include <algorithm>
#include <cmath>

namespace gigeemu {

namespace {
constexpr std::uint32_t kMinWidth = 16;
constexpr std::uint32_t kWidthInc = 4;
constexpr std::uint32_t kMinPacketSize = 576;
constexpr std::uint32_t kPacketSizeInc = 4;
constexpr float kMinFrameRate = 0.1f;
constexpr std::uint64_t kMinLimit = 1000000;
} // namespace

CCameraModel::CCameraModel(const SConfig& config)
    : m_config(config)
    , m_link(config.linkMbps, config.tickHz)
    , m_width(config.width)
    , m_height(config.height)
    , m_pixelFormat(config.pixelFormat)
    , m_packetSize(config.packetSize)
    , m_frameRate(float(config.fps))
    , m_limit(limitMax())
{
}

std::uint32_t CCameraModel::payloadSize() const
{
    return std::uint32_t(std::uint64_t(m_width) * m_height * bitsPerPixel(m_pixelFormat) / 8);
}

double CCameraModel::sensorFrameRate() const
{
    return std::min(1000.0, m_config.maxFps * double(m_config.sensorHeight) / double(m_height));
}

double CCameraModel::linkFrameRate() const
{
    return 1.0 / m_link.frameSeconds(payloadSize(), m_packetSize, m_scpd);
}

double CCameraModel::resultingFrameRate() const
{
    double r = std::min(sensorFrameRate(), linkFrameRate());
    if (m_frameRateEnable && m_triggerMode[eFrameStart] == 0)
        r = std::min(r, double(m_frameRate));
    return r;
}

std::uint64_t CCameraModel::deviceThroughput() const
{
    return CLinkModel::deviceThroughput(resultingFrameRate(), CLinkModel::bytesPerFrame(payloadSize(), m_packetSize));
}

EStatus CCameraModel::fit(std::uint64_t v, std::uint64_t lo, std::uint64_t hi, std::uint64_t inc, bool down,
                          std::uint64_t& out) const
{
    std::uint64_t fitted = std::clamp(v, lo, hi);
    const std::uint64_t off = (fitted - lo) % inc;
    if (off != 0)
        fitted = (down || off * 2 < inc) ? fitted - off : fitted + inc - off;
    if (fitted > hi)
        fitted -= inc;
    if (fitted != v && m_config.strictWrites)
        return eInvalidParameter;
    out = fitted;
    return eSuccess;
}

EStatus CCameraModel::setWidth(std::uint32_t v)
{
    if (imageFormatLocked())
        return eWriteProtect;
    std::uint64_t out = 0;
    const EStatus s = fit(v, kMinWidth, m_config.sensorWidth, kWidthInc, false, out);
    if (s == eSuccess)
        m_width = std::uint32_t(out);
    return s;
}

EStatus CCameraModel::setHeight(std::uint32_t v)
{
    if (imageFormatLocked())
        return eWriteProtect;
    std::uint64_t out = 0;
    const EStatus s = fit(v, 1, m_config.sensorHeight, 1, false, out);
    if (s == eSuccess)
        m_height = std::uint32_t(out);
    return s;
}

EStatus CCameraModel::setPixelFormat(std::uint32_t v)
{
    if (imageFormatLocked())
        return eWriteProtect;
    if (!isKnownPixelFormat(v))
        return eInvalidParameter;
    m_pixelFormat = v;
    return eSuccess;
}

EStatus CCameraModel::setPacketSize(std::uint32_t v)
{
    std::uint64_t out = 0;
    const EStatus s = fit(v, kMinPacketSize, m_config.maxPacketSize, kPacketSizeInc, true, out);
    if (s == eSuccess) {
        m_packetSize = std::uint32_t(out);
        deriveScpd();
    }
    return s;
}

EStatus CCameraModel::setScpd(std::uint32_t v)
{
    if (m_limitMode)
        return eWriteProtect;
    return fit(v, 0, scpdMax(), 1, false, m_scpd);
}

EStatus CCameraModel::setFtd(std::uint32_t v)
{
    return fit(v, 0, scpdMax(), 1, false, m_ftd);
}

EStatus CCameraModel::setFrameRateEnable(std::uint32_t v)
{
    if (v > 1)
        return eInvalidParameter;
    m_frameRateEnable = v == 1;
    return eSuccess;
}

EStatus CCameraModel::setFrameRate(float v)
{
    if (!std::isfinite(v))
        return eInvalidParameter;
    const float hi = float(sensorFrameRate());
    const float fitted = std::clamp(v, kMinFrameRate, hi);
    if (fitted != v && m_config.strictWrites)
        return eInvalidParameter;
    m_frameRate = fitted;
    return eSuccess;
}

EStatus CCameraModel::setAcquisitionMode(std::uint32_t v)
{
    if (v > 1)
        return eInvalidParameter;
    m_acquisitionMode = v;
    return eSuccess;
}

EStatus CCameraModel::setTriggerSelector(std::uint32_t v)
{
    if (v > 1)
        return eInvalidParameter;
    m_triggerSelector = v;
    return eSuccess;
}

EStatus CCameraModel::setTriggerMode(std::uint32_t selector, std::uint32_t v)
{
    if (v > 1 || selector > 1)
        return eInvalidParameter;
    m_triggerMode[selector] = v;
    return eSuccess;
}

EStatus CCameraModel::setTriggerSource(std::uint32_t selector, std::uint32_t v)
{
    if (v > 1 || selector > 1)
        return eInvalidParameter;
    m_triggerSource[selector] = v;
    return eSuccess;
}

EStatus CCameraModel::setLimitMode(std::uint32_t v)
{
    if (!m_config.throughputLimit)
        return eInvalidAddress;
    if (v > 1)
        return eInvalidParameter;
    m_limitMode = v == 1;
    deriveScpd();
    return eSuccess;
}

EStatus CCameraModel::setLimit(std::uint32_t v)
{
    if (!m_config.throughputLimit)
        return eInvalidAddress;
    const EStatus s = fit(v, kMinLimit, limitMax(), 1, false, m_limit);
    if (s == eSuccess)
        deriveScpd();
    return s;
}

void CCameraModel::deriveScpd()
{
    if (m_limitMode)
        m_scpd = m_link.scpdForLimit(m_limit, m_packetSize, scpdMax());
}

void CCameraModel::startAcquisition()
{
    if (!m_acquiring)
        ++m_acquisitionSerial;
    m_acquiring = true;
}

SStreamSettings CCameraModel::streamSettings() const
{
    SStreamSettings s;
    s.acquiring = m_acquiring;
    s.acquisitionSerial = m_acquisitionSerial;
    s.singleFrame = m_acquisitionMode == 1;
    s.frameStartTriggered = m_triggerMode[eFrameStart] == 1;
    s.acquisitionStartTriggered = m_triggerMode[eAcquisitionStart] == 1;
    s.width = m_width;
    s.height = m_height;
    s.pixelFormat = m_pixelFormat;
    s.payloadSize = payloadSize();
    s.packetSize = m_packetSize;
    s.gapSeconds = m_link.ticksToSeconds(m_scpd);
    s.frameDelaySeconds = m_link.ticksToSeconds(m_ftd);
    s.frameIntervalSeconds = 1.0 / resultingFrameRate();
    s.triggerIntervalSeconds = 1.0 / std::min(sensorFrameRate(), linkFrameRate());
    s.doNotFragment = m_doNotFragment;
    s.destIp = m_destination;
    s.destPort = m_hostPort;
    return s;
}

} // namespace gigeemu
