#pragma once

#include <QString>
#include <QtGlobal>

namespace Plugin::BandwidthManager {

// Where the frames of one adapter's cameras were lost.
enum class ELossPlace
{
    None,
    // Packets missing that no counter of this host saw, while the link ran full.
    Link,
    // The same with room on the link: a cable, a switch, a camera port.
    Wire,
    // The adapter's receive ring overflowed (missed and FIFO receive errors).
    AdapterRing,
    // The stream sockets' receive buffers overflowed.
    SocketBuffer,
    // Frames arrived whole but no buffer was free for them.
    Application
};

// An adapter's losses since the analysis started, in packets where the kernel counts packets.
struct SLossTotals
{
    quint64 lostFrames = 0;
    quint64 missingPackets = 0;
    quint64 ringDrops = 0;
    quint64 socketDrops = 0;
    quint64 underruns = 0;
    // The highest receive rate seen, as a share of the link (1.0: full).
    double peakLinkUse = 0.0;
};

// Where the losses come from. Drops counted by the host (the adapter's ring,
// the sockets) name the host, the larger of the two; packets missing without
// them were lost before the host: on a link that ran at 90 % or more, by the
// link's capacity, otherwise on the wire.
ELossPlace lossPlace(const SLossTotals& totals);

// What to do about it, for the hint line; empty for None.
QString lossPlaceAdvice(ELossPlace place);

} // namespace Plugin::BandwidthManager
