#include "hostchecks.h"

#include <QCoreApplication>

#include <algorithm>

namespace Plugin::BandwidthManager {

namespace {


QString name(const SHostInterface& interface)
{
    return QString::fromStdString(interface.name);
}

QString dotted(uint32_t address)
{
    return QStringLiteral("%1.%2.%3.%4").arg(address >> 24).arg((address >> 16) & 255).arg((address >> 8) & 255).arg(address & 255);
}

QString subnetText(const SIpv4Subnet& subnet)
{
    const uint32_t mask = subnet.prefixLength == 0 ? 0 : ~uint32_t(0) << (32 - subnet.prefixLength);
    return dotted(subnet.address & mask) + QLatin1Char('/') + QString::number(subnet.prefixLength);
}

SHostCheck rmemCheck(const SHostSnapshot& snapshot)
{
    SHostCheck check{EHostCheck::RmemMax, {}, true, {}, std::nullopt};
    if (snapshot.rmemMax < 0) {
        check.text = QCoreApplication::translate("HostChecks", "net.core.rmem_max cannot be read.");
        return check;
    }
    check.passed = snapshot.rmemMax >= snapshot.rmemWanted;
    if (check.passed) {
        check.text = QCoreApplication::translate("HostChecks", "net.core.rmem_max is %1 KiB: enough for the streams.").arg(snapshot.rmemMax / 1024);
        return check;
    }
    check.text = QCoreApplication::translate("HostChecks", "net.core.rmem_max is %1 KiB, less than the %2 KiB a stream asks for: its packets are lost "
                    "whenever the stream thread is late.")
                     .arg(snapshot.rmemMax / 1024)
                     .arg(snapshot.rmemWanted / 1024);
    check.fix = HostFix::SFix{HostFix::EKind::RmemMax, {}, std::max(RmemMaxFix, snapshot.rmemWanted)};
    return check;
}

SHostCheck ringCheck(const SHostInterface& interface)
{
    SHostCheck check{EHostCheck::RxRing, interface.name, true, {}, std::nullopt};
    if (!interface.ringKnown || interface.ring.maximum == 0) {
        check.text = QCoreApplication::translate("HostChecks", "%1 has no receive ring to set.").arg(name(interface));
        return check;
    }
    check.passed = interface.ring.current >= interface.ring.maximum;
    if (check.passed) {
        check.text = QCoreApplication::translate("HostChecks", "%1: the receive ring is at its maximum, %2.").arg(name(interface)).arg(interface.ring.maximum);
        return check;
    }
    check.text = QCoreApplication::translate("HostChecks", "%1: the receive ring holds %2 packets of up to %3: a burst of the cameras overflows it.")
                     .arg(name(interface))
                     .arg(interface.ring.current)
                     .arg(interface.ring.maximum);
    check.fix = HostFix::SFix{HostFix::EKind::RxRing, interface.name, int64_t(interface.ring.maximum)};
    return check;
}

SHostCheck mtuCheck(const SHostInterface& interface)
{
    SHostCheck check{EHostCheck::Mtu, interface.name, true, {}, std::nullopt};
    const uint32_t jumbo = interface.maxMtu == 0 ? JumboMtu : std::min(JumboMtu, interface.maxMtu);
    check.passed = interface.mtu >= jumbo || interface.largestCameraPacket <= interface.mtu;
    if (check.passed) {
        check.text = QCoreApplication::translate("HostChecks", "%1: MTU %2, as large as its cameras' packets can use.").arg(name(interface)).arg(interface.mtu);
        return check;
    }
    check.text = QCoreApplication::translate("HostChecks", "%1: MTU %2, while its cameras could send packets of %3 bytes: jumbo frames (%4) carry a frame "
                    "in fewer packets, with less load on the host.")
                     .arg(name(interface))
                     .arg(interface.mtu)
                     .arg(interface.largestCameraPacket)
                     .arg(jumbo);
    check.fix = HostFix::SFix{HostFix::EKind::Mtu, interface.name, int64_t(jumbo)};
    return check;
}

SHostCheck rpFilterCheck(const SHostInterface& interface)
{
    SHostCheck check{EHostCheck::RpFilter, interface.name, interface.rpFilter != 1, {}, std::nullopt};
    if (check.passed) {
        check.text = QCoreApplication::translate("HostChecks", "%1: reverse-path filtering is not strict.").arg(name(interface));
        return check;
    }
    check.text = QCoreApplication::translate("HostChecks", "%1: strict reverse-path filtering drops the packets of a camera whose address the host would not "
                    "route back through this adapter (discovery answers, streams from another subnet).")
                     .arg(name(interface));
    check.fix = HostFix::SFix{HostFix::EKind::RpFilter, interface.name, 2};
    return check;
}

SHostCheck coalescingCheck(const SHostInterface& interface)
{
    SHostCheck check{EHostCheck::Coalescing, interface.name, true, {}, std::nullopt};
    const bool off = interface.coalesceKnown && !interface.coalesce.adaptive && interface.coalesce.usecs == 0;
    check.passed = !off || interface.packetsPerSecond <= BusyPacketsPerSecond;
    if (check.passed) {
        check.text = QCoreApplication::translate("HostChecks", "%1: interrupt moderation suits %2 packets a second.")
                         .arg(name(interface))
                         .arg(qRound64(interface.packetsPerSecond));
        return check;
    }
    check.text = QCoreApplication::translate("HostChecks", "%1 takes an interrupt for each of %2 packets a second: with moderation off, the host spends "
                    "its time in interrupts.")
                     .arg(name(interface))
                     .arg(qRound64(interface.packetsPerSecond));
    check.fix = HostFix::SFix{HostFix::EKind::Coalescing, interface.name, HostFix::Adaptive};
    return check;
}

} // namespace

std::vector<SHostCheck> runHostChecks(const SHostSnapshot& snapshot)
{
    std::vector<SHostCheck> checks{rmemCheck(snapshot)};
    for (const SHostInterface& interface : snapshot.interfaces) {
        if (interface.cameras.empty())
            continue;
        checks.push_back(ringCheck(interface));
        checks.push_back(mtuCheck(interface));
        checks.push_back(rpFilterCheck(interface));
        checks.push_back(coalescingCheck(interface));
        for (uint32_t camera : interface.cameras) {
            const bool inside = std::any_of(interface.subnets.begin(), interface.subnets.end(),
                                            [camera](const SIpv4Subnet& subnet) { return subnet.contains(camera); });
            if (inside || interface.subnets.empty())
                continue;
            checks.push_back({EHostCheck::CameraOutsideSubnet, interface.name, false,
                              QCoreApplication::translate("HostChecks", "The camera %1 on %2 lies outside the adapter's subnet %3: it answers discovery, but "
                                 "the host sends to it by its routes, not through this adapter. Give it an address in "
                                 "%3.")
                                  .arg(dotted(camera), name(interface), subnetText(interface.subnets.front())),
                              std::nullopt});
        }
    }
    // Each pair once, whichever adapters have cameras.
    for (size_t first = 0; first < snapshot.interfaces.size(); ++first) {
        for (size_t second = first + 1; second < snapshot.interfaces.size(); ++second) {
            const SHostInterface& a = snapshot.interfaces[first];
            const SHostInterface& b = snapshot.interfaces[second];
            for (const SIpv4Subnet& subnet : a.subnets) {
                const bool shared = std::any_of(b.subnets.begin(), b.subnets.end(), [&subnet](const SIpv4Subnet& other) {
                    const SIpv4Subnet wider = other.prefixLength < subnet.prefixLength ? other : subnet;
                    const SIpv4Subnet narrower = other.prefixLength < subnet.prefixLength ? subnet : other;
                    return wider.contains(narrower.address);
                });
                if (!shared || (a.cameras.empty() && b.cameras.empty()))
                    continue;
                checks.push_back({EHostCheck::SharedSubnet, a.name, false,
                                  QCoreApplication::translate("HostChecks", "%1 and %2 are both in %3: the host answers a camera through whichever adapter "
                                     "its route names, so discovery, control and resends can leave by the wrong one. "
                                     "Give each adapter a subnet of its own.")
                                      .arg(name(a), name(b), subnetText(subnet)),
                                  std::nullopt});
                break;
            }
        }
    }
    return checks;
}

} // namespace Plugin::BandwidthManager
