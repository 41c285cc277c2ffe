#include "baselibs/IPv4Configuration.h"

#include "baselibs/StdStringPrintf.h"

#include <arpa/inet.h>
#include <array>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace {

constexpr std::array<uint8_t, 256> MakeBitCounts()
{
    std::array<uint8_t, 256> counts{};
    for (unsigned i = 0; i < 256; ++i) {
        unsigned n = 0;
        for (unsigned v = i; v != 0; v >>= 1)
            n += v & 1u;
        counts[i] = static_cast<uint8_t>(n);
    }
    return counts;
}

constexpr std::array<uint8_t, 256> kBitCounts = MakeBitCounts();

uint8_t CheckedPrefix(uint8_t prefix)
{
    if (prefix > 32)
        throw std::invalid_argument("Invalid prefix.");
    return prefix;
}

uint32_t ParseAddress(const std::string& text)
{
    if (text.size() < 7)
        throw std::invalid_argument("Invalid IP address.");
    unsigned parts[4] = {};
    // Whatever follows the fourth number is ignored on purpose.
    if (std::sscanf(text.c_str(), "%u.%u.%u.%u", &parts[0], &parts[1], &parts[2], &parts[3]) != 4)
        throw std::invalid_argument("Invalid IP address.");
    uint8_t bytes[4];
    for (int i = 0; i < 4; ++i) {
        if (parts[i] > 255)
            throw std::invalid_argument("Invalid IP address.");
        bytes[i] = static_cast<uint8_t>(parts[i] & 0xFFu);
    }
    uint32_t address;
    std::memcpy(&address, bytes, 4);
    return address;
}

std::string DottedText(uint32_t networkOrder)
{
    uint8_t b[4];
    std::memcpy(b, &networkOrder, 4);
    return StdStringXSPrintf("%d.%d.%d.%d", b[0], b[1], b[2], b[3]);
}

} // namespace

IPv4Configuration::IPv4Configuration(uint32_t address, uint8_t prefix)
    : m_address(address), m_prefix(CheckedPrefix(prefix))
{
}

IPv4Configuration::IPv4Configuration(const std::string& address, uint8_t prefix)
    : m_address(ParseAddress(address)), m_prefix(CheckedPrefix(prefix))
{
}

void IPv4Configuration::SetAddress(const std::string& address)
{
    m_address = ParseAddress(address);
}

void IPv4Configuration::SetPrefix(uint8_t prefix)
{
    m_prefix = CheckedPrefix(prefix);
}

void IPv4Configuration::SetMask(uint32_t mask)
{
    // A non-contiguous mask is not refused; its one bits are simply counted.
    uint8_t b[4];
    std::memcpy(b, &mask, 4);
    m_prefix = static_cast<uint8_t>(kBitCounts[b[0]] + kBitCounts[b[1]] + kBitCounts[b[2]] + kBitCounts[b[3]]);
}

uint32_t IPv4Configuration::MaskFromPrefix(uint8_t prefix)
{
    uint32_t mask = 0;
    for (unsigned i = 0; i < prefix; ++i)
        mask = (mask >> 1) + 0x80000000u;
    return htonl(mask);
}

std::string IPv4Configuration::AddressText() const
{
    return DottedText(m_address);
}

std::string IPv4Configuration::MaskText() const
{
    return DottedText(MaskFromPrefix(m_prefix));
}

std::string IPv4Configuration::ToText() const
{
    return StdStringXSPrintf("IP: %s, Mask: %s [%d]", AddressText().c_str(), MaskText().c_str(), m_prefix);
}

bool IPv4Configuration::IsSameSubnet(const IPv4Configuration& other) const
{
    const uint32_t maskA = MaskFromPrefix(m_prefix);
    const uint32_t maskB = MaskFromPrefix(other.m_prefix);
    const uint32_t netA = m_address & maskA;
    const uint32_t netB = other.m_address & maskB;
    if (maskA == maskB)
        return netA == netB;
    // Compared under the shorter of the two prefixes, deliberately.
    if (ntohl(maskA) >= ntohl(maskB))
        return netB == (netA & maskB);
    return netA == (netB & maskA);
}

bool IPv4Configuration::operator==(const IPv4Configuration& other) const
{
    return m_address == other.m_address && m_prefix == other.m_prefix;
}
