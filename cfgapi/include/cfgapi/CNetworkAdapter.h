#pragma once

#include "cfgapi/CDriverEnumParameter.h"
#include "cfgapi/INetworkAdapter.h"
#include "cfgapi/SAdapterSettings.h"
#include "cfgapi/SPlatform.h"

#include <memory>
#include <string>

namespace Baselibs {
struct SPlatformAdapterEntry;
}

namespace CfgApi {

class AdapterLogStream;

// Reads everything once at construction; the snapshot is not refreshed.
class CNetworkAdapter : public INetworkAdapter
{
public:
    static constexpr const char* kClassKey =
        "SYSTEM\\CurrentControlSet\\Control\\Class\\{4d36e972-e325-11ce-bfc1-08002be10318}";

    CNetworkAdapter(const std::string& uniqueName, const MacAddress& macAddress, const std::string& name,
                    const std::string& description, SPlatform platform);

    std::string GetName() const override;
    MacAddress GetMacAddress() const override;
    std::string GetUniqueName() const override;
    std::string GetDescription() const override;
    uint32_t GetMtu() const override;
    void SetMtu(uint32_t value) override;
    std::vector<uint32_t> GetAvailableMtus() const override;
    int32_t GetLinkSpeed() const override;
    std::vector<IPv4Configuration> GetIpv4Configurations() const override;
    void SetIpv4Configuration(const IPv4Configuration& config) override;
    bool GetDhcpEnabled() const override;
    void SetDhcpEnabled(bool enable) override;
    void ApplyChanges(ILogSink* sink) override;
    void Refresh() override;
    bool QualifiesByMacOrSpeed() const override;
    void Optimize(ILogSink* sink) override;
    uint32_t GetReceiveBuffers() const override;
    void SetReceiveBuffers(uint32_t value) override;

    const std::string& GetRegistryPath() const { return m_registryPath; }
    uint32_t GetAdapterIndex() const { return m_adapterIndex; }
    const CDriverEnumParameter& GetItrParameter() const { return *m_itrParameter; }

protected:
    // The working copy as such; no setter turns DHCP on, a derived class may.
    SAdapterSettings& WorkingCopy() { return m_current; }

private:
    std::string FindRegistryPath(const std::string& uniqueName) const;
    bool FindEntry(const std::string& uniqueName, Baselibs::SPlatformAdapterEntry& entry) const;
    void ReadIpv4Configurations(const Baselibs::SPlatformAdapterEntry* entry);
    void ReadReceiveBuffers();
    void WriteReceiveBuffers(uint32_t value);
    void SetStaticAddress(const std::vector<IPv4Configuration>& configurations);
    void RequireElevation() const;

    SAdapterSettings m_current;
    SAdapterSettings m_applied;
    CDriverEnumParameter m_jumboPacketParameter;
    CDriverEnumParameter m_interruptModerationParameter;
    std::unique_ptr<CDriverEnumParameter> m_itrParameter;
    std::string m_registryPath;
    uint32_t m_adapterIndex = 0;
    SPlatform m_platform;
};

} // namespace CfgApi
