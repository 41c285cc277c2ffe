// bwm-netcfg: the network configuration layer from the command line.
//   list             the usable adapters, one line each
//   show NAME        one adapter's driver settings (NAME: friendly or unique name)
//   optimize NAME    Optimize and ApplyChanges, printing the log lines
#include "baselibs/IPv4Configuration.h"
#include "baselibs/NetworkManager.h"
#include "cfgapi/CreateNetworkConfig.h"
#include "cfgapi/ILogSink.h"

#include <cstdio>
#include <cstring>
#include <exception>
#include <stdexcept>
#include <string>

namespace {

void PrintList()
{
    std::vector<Baselibs::SPlatformAdapterEntry> entries;
    Baselibs::NetworkManager::PlatformSource()->List(entries);
    for (const auto& adapter : Baselibs::NetworkManager().GetAdapters()) {
        const std::string internal = adapter->GetInternalName();
        const IPv4Configuration address(adapter->HasIpv4Address() ? adapter->GetIpv4Address() : 0,
                                        adapter->HasPrefixLength() ? adapter->GetPrefixLength() : 0);
        uint32_t mtu = 0;
        long long speed = -1;
        for (const auto& entry : entries) {
            if (entry.adapterName == internal) {
                mtu = entry.mtu;
                if (entry.receiveLinkSpeed != UINT64_MAX)
                    speed = static_cast<long long>(entry.receiveLinkSpeed / 1000000u);
            }
        }
        std::printf("name=%s internal=%s mac=%s ipv4=%s/%u mtu=%u speed=%lld description=%s\n",
                    adapter->GetFriendlyName().c_str(), internal.c_str(), adapter->GetMacAddress().ToText(':').c_str(),
                    address.AddressText().c_str(), address.GetPrefix(), mtu, speed,
                    adapter->HasDescription() ? adapter->GetDescription().c_str() : "");
    }
}

std::shared_ptr<CfgApi::INetworkAdapter> Find(const std::string& name)
{
    auto config = CfgApi::CreateNetworkConfig();
    if (!config)
        throw std::runtime_error("Invalid network config received.");
    for (auto& adapter : config->GetNetworkAdapters())
        if (adapter->GetName() == name || adapter->GetUniqueName() == name)
            return adapter;
    throw std::runtime_error("No adapter named " + name);
}

void PrintSettings(const CfgApi::INetworkAdapter& adapter)
{
    std::printf("name=%s\nunique=%s\ndescription=%s\nmtu=%u\navailableMtus=", adapter.GetName().c_str(),
                adapter.GetUniqueName().c_str(), adapter.GetDescription().c_str(), adapter.GetMtu());
    for (uint32_t mtu : adapter.GetAvailableMtus())
        std::printf("%u ", mtu);
    std::printf("\nlinkSpeed=%d\nreceiveBuffers=%u\ndhcp=%d\n", adapter.GetLinkSpeed(), adapter.GetReceiveBuffers(),
                adapter.GetDhcpEnabled() ? 1 : 0);
    for (const auto& configuration : adapter.GetIpv4Configurations())
        std::printf("ipv4=%s\n", configuration.ToText().c_str());
}

class CPrintingSink : public CfgApi::ILogSink
{
public:
    void Write(uint32_t level, const char* text) override { std::printf("%u %s\n", level, text); }
    int32_t GetLevel() const override { return 0; }
};

int Usage()
{
    std::fprintf(stderr, "usage: bwm-netcfg list | show NAME | optimize NAME\n");
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2)
        return Usage();
    const std::string command = argv[1];
    try {
        if (command == "list" && argc == 2) {
            PrintList();
        } else if (command == "show" && argc == 3) {
            PrintSettings(*Find(argv[2]));
        } else if (command == "optimize" && argc == 3) {
            auto adapter = Find(argv[2]);
            CPrintingSink sink;
            adapter->Optimize(&sink);
            adapter->ApplyChanges(&sink);
        } else {
            return Usage();
        }
    } catch (const std::exception& e) {
        std::fflush(stdout);
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
    return 0;
}
