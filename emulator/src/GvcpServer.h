#pragma once

#include "Config.h"
#include "Device.h"

#include <atomic>
#include <string>
#include <vector>

namespace gigeemu {

// The control channel's sockets: unicast commands on the device address, discovery on broadcast.
class CGvcpServer {
public:
    CGvcpServer(const SConfig& config, CDevice& device, std::uint32_t ip, std::uint32_t netmask);
    ~CGvcpServer();
    CGvcpServer(const CGvcpServer&) = delete;
    CGvcpServer& operator=(const CGvcpServer&) = delete;

    bool open(std::string& error);
    void run(const std::atomic<bool>& stop, const IClock& clock);

private:
    int bindSocket(std::uint32_t ip, bool shared, std::string& error);
    void receive(int fd, bool viaBroadcast);
    void printStats() const;

    SConfig m_config;
    CDevice& m_device;
    std::uint32_t m_ip;
    std::uint32_t m_netmask;
    int m_unicast = -1;
    std::vector<int> m_broadcast;
};

} // namespace gigeemu
