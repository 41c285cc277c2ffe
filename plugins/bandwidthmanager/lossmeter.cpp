#include "lossmeter.h"

#include "integernode.h"

#include <baselibs/linux/CNetlinkRoute.h>

#include <QFile>

#include <algorithm>

namespace Plugin::BandwidthManager {

namespace {

const char* const CameraCounters[] = {"Failed_Packet", "Resend_Packet", "Resend_Request", "Buffer_Underrun",
                                      "Socket_Drop"};

quint64 since(quint64 start, quint64 now)
{
    return now > start ? now - start : 0;
}

CLossMeter::LinkCounterSource netlinkCounters()
{
    auto route = std::make_shared<Baselibs::CNetlinkRoute>();
    return [route](const QString& interfaceName, CLossMeter::SLinkCounters& counters) {
        Baselibs::SKernelReceiveStatistics statistics;
        if (route->GetReceiveStatistics(interfaceName.toLocal8Bit().constData(), statistics) != 0)
            return false;
        counters = {statistics.bytes, statistics.missed, statistics.fifo, statistics.dropped};
        return true;
    };
}

qint64 statisticOf(const ParameterCollection::ParameterCollectionPtr& parameters, const char* name)
{
    try {
        return integerValueOr(parameters, QStringLiteral("@StreamGrabber0/Statistic_%1_Count").arg(QLatin1String(name)), -1);
    } catch (...) {
        // A camera that went away has no statistics to add.
        return -1;
    }
}

// "RcvbufErrors" of the "Udp:" lines; -1 where it cannot be read.
qint64 hostUdpReceiveBufferErrors(const QString& snmpFile)
{
    QFile file(snmpFile);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> lines = file.readAll().split('\n');
    QList<QByteArray> names;
    for (const QByteArray& line : lines) {
        if (!line.startsWith("Udp: "))
            continue;
        const QList<QByteArray> fields = line.mid(5).simplified().split(' ');
        if (names.isEmpty()) {
            names = fields;
            continue;
        }
        const int index = names.indexOf("RcvbufErrors");
        bool ok = false;
        const qint64 value = index >= 0 && index < fields.size() ? fields[index].toLongLong(&ok) : -1;
        return ok ? value : -1;
    }
    return -1;
}

} // namespace

CLossMeter::CLossMeter(LinkCounterSource links, QString snmp)
    : m_links(links ? std::move(links) : netlinkCounters())
    , m_snmp(std::move(snmp))
{
}

void CLossMeter::clear()
{
    m_adapters.clear();
    m_cameras.clear();
    m_hostDropsBase = m_hostDrops = -1;
}

void CLossMeter::sample(double seconds, const std::vector<SAdapter>& adapters, const std::vector<SCamera>& cameras)
{
    for (const SAdapter& adapter : adapters) {
        SLinkCounters now;
        if (!m_links(adapter.interfaceName, now))
            continue;
        const bool known = m_adapters.contains(adapter.key);
        SAdapterState& state = m_adapters[adapter.key];
        if (!known) {
            state.base = now;
            state.lastBytes = now.bytes;
            state.lastSeconds = seconds;
            continue;
        }
        if (seconds > state.lastSeconds && adapter.linkSpeed > 0) {
            const double bits = double(since(state.lastBytes, now.bytes)) * 8.0;
            state.figures.linkUse = bits / (seconds - state.lastSeconds) / adapter.linkSpeed;
            state.figures.peakLinkUse = std::max(state.figures.peakLinkUse, state.figures.linkUse);
            state.lastBytes = now.bytes;
            state.lastSeconds = seconds;
        }
        state.figures.missed = since(state.base.missed, now.missed);
        state.figures.fifo = since(state.base.fifo, now.fifo);
        state.figures.dropped = since(state.base.dropped, now.dropped);
    }
    for (const SCamera& camera : cameras) {
        const bool known = m_cameras.contains(camera.key);
        SCameraState& state = m_cameras[camera.key];
        state.adapterKey = camera.adapterKey;
        state.lostFrames = camera.lostFrames;
        qint64 values[5];
        for (int index = 0; index < 5; ++index)
            values[index] = statisticOf(camera.parameters, CameraCounters[index]);
        if (!known) {
            for (int index = 0; index < 5; ++index)
                state.base[QLatin1String(CameraCounters[index])] = std::max<qint64>(values[index], 0);
            continue;
        }
        const auto delta = [&state, &values](int index) {
            const qint64 start = state.base.value(QLatin1String(CameraCounters[index]));
            return values[index] > start ? quint64(values[index] - start) : quint64(0);
        };
        state.figures.missingPackets = delta(0);
        state.figures.resentPackets = delta(1);
        state.figures.resendRequests = delta(2);
        state.figures.underruns = delta(3);
        state.figures.socketDrops = values[4] < 0 ? -1 : qint64(delta(4));
    }
    const bool perSocket = std::any_of(m_cameras.begin(), m_cameras.end(),
                                       [](const SCameraState& camera) { return camera.figures.socketDrops >= 0; });
    if (!perSocket && !cameras.empty()) {
        m_hostDrops = hostUdpReceiveBufferErrors(m_snmp);
        if (m_hostDropsBase < 0)
            m_hostDropsBase = m_hostDrops;
    }
}

SLossTotals CLossMeter::totals(const QString& adapterKey) const
{
    SLossTotals totals;
    const SAdapterFigures adapter = m_adapters.value(adapterKey).figures;
    totals.ringDrops = adapter.missed + adapter.fifo;
    totals.peakLinkUse = adapter.peakLinkUse;
    for (const SCameraState& camera : m_cameras) {
        if (camera.adapterKey != adapterKey)
            continue;
        totals.lostFrames += camera.lostFrames;
        totals.missingPackets += camera.figures.missingPackets;
        totals.underruns += camera.figures.underruns;
        totals.socketDrops += quint64(std::max<qint64>(camera.figures.socketDrops, 0));
    }
    // Host-wide: every UDP socket's drops, the streams' among them.
    if (totals.socketDrops == 0 && m_hostDropsBase >= 0 && m_hostDrops > m_hostDropsBase)
        totals.socketDrops = quint64(m_hostDrops - m_hostDropsBase);
    return totals;
}

} // namespace Plugin::BandwidthManager
