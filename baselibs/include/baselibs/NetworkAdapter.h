#pragma once

#include "baselibs/NetworkManager.h"

namespace Baselibs {

class NetworkManager::NetworkAdapter : public INetworkAdapter
{
public:
    NetworkAdapter(const std::string& internalName, const MacAddress& macAddress, const std::string& friendlyName,
                   const std::string& description, uint32_t ipv4Address, uint8_t prefixLength);
    NetworkAdapter(const std::string& internalName, const MacAddress& macAddress, uint32_t ipv4Address,
                   uint8_t prefixLength);

    bool HasFriendlyName() const override;
    std::string GetFriendlyName() const override;
    bool HasMacAddress() const override;
    MacAddress GetMacAddress() const override;
    bool HasInternalName() const override;
    std::string GetInternalName() const override;
    bool HasDescription() const override;
    std::string GetDescription() const override;
    bool HasIpv4Address() const override;
    uint32_t GetIpv4Address() const override;
    bool HasPrefixLength() const override;
    uint8_t GetPrefixLength() const override;

private:
    std::string m_internalName;
    std::string m_friendlyName;
    std::string m_description;
    uint32_t m_ipv4Address;
    uint8_t m_prefixLength;
    MacAddress m_macAddress;
};

} // namespace Baselibs
