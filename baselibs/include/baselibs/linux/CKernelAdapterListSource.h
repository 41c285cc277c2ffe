#pragma once

#include "baselibs/IAdapterListSource.h"
#include "baselibs/linux/SKernelLink.h"

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

protected:
    // The kernel's answers, each 0 or a negative errno; a test stands in for them.
    virtual int Dump(std::vector<SKernelLink>& links, std::vector<SKernelAddress>& addresses) const;
    virtual int DriverInfo(const std::string& ifname, std::string& driver, std::string& version) const;
    virtual int Speed(const std::string& ifname, uint32_t& mbits) const;

private:
    std::string Hardware(const std::string& ifname) const;
    uint64_t ReceiveLinkSpeed(const std::string& ifname) const;

    std::string m_sysfsRoot;
    std::string m_runRoot;
};

} // namespace Baselibs
