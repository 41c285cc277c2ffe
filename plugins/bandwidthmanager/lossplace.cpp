#include "lossplace.h"

#include <QCoreApplication>

#include <algorithm>

namespace Plugin::BandwidthManager {

namespace {

constexpr double FullLink = 0.9;

} // namespace

ELossPlace lossPlace(const SLossTotals& totals)
{
    if (totals.lostFrames == 0 && totals.missingPackets == 0)
        return ELossPlace::None;
    const quint64 host = totals.ringDrops + totals.socketDrops;
    const quint64 beforeHost = totals.missingPackets > host ? totals.missingPackets - host : 0;
    const quint64 most = std::max({totals.ringDrops, totals.socketDrops, beforeHost});
    if (most == 0)
        return totals.underruns > 0 ? ELossPlace::Application : ELossPlace::None;
    if (most == totals.ringDrops)
        return ELossPlace::AdapterRing;
    if (most == totals.socketDrops)
        return ELossPlace::SocketBuffer;
    return totals.peakLinkUse >= FullLink ? ELossPlace::Link : ELossPlace::Wire;
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
