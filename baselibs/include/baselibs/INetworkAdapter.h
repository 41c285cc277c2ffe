#pragma once

#include "baselibs/MacAddress.h"

#include <cstdint>
#include <string>

namespace Baselibs {

// Read-only adapter record; each Get throws std::runtime_error when its Has says no.
class INetworkAdapter
{
public:
    virtual ~INetworkAdapter() = default;
    virtual bool HasFriendlyName() const = 0;
    virtual std::string GetFriendlyName() const = 0;
    virtual bool HasMacAddress() const = 0;
    virtual MacAddress GetMacAddress() const = 0;
    virtual bool HasInternalName() const = 0;
    virtual std::string GetInternalName() const = 0;
    virtual bool HasDescription() const = 0;
    virtual std::string GetDescription() const = 0;
    virtual bool HasIpv4Address() const = 0;
    virtual uint32_t GetIpv4Address() const = 0;
    virtual bool HasPrefixLength() const = 0;
    virtual uint8_t GetPrefixLength() const = 0;
};

} // namespace Baselibs
