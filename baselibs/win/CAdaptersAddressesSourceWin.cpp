#include "baselibs/win/CAdaptersAddressesSourceWin.h"

#include "baselibs/TextEncoding.h"

#include <winsock2.h>
#include <ws2tcpip.h>
#include <iphlpapi.h>

#include <cstring>

namespace Baselibs {

namespace {

std::string Utf8(const wchar_t* text)
{
    std::string utf8;
    if (text)
        Utf8FromUtf16(reinterpret_cast<const char16_t*>(text), utf8);
    return utf8;
}

SPlatformAdapterEntry EntryOf(const IP_ADAPTER_ADDRESSES& a)
{
    SPlatformAdapterEntry entry;
    entry.hasAdapterName = a.AdapterName != nullptr;
    if (a.AdapterName)
        entry.adapterName = Utf8FromLatin1(a.AdapterName);
    entry.friendlyName = Utf8(a.FriendlyName);
    entry.description = Utf8(a.Description);
    const ULONG length = a.PhysicalAddressLength < MAX_ADAPTER_ADDRESS_LENGTH ? a.PhysicalAddressLength
                                                                              : MAX_ADAPTER_ADDRESS_LENGTH;
    entry.physicalAddress.assign(a.PhysicalAddress, a.PhysicalAddress + length);
    entry.operUp = a.OperStatus == IfOperStatusUp;
    for (const IP_ADAPTER_UNICAST_ADDRESS* u = a.FirstUnicastAddress; u; u = u->Next) {
        SUnicastAddress address;
        const sockaddr* socketAddress = u->Address.lpSockaddr;
        address.family = socketAddress ? socketAddress->sa_family : 0;
        if (address.family == AF_INET)
            std::memcpy(address.address, &reinterpret_cast<const sockaddr_in*>(socketAddress)->sin_addr, 4);
        address.onLinkPrefixLength = u->OnLinkPrefixLength;
        entry.unicastAddresses.push_back(address);
    }
    entry.receiveLinkSpeed = a.ReceiveLinkSpeed;
    entry.dhcpEnabled = (a.Flags & IP_ADAPTER_DHCP_ENABLED) != 0;
    entry.mtu = a.Mtu;
    entry.interfaceIndex = a.IfIndex;
    return entry;
}

} // namespace

uint32_t CAdaptersAddressesSourceWin::List(std::vector<SPlatformAdapterEntry>& entries) const
{
    ULONG size = 15360;
    std::vector<unsigned char> buffer;
    ULONG result = ERROR_BUFFER_OVERFLOW;
    for (int call = 0; call < 3 && result == ERROR_BUFFER_OVERFLOW; ++call) {
        buffer.resize(size);
        result = GetAdaptersAddresses(AF_INET, GAA_FLAG_INCLUDE_PREFIX, nullptr,
                                      reinterpret_cast<IP_ADAPTER_ADDRESSES*>(buffer.data()), &size);
    }
    if (result != NO_ERROR)
        return result;
    entries.clear();
    for (auto* a = reinterpret_cast<const IP_ADAPTER_ADDRESSES*>(buffer.data()); a; a = a->Next)
        entries.push_back(EntryOf(*a));
    return 0;
}

} // namespace Baselibs
