#include <camerapool/AravisError.h>

#include <GenICam/GenericException.h>

#include <glib.h>

namespace CameraPool {

CGErrorSink::~CGErrorSink()
{
    g_clear_error(&m_error);
}

void CGErrorSink::check()
{
    if (!m_error)
        return;
    const QString message = QString::fromUtf8(m_error->message);
    g_clear_error(&m_error);
    throwGenICam(message);
}

void throwGenICam(const QString& message)
{
    throw GenICam_3_1_Dorvik_zenta::GenericException(message.toStdString());
}

} // namespace CameraPool
