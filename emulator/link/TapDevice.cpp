#include "TapDevice.h"
#include "SysError.h"

#include <fcntl.h>
#include <linux/if_tun.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace bwm::link {

CTapDevice::CTapDevice(const std::string& name)
{
    if (name.size() >= IFNAMSIZ)
        throw std::runtime_error("tap name too long: " + name);
    m_fd = ::open("/dev/net/tun", O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (m_fd < 0)
        throw sysError("open /dev/net/tun");
    ifreq ifr{};
    ifr.ifr_flags = IFF_TAP | IFF_NO_PI;
    name.copy(ifr.ifr_name, IFNAMSIZ - 1);
    if (::ioctl(m_fd, TUNSETIFF, &ifr) < 0) {
        const auto error = sysError("TUNSETIFF " + name);
        ::close(m_fd);
        throw error;
    }
}

CTapDevice::~CTapDevice()
{
    ::close(m_fd);
}

bool CTapDevice::write(const std::uint8_t* frame, std::size_t size)
{
    return ::write(m_fd, frame, size) == static_cast<ssize_t>(size);
}

std::size_t CTapDevice::read(std::uint8_t* buffer, std::size_t capacity)
{
    const ssize_t n = ::read(m_fd, buffer, capacity);
    return n > 0 ? static_cast<std::size_t>(n) : 0;
}

} // namespace bwm::link
