#pragma once

#include "baselibs/IAdapterListSource.h"
#include "baselibs/INetworkAdapter.h"

#include <memory>
#include <vector>

namespace Baselibs {

// Lists the usable adapters: up, with a six-byte physical address.
class NetworkManager
{
public:
    class NetworkAdapter;

    NetworkManager();   // the platform's own list
    explicit NetworkManager(std::shared_ptr<const IAdapterListSource> source);

    std::vector<std::shared_ptr<INetworkAdapter>> GetAdapters() const;

    static std::shared_ptr<const IAdapterListSource> PlatformSource();

private:
    std::shared_ptr<const IAdapterListSource> m_source;
};

} // namespace Baselibs
