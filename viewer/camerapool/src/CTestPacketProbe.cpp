#include "camerapool/CTestPacketProbe.h"

#include "camerapool/Aravis.h"
#include "camerapool/AravisError.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <vector>

namespace CameraPool {

namespace {

// IP and UDP headers: a test packet of packet size N carries N - 28 bytes.
constexpr qint64 UdpOverhead = 28;
constexpr int Tries = 3;
constexpr int WaitMs = 20;

void setInteger(ArvDevice* device, const char* feature, qint64 value)
{
    CGErrorSink error;
    arv_device_set_integer_feature_value(device, feature, value, error.out());
    error.check();
}

} // namespace

CTestPacketProbe::CTestPacketProbe(ArvDevice* device) : m_device(device)
{
    GSocketAddress* host = arv_gv_device_get_interface_address(ARV_GV_DEVICE(device));
    GInetAddress* hostIp = host ? g_inet_socket_address_get_address(G_INET_SOCKET_ADDRESS(host)) : nullptr;
    if (!hostIp || g_inet_address_get_family(hostIp) != G_SOCKET_FAMILY_IPV4)
        throwGenICam(QStringLiteral("The camera's host adapter has no IPv4 address"));
    quint32 networkOrder = 0;
    memcpy(&networkOrder, g_inet_address_to_bytes(hostIp), sizeof networkOrder);
    m_hostAddress = ntohl(networkOrder);

    m_socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_addr.s_addr = networkOrder;
    socklen_t length = sizeof local;
    if (m_socket < 0 || ::bind(m_socket, reinterpret_cast<sockaddr*>(&local), sizeof local) != 0
        || ::getsockname(m_socket, reinterpret_cast<sockaddr*>(&local), &length) != 0) {
        if (m_socket >= 0)
            ::close(m_socket);
        throwGenICam(QStringLiteral("No socket for the camera's test packets"));
    }
    try {
        setInteger(device, "ArvGevSCDA", qint64(m_hostAddress));
        setInteger(device, "ArvGevSCPHostPort", ntohs(local.sin_port));
        CGErrorSink error;
        m_original = arv_device_get_integer_feature_value(device, "ArvGevSCPSPacketSize", error.out());
        error.check();
        m_current = m_original;
        m_doNotFragment = arv_device_get_boolean_feature_value(device, "ArvGevSCPSDoNotFragment", error.out());
        error.check();
        arv_device_set_boolean_feature_value(device, "ArvGevSCPSDoNotFragment", TRUE, error.out());
        error.check();
    } catch (...) {
        ::close(m_socket);
        throw;
    }
}

CTestPacketProbe::~CTestPacketProbe()
{
    arv_device_set_boolean_feature_value(m_device, "ArvGevSCPSDoNotFragment", m_doNotFragment, nullptr);
    ::close(m_socket);
}

void CTestPacketProbe::setPacketSize(qint64 packetSize)
{
    if (packetSize == m_current)
        return;
    setInteger(m_device, "ArvGevSCPSPacketSize", packetSize);
    m_current = packetSize;
}

bool CTestPacketProbe::carries(qint64 packetSize)
{
    setPacketSize(packetSize);
    for (int attempt = 0; attempt < Tries; ++attempt) {
        CGErrorSink error;
        arv_device_execute_command(m_device, "ArvGevSCPSFireTestPacket", error.out());
        error.check();
        if (receives(packetSize - UdpOverhead, WaitMs))
            return true;
    }
    return false;
}

// Late packets of an earlier size are drained and passed over.
bool CTestPacketProbe::receives(qint64 datagramBytes, int timeoutMs)
{
    std::vector<char> buffer(65536);
    pollfd descriptor{m_socket, POLLIN, 0};
    while (::poll(&descriptor, 1, timeoutMs) > 0) {
        const ssize_t got = ::recv(m_socket, buffer.data(), buffer.size(), 0);
        if (got == datagramBytes)
            return true;
    }
    return false;
}

} // namespace CameraPool
