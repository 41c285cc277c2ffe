#pragma once

#include "cfgapi/linux/ILinkOps.h"

namespace CfgApi {

class CKernelLinkOps : public ILinkOps
{
public:
    int Links(std::vector<SLinkOpsLink>& links) override;
    int MtuRange(int index, uint32_t& minMtu, uint32_t& maxMtu) override;
    int SetMtu(int index, uint32_t mtu) override;
    int GetRxRing(const std::string& ifname, Baselibs::SRxRing& ring) override;
    int SetRxRing(const std::string& ifname, uint32_t rxPending) override;
    int GetRxCoalesce(const std::string& ifname, Baselibs::SRxCoalesce& coalesce) override;
    int SetRxCoalesce(const std::string& ifname, const Baselibs::SRxCoalesce& coalesce) override;
};

} // namespace CfgApi
