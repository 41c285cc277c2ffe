#include "lossplace.h"

#include <QCoreApplication>


namespace Plugin::BandwidthManager {

namespace {

constexpr double FullLink = 0.9;
// Missing packets beyond this many per host drop on a full link: the link lost them.
constexpr quint64 HostShare = 10;

} // namespace

ELossPlace lossPlace(const SLossTotals& totals)
{
    if (totals.lostFrames == 0 && totals.missingPackets == 0)
        return ELossPlace::None;
    // The backend's missing packets do not compare with the kernel's drops one
    // for one: a lost leader costs a whole frame's packets. A host counter that
    // moved is the evidence, unless the link ran full and its losses dwarf it.
    const quint64 host = totals.ringDrops + totals.socketDrops;
    const bool linkFull = totals.peakLinkUse >= FullLink;
    if (host > 0 && !(linkFull && totals.missingPackets > HostShare * host))
        return totals.ringDrops >= totals.socketDrops ? ELossPlace::AdapterRing : ELossPlace::SocketBuffer;
    if (totals.missingPackets > 0)
        return linkFull ? ELossPlace::Link : ELossPlace::Wire;
    return totals.underruns > 0 ? ELossPlace::Application : ELossPlace::None;
}

QString lossPlaceAdvice(ELossPlace place)
{
    switch (place) {
    case ELossPlace::Link:
        return QCoreApplication::translate("LossPlace", "<b>The link is over its capacity:</b> press <b>Optimize</b> on "
                                                    "its adapter.");
    case ELossPlace::Wire:
        return QCoreApplication::translate("LossPlace", "<b>Packets were lost on the wire:</b> check the cable and the "
                                                    "switch.");
    case ELossPlace::AdapterRing:
        return QCoreApplication::translate("LossPlace", "<b>The adapter's receive ring overflowed:</b> raise it to its "
                                                    "maximum (ethtool -G).");
    case ELossPlace::SocketBuffer:
        return QCoreApplication::translate("LossPlace", "<b>The stream socket's buffer overflowed:</b> raise "
                                                    "net.core.rmem_max, then start the analysis again.");
    case ELossPlace::Application:
        return QCoreApplication::translate("LossPlace", "<b>No buffer was free for arriving frames:</b> the "
                                                    "application returns its buffers too late.");
    case ELossPlace::None:
        break;
    }
    return {};
}

} // namespace Plugin::BandwidthManager
