#include "baselibs/NetworkManager.h"

#include "baselibs/NetworkAdapter.h"

#include <netinet/in.h>
#include <cstring>
#include <stdexcept>

namespace Baselibs {

NetworkManager::NetworkManager() : m_source(PlatformSource()) {}

NetworkManager::NetworkManager(std::shared_ptr<const IAdapterListSource> source) : m_source(std::move(source)) {}

std::vector<std::shared_ptr<INetworkAdapter>> NetworkManager::GetAdapters() const
{
    std::vector<SPlatformAdapterEntry> entries;
    if (!m_source || m_source->List(entries) != 0)
        throw std::runtime_error("Could not enumerate adapters");

    std::vector<std::shared_ptr<INetworkAdapter>> adapters;
    try {
        for (const SPlatformAdapterEntry& entry : entries) {
            if (!entry.operUp || entry.physicalAddress.size() != 6 || !entry.hasAdapterName)
                continue;
            MacAddress mac;
            std::memcpy(mac.bytes.data(), entry.physicalAddress.data(), 6);
            uint32_t address = 0;
            uint8_t prefix = 0;
            if (!entry.unicastAddresses.empty()) {
                const SUnicastAddress& first = entry.unicastAddresses.front();
                prefix = first.onLinkPrefixLength;
                if (first.family == AF_INET)
                    std::memcpy(&address, first.address, 4);
            }
            adapters.push_back(std::make_shared<NetworkAdapter>(entry.adapterName, mac, entry.friendlyName,
                                                                entry.description, address, prefix));
        }
    } catch (const std::exception&) {
        // One bad adapter fails the whole listing, deliberately.
        throw std::runtime_error("Could not enumerate adapters");
    }
    return adapters;
}

} // namespace Baselibs
