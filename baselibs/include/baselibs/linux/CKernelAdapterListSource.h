#pragma once

#include "baselibs/IAdapterListSource.h"

#include <string>

namespace Baselibs {

// The links of the caller's network namespace, read over rtnetlink, ethtool and sysfs.
class CKernelAdapterListSource : public IAdapterListSource
{
public:
    explicit CKernelAdapterListSource(std::string sysfsRoot = "/sys", std::string runRoot = "/run");

    uint32_t List(std::vector<SPlatformAdapterEntry>& entries) const override;

    // "<hardware> (<driver> <version>)", as far as the system tells.
    std::string Description(const std::string& ifname, const std::string& alias, const std::string& type) const;

private:
    std::string Hardware(const std::string& ifname) const;
    uint64_t ReceiveLinkSpeed(const std::string& ifname) const;

    std::string m_sysfsRoot;
    std::string m_runRoot;
};

} // namespace Baselibs
