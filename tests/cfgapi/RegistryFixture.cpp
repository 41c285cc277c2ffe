#include "RegistryFixture.h"

#include "cfgapi/CNetworkAdapter.h"

#include <arpa/inet.h>
#include <cstring>
#include <exception>

std::string SRegistryFixture::AdapterPath(const std::string& sub)
{
    return std::string(CfgApi::CNetworkAdapter::kClassKey) + "\\" + sub;
}

void SRegistryFixture::AddIntelAdapter(CfgApi::CInMemoryRegistryView& r, const std::string& sub,
                                       const std::string& guid)
{
    const std::string key = AdapterPath(sub);
    const std::string params = key + "\\Ndi\\Params\\";
    r.SetString(key, "NetCfgInstanceId", guid);
    r.SetString(key, "*JumboPacket", "1514");
    r.SetString(key, "*ReceiveBuffers", "256");
    r.SetString(key, "*InterruptModeration", "0");
    r.SetString(key, "ITR", "0");
    r.SetString(params + "*JumboPacket", "Type", "enum");
    for (const char* v : {"9014", "1514", "4088"})
        r.SetString(params + "*JumboPacket\\Enum", v, std::string(v) + " Bytes");
    r.SetString(params + "*ReceiveBuffers", "Type", "int");
    r.SetString(params + "*ReceiveBuffers", "min", "80");
    r.SetString(params + "*ReceiveBuffers", "max", "2048");
    r.SetString(params + "*ReceiveBuffers", "step", "8");
    r.SetString(params + "*InterruptModeration", "Type", "enum");
    r.SetString(params + "*InterruptModeration\\Enum", "0", "Disabled");
    r.SetString(params + "*InterruptModeration\\Enum", "1", "Enabled");
    r.SetString(params + "ITR", "Type", "enum");
    for (const char* v : {"0", "200", "65535"})
        r.SetString(params + "ITR\\Enum", v, v);
}

SFakePlatform::SFakePlatform()
{
    SRegistryFixture::AddIntelAdapter(*registry, "0007", "{A1}");
    Baselibs::SPlatformAdapterEntry e;
    e.adapterName = "{A1}";
    e.friendlyName = "Camera LAN";
    e.description = "Intel(R) Ethernet Controller I210";
    e.physicalAddress = {0x00, 0x1B, 0x21, 0x01, 0x02, 0x03};
    e.operUp = true;
    Baselibs::SUnicastAddress u;
    u.family = AF_INET;
    const uint32_t a = htonl(0xC0A80A01);
    std::memcpy(u.address, &a, 4);
    u.onLinkPrefixLength = 24;
    e.unicastAddresses = {u};
    e.receiveLinkSpeed = 1000000000ull;
    e.dhcpEnabled = false;
    adapters->m_entries = {e};
}

CfgApi::SPlatform SFakePlatform::Platform()
{
    CfgApi::SPlatform p;
    p.adapters = adapters;
    p.registry = registry;
    p.management = management;
    p.elevation = elevation;
    p.sleep = [this](unsigned ms) { sleeps.push_back(ms); };
    return p;
}

std::string ThrownText(const std::function<void()>& f)
{
    try {
        f();
    } catch (const std::exception& e) {
        return e.what();
    }
    return "(nothing thrown)";
}
