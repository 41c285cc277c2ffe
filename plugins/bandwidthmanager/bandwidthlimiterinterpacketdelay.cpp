#include "bandwidthlimiterinterpacketdelay.h"

#include "exceptiontext.h"
#include "interpacketdelaysearch.h"

#include <Core/Exception/BaseException.h>
#include <Core/Logging/Logging.h>

using namespace ParameterCollection;

namespace {

const QString kDelay = QStringLiteral("GevSCPD");
const QString kThroughput = QStringLiteral("GevSCDCT");
constexpr int kSearchRounds = 32;

quint64 logCategory()
{
    static const quint64 id = Core::Logging::getCatId("zenta.viewer.plugins.bandwidthManager.InterPacketDelay");
    return id;
}

void log(Core::Logging::ELogLevel level, const QString& text)
{
    Core::Logging::createLogEntry(level, logCategory(), text);
}

// Call from a catch block: logs the exception in flight at level 2.
void logCurrentException(const QString& activity)
{
    Core::Logging::createLogEntry(Core::Logging::LogLevelWarning, logCategory(),
                                  Plugin::BandwidthManager::describeCurrentException(activity));
}

qint64 toMegabytes(qint64 bytesPerSecond)
{
    return (bytesPerSecond + 500000) / 1000000;
}

bool isReadable(const IntegerParameterPtr& ptrParameter)
{
    return ptrParameter && !ptrParameter->isNull() && ptrParameter->isReadable();
}

bool isWritable(const IntegerParameterPtr& ptrParameter)
{
    return ptrParameter && !ptrParameter->isNull() && ptrParameter->isWritable();
}

} // namespace

BandwidthLimiterInterPacketDelay::BandwidthLimiterInterPacketDelay(ParameterCollectionPtr ptrParameters, QWidget* parent)
    : ComboSlider(parent), m_ptrParameters(std::move(ptrParameters))
{
    setToolTip(tr("MB/s"));
    ComboSlider::setRangeAndStep(1, 125, 1);
    ComboSlider::setValue(112);
    try {
        initRange();
    } catch (...) {
        logCurrentException(QStringLiteral("reading the range of the camera"));
        setEnabled(false);
    }
}

BandwidthLimiterInterPacketDelay::~BandwidthLimiterInterPacketDelay()
{
    disconnect(this, SIGNAL(valueChanged(int)), this, SLOT(onValueChanged(int)));
}

void BandwidthLimiterInterPacketDelay::initRange()
{
    if (m_ptrParameters) {
        m_ptrDelay = m_ptrParameters->getIntegerParameter(kDelay);
        m_ptrThroughput = m_ptrParameters->getIntegerParameter(kThroughput);
    }
    if (!isReadable(m_ptrDelay) || !m_ptrDelay->isWritable() || !isReadable(m_ptrThroughput)) {
        setEnabled(false);
        return;
    }
    const qint64 savedDelay = m_ptrDelay->getValue();
    // Throughput falls as the delay rises: the largest delay gives the minimum.
    qint64 minimum = 1;
    if (m_ptrDelay->trySetToMaximum())
        minimum = qMax<qint64>(1, toMegabytes(m_ptrThroughput->getValueOrDefault(1)));
    qint64 maximum = 125;
    if (m_ptrDelay->trySetToMinimum())
        maximum = qMax<qint64>(1, toMegabytes(m_ptrThroughput->getValueOrDefault(125)));
    setRangeAndStep(int(minimum), int(maximum), 1);
    m_ptrDelay->trySetValue(savedDelay);
    ComboSlider::setValue(int(toMegabytes(m_ptrThroughput->getValue())));
    connect(this, SIGNAL(valueChanged(int)), this, SLOT(onValueChanged(int)));
}

bool BandwidthLimiterInterPacketDelay::isPossible(const ParameterCollectionPtr& ptrParameters)
{
    try {
        const IntegerParameterPtr ptrDelay = ptrParameters ? ptrParameters->getIntegerParameter(kDelay) : IntegerParameterPtr();
        return isWritable(ptrDelay);
    } catch (const Core::Exception::BaseException& e) {
        log(Core::Logging::LogLevelFailure, e.text());
        return false;
    }
}

void BandwidthLimiterInterPacketDelay::setValue(int value)
{
    ComboSlider::setValue(value);
    onValueChanged(value);
}

void BandwidthLimiterInterPacketDelay::onValueChanged(int value)
{
    const int reached = applyWish(value);
    if (reached >= 0)
        ComboSlider::setValue(reached);
}

int BandwidthLimiterInterPacketDelay::applyWish(int value)
{
    try {
        if (!isReadable(m_ptrThroughput) || !isWritable(m_ptrDelay) || !m_ptrDelay->isReadable()) {
            log(Core::Logging::LogLevelFailure, QStringLiteral("Couldn't apply values to camera."));
            return -1;
        }
    } catch (...) {
        logCurrentException(QStringLiteral("applying value to camera"));
        return -1;
    }
    try {
        return searchDelay(value);
    } catch (...) {
        logCurrentException(QStringLiteral("applying value to camera"));
        return -1;
    }
}

// A packet's time on the wire, in the delay's ticks: what lets the first
// write land next to the wish. Ethernet adds 38 bytes to the IP packet
// (header, checksum, preamble, gap).
double BandwidthLimiterInterPacketDelay::packetWireTicks()
{
    const auto readable = [this](const QString& name) {
        const IntegerParameterPtr node = m_ptrParameters ? m_ptrParameters->getIntegerParameter(name) : IntegerParameterPtr();
        return isReadable(node) ? node : IntegerParameterPtr();
    };
    if (m_linkBitsPerTick < 0) {
        m_linkBitsPerTick = 0;
        const IntegerParameterPtr speed = readable(QStringLiteral("GevLinkSpeed"));
        const IntegerParameterPtr tick = readable(QStringLiteral("GevTimestampTickFrequency"));
        if (speed && tick && speed->getValue() > 0 && tick->getValue() > 0)
            m_linkBitsPerTick = double(speed->getValue()) * 1e6 / double(tick->getValue());
    }
    const IntegerParameterPtr packetSize = m_linkBitsPerTick > 0 ? readable(QStringLiteral("GevSCPSPacketSize")) : nullptr;
    if (!packetSize)
        return 0.0;
    return double(packetSize->getValue() + 38) * 8.0 / m_linkBitsPerTick;
}

// The delay is predicted from the packet's wire time and one reading, then
// corrected; a wish already met writes nothing, one the camera cannot reach
// ends at the smallest delay, and the widget shows what was reached. A camera
// that sends the same MB/s at its smallest delay is left there: its frame
// rate, not the delay, holds it to the wish.
int BandwidthLimiterInterPacketDelay::searchDelay(int wish)
{
    qint64 throughput = m_ptrThroughput->getValue();
    if (toMegabytes(throughput) == wish)
        return wish;
    CInterPacketDelaySearch search(m_ptrDelay->getMin(), m_ptrDelay->getMax(), m_ptrDelay->getInc(),
                                   qint64(wish) * 1000000, packetWireTicks());
    qint64 delay = m_ptrDelay->getValue();
    for (int write = 0; write < kSearchRounds; ++write) {
        const std::optional<qint64> next = search.next(delay, throughput);
        if (!next)
            break;
        m_ptrDelay->setValueVerified(*next, true);
        delay = *next;
        throughput = m_ptrThroughput->getValue();
    }
    if (delay != m_ptrDelay->getMin() && m_ptrDelay->trySetToMinimum()
        && toMegabytes(m_ptrThroughput->getValue()) != toMegabytes(throughput))
        m_ptrDelay->setValueVerified(delay, true);
    return int(toMegabytes(throughput));
}

qint64 BandwidthLimiterInterPacketDelay::getInterPacketDelay()
{
    try {
        if (!m_ptrDelay)
            throw Core::Exception::BaseException(QStringLiteral("The camera has no node GevSCPD."));
        return m_ptrDelay->getValue();
    } catch (...) {
        logCurrentException(QStringLiteral("getting InterPacketDelay"));
        return -1;
    }
}

qint64 BandwidthLimiterInterPacketDelay::getCurrentThroughput()
{
    try {
        if (!m_ptrThroughput)
            throw Core::Exception::BaseException(QStringLiteral("The camera has no node GevSCDCT."));
        return m_ptrThroughput->getValue();
    } catch (...) {
        logCurrentException(QStringLiteral("getting current Throughput"));
        return -1;
    }
}

bool BandwidthLimiterInterPacketDelay::isAtMaximum()
{
    try {
        if (!m_ptrDelay)
            throw Core::Exception::BaseException(QStringLiteral("The camera has no node GevSCPD."));
        return m_ptrDelay->getValue() >= m_ptrDelay->getMax() - 1;
    } catch (...) {
        logCurrentException(QStringLiteral("trying to check if value was reached"));
        return false;
    }
}
