#include <host/fakes/CFakeCamera.h>

namespace HostFakes {

bool CFakeCamera::startGrabbing()
{
    ++m_startCount;
    if (m_startFails)
        return false;
    m_grabbing = true;
    return true;
}

void CFakeCamera::grab(bool succeeded, size_t payloadSize)
{
    emit cameraImageGrabbed(m_info, Zenta::CGrabResultPtr(Zenta::CGrabResultData(succeeded, payloadSize)));
}

void CFakeCamera::loseConnection()
{
    m_grabbing = false;
    emit cameraConnectionLost();
}

} // namespace HostFakes
