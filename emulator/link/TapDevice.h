#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace bwm::link {

// The host's end of the link. Opening it gives the tap its carrier.
class CTapDevice
{
public:
    explicit CTapDevice(const std::string& name);
    ~CTapDevice();
    CTapDevice(const CTapDevice&) = delete;
    CTapDevice& operator=(const CTapDevice&) = delete;

    int fd() const { return m_fd; }
    bool write(const std::uint8_t* frame, std::size_t size);
    // Frame size, 0 when nothing is waiting.
    std::size_t read(std::uint8_t* buffer, std::size_t capacity);

private:
    int m_fd = -1;
};

} // namespace bwm::link
