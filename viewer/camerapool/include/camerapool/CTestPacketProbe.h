#pragma once

#include <QtGlobal>

typedef struct _ArvDevice ArvDevice;

namespace CameraPool {

// A GigE camera's stream channel pointed at a socket of our own on the host
// adapter, with fragmentation off, so that a test packet of a size arrives
// whole or not at all. Puts the do-not-fragment bit back when done; the stream
// channel's destination is the next stream's to set. Register access raises
// GenICam exceptions as the camera's does.
class CTestPacketProbe
{
public:
    explicit CTestPacketProbe(ArvDevice* device);
    ~CTestPacketProbe();
    CTestPacketProbe(const CTestPacketProbe&) = delete;
    CTestPacketProbe& operator=(const CTestPacketProbe&) = delete;

    // The host adapter's address, host byte order.
    quint32 hostAddress() const { return m_hostAddress; }
    // Sets the packet size and fires test packets, three at most; true when one
    // of exactly that size arrived.
    bool carries(qint64 packetSize);
    // Leaves the camera with this packet size.
    void setPacketSize(qint64 packetSize);
    // The packet size the camera had before the probe.
    qint64 originalPacketSize() const { return m_original; }

private:
    bool receives(qint64 datagramBytes, int timeoutMs);

    ArvDevice* m_device;
    int m_socket = -1;
    quint32 m_hostAddress = 0;
    bool m_doNotFragment = false;
    qint64 m_original = 0;
    qint64 m_current = 0;
};

} // namespace CameraPool
