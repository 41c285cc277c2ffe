#pragma once

#include "lossplace.h"

#include <ParameterCollection/IParameterCollection.h>

#include <QMap>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace Plugin::BandwidthManager {

// Reads, tick by tick, the counters that tell where frames are lost: the
// adapters' receive statistics from the kernel and each GigE stream's
// statistics from the camera backend, as deltas since the start.
class CLossMeter
{
public:
    struct SAdapter
    {
        QString key;
        QString interfaceName;
        // Bits per second.
        double linkSpeed = 0.0;
    };
    struct SCamera
    {
        QString key;
        QString adapterKey;
        ParameterCollection::ParameterCollectionPtr parameters;
        quint64 lostFrames = 0;
    };
    struct SAdapterFigures
    {
        double linkUse = 0.0;
        double peakLinkUse = 0.0;
        quint64 missed = 0;
        quint64 fifo = 0;
        quint64 dropped = 0;
    };
    struct SCameraFigures
    {
        quint64 missingPackets = 0;
        quint64 resentPackets = 0;
        quint64 resendRequests = 0;
        quint64 underruns = 0;
        // -1: the backend cannot tell this stream's socket drops.
        qint64 socketDrops = -1;
    };

    struct SLinkCounters
    {
        quint64 bytes = 0;
        quint64 missed = 0;
        quint64 fifo = 0;
        quint64 dropped = 0;
    };
    // An interface's receive counters; false where it has none.
    using LinkCounterSource = std::function<bool(const QString& interfaceName, SLinkCounters& counters)>;

    // links: the kernel's link statistics over rtnetlink where empty (they follow
    // the process's network namespace, which sysfs does not); snmp: the host's
    // UDP counters, read where the backend cannot tell a stream's socket drops.
    explicit CLossMeter(LinkCounterSource links = {}, QString snmp = QStringLiteral("/proc/net/snmp"));

    void clear();
    // Counters seen for the first time become the baseline of their adapter or camera.
    void sample(double seconds, const std::vector<SAdapter>& adapters, const std::vector<SCamera>& cameras);

    SAdapterFigures adapter(const QString& key) const { return m_adapters.value(key).figures; }
    SCameraFigures camera(const QString& key) const { return m_cameras.value(key).figures; }
    SLossTotals totals(const QString& adapterKey) const;

private:
    struct SAdapterState
    {
        SLinkCounters base;
        quint64 lastBytes = 0;
        double lastSeconds = -1.0;
        SAdapterFigures figures;
    };
    struct SCameraState
    {
        QString adapterKey;
        QMap<QString, qint64> base;
        quint64 lostFrames = 0;
        SCameraFigures figures;
    };
    LinkCounterSource m_links;
    QString m_snmp;
    // The host's "RcvbufErrors" at the start and now; -1 until read.
    qint64 m_hostDropsBase = -1;
    qint64 m_hostDrops = -1;
    QMap<QString, SAdapterState> m_adapters;
    QMap<QString, SCameraState> m_cameras;
};

} // namespace Plugin::BandwidthManager
