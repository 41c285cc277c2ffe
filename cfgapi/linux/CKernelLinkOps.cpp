#include "cfgapi/linux/CKernelLinkOps.h"

#include "baselibs/linux/CKernelAdapterListSource.h"
#include "baselibs/linux/CNetlinkRoute.h"

namespace CfgApi {

int CKernelLinkOps::Links(std::vector<SLinkOpsLink>& links)
{
    Baselibs::CNetlinkRoute netlink;
    std::vector<Baselibs::SKernelLink> kernelLinks;
    if (int rc = netlink.DumpLinks(kernelLinks))
        return rc;
    const Baselibs::CKernelAdapterListSource source;
    links.clear();
    for (const auto& k : kernelLinks)
        links.push_back(SLinkOpsLink{k.index, k.name, source.Description(k.name, k.alias, k.type), k.mtu});
    return 0;
}

int CKernelLinkOps::MtuRange(int index, uint32_t& minMtu, uint32_t& maxMtu)
{
    return Baselibs::CNetlinkRoute().GetMtuRange(index, minMtu, maxMtu);
}

int CKernelLinkOps::SetMtu(int index, uint32_t mtu)
{
    return Baselibs::CNetlinkRoute().SetMtu(index, mtu);
}

int CKernelLinkOps::GetRxRing(const std::string& ifname, Baselibs::SRxRing& ring)
{
    return Baselibs::CEthtool().GetRxRing(ifname, ring);
}

int CKernelLinkOps::SetRxRing(const std::string& ifname, uint32_t rxPending)
{
    return Baselibs::CEthtool().SetRxRing(ifname, rxPending);
}

int CKernelLinkOps::GetRxCoalesce(const std::string& ifname, Baselibs::SRxCoalesce& coalesce)
{
    return Baselibs::CEthtool().GetRxCoalesce(ifname, coalesce);
}

int CKernelLinkOps::SetRxCoalesce(const std::string& ifname, const Baselibs::SRxCoalesce& coalesce)
{
    return Baselibs::CEthtool().SetRxCoalesce(ifname, coalesce);
}

} // namespace CfgApi
