#pragma once

#include "baselibs/IPv4Configuration.h"
#include "baselibs/MacAddress.h"
#include "cfgapi/ILogSink.h"

#include <cstdint>
#include <string>
#include <vector>

namespace CfgApi {

// One adapter as a working copy: setters change memory, ApplyChanges the machine.
class INetworkAdapter
{
public:
    virtual std::string GetName() const = 0;
    virtual MacAddress GetMacAddress() const = 0;
    virtual std::string GetUniqueName() const = 0;
    virtual std::string GetDescription() const = 0;
    virtual uint32_t GetMtu() const = 0;
    virtual void SetMtu(uint32_t value) = 0;
    virtual std::vector<uint32_t> GetAvailableMtus() const = 0;
    virtual int32_t GetLinkSpeed() const = 0;
    virtual std::vector<IPv4Configuration> GetIpv4Configurations() const = 0;
    virtual void SetIpv4Configuration(const IPv4Configuration& config) = 0;
    virtual bool GetDhcpEnabled() const = 0;
    virtual void SetDhcpEnabled(bool enable) = 0;
    virtual void ApplyChanges(ILogSink* sink) = 0;
    virtual void Refresh() = 0;
    virtual bool QualifiesByMacOrSpeed() const = 0;
    virtual void Optimize(ILogSink* sink) = 0;
    virtual uint32_t GetReceiveBuffers() const = 0;
    virtual void SetReceiveBuffers(uint32_t value) = 0;
    virtual ~INetworkAdapter() = default;
};

} // namespace CfgApi
