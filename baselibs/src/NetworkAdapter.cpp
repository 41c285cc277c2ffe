#include "baselibs/NetworkAdapter.h"

#include <stdexcept>

namespace Baselibs {

NetworkManager::NetworkAdapter::NetworkAdapter(const std::string& internalName, const MacAddress& macAddress,
                                               const std::string& friendlyName, const std::string& description,
                                               uint32_t ipv4Address, uint8_t prefixLength)
    : m_internalName(internalName)
    , m_friendlyName(friendlyName.empty() ? internalName : friendlyName)
    , m_description(description)
    , m_ipv4Address(ipv4Address)
    , m_prefixLength(prefixLength)
    , m_macAddress(macAddress)
{
    if (macAddress.IsEmpty())
        throw std::invalid_argument("macAddress must not be empty.");
    if (internalName.empty())
        throw std::invalid_argument("internalName must not be empty.");
    if (prefixLength != 0 && ipv4Address == 0)
        throw std::invalid_argument("Ipv4 address must not be empty if prefix is given.");
    if (prefixLength == 0 && ipv4Address != 0)
        throw std::invalid_argument("Prefix must not be empty if ipv4 address is given.");
}

NetworkManager::NetworkAdapter::NetworkAdapter(const std::string& internalName, const MacAddress& macAddress,
                                               uint32_t ipv4Address, uint8_t prefixLength)
    : NetworkAdapter(internalName, macAddress, std::string(), std::string(), ipv4Address, prefixLength)
{
}

bool NetworkManager::NetworkAdapter::HasFriendlyName() const { return !m_friendlyName.empty(); }
bool NetworkManager::NetworkAdapter::HasMacAddress() const { return !m_macAddress.IsEmpty(); }
bool NetworkManager::NetworkAdapter::HasInternalName() const { return !m_internalName.empty(); }
bool NetworkManager::NetworkAdapter::HasDescription() const { return !m_description.empty(); }
bool NetworkManager::NetworkAdapter::HasIpv4Address() const { return m_ipv4Address != 0; }
bool NetworkManager::NetworkAdapter::HasPrefixLength() const { return m_prefixLength != 0; }

std::string NetworkManager::NetworkAdapter::GetFriendlyName() const
{
    if (!HasFriendlyName())
        throw std::runtime_error("No friendly name available for this adapter");
    return m_friendlyName;
}

MacAddress NetworkManager::NetworkAdapter::GetMacAddress() const
{
    if (!HasMacAddress())
        throw std::runtime_error("No MAC address available for this adapter");
    return m_macAddress;
}

std::string NetworkManager::NetworkAdapter::GetInternalName() const
{
    if (!HasInternalName())
        throw std::runtime_error("No internal name available for this adapter");
    return m_internalName;
}

std::string NetworkManager::NetworkAdapter::GetDescription() const
{
    // "description name" is the established wording.
    if (!HasDescription())
        throw std::runtime_error("No description name available for this adapter");
    return m_description;
}

uint32_t NetworkManager::NetworkAdapter::GetIpv4Address() const
{
    if (!HasIpv4Address())
        throw std::runtime_error("No IPv4 address available for this adapter");
    return m_ipv4Address;
}

uint8_t NetworkManager::NetworkAdapter::GetPrefixLength() const
{
    if (!HasPrefixLength())
        throw std::runtime_error("No prefix length available for this adapter");
    return m_prefixLength;
}

} // namespace Baselibs
