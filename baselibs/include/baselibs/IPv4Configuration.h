#pragma once

#include <cstdint>
#include <string>

// An IPv4 address in network byte order with its prefix length; five bytes
// of content so that lists of them stay packed.
#pragma pack(push, 1)
class IPv4Configuration
{
public:
    IPv4Configuration() = default;
    IPv4Configuration(uint32_t address, uint8_t prefix);
    IPv4Configuration(const std::string& address, uint8_t prefix);

    void SetAddress(const std::string& address);
    void SetPrefix(uint8_t prefix);
    void SetMask(uint32_t mask);

    uint32_t GetAddress() const { return m_address; }
    uint8_t GetPrefix() const { return m_prefix; }

    std::string AddressText() const;
    std::string MaskText() const;
    std::string ToText() const;

    bool IsSameSubnet(const IPv4Configuration& other) const;

    bool operator==(const IPv4Configuration& other) const;
    bool operator!=(const IPv4Configuration& other) const { return !(*this == other); }

    // Host-order mask with `prefix` leading one bits, in network byte order.
    static uint32_t MaskFromPrefix(uint8_t prefix);

private:
    uint32_t m_address = 0;
    uint8_t m_prefix = 0;
};
#pragma pack(pop)

static_assert(sizeof(IPv4Configuration) == 5, "IPv4Configuration entries stand five bytes apart");
