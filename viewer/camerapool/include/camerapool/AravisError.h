#pragma once

#include <QString>

typedef struct _GError GError;

namespace CameraPool {

// The one place where Aravis' GError becomes the host's GenICam exception.
class CGErrorSink
{
public:
    CGErrorSink() = default;
    CGErrorSink(const CGErrorSink&) = delete;
    CGErrorSink& operator=(const CGErrorSink&) = delete;
    ~CGErrorSink();

    GError** out() { return &m_error; }
    bool isSet() const { return m_error != nullptr; }
    // Raises GenICam_3_1_Dorvik_zenta::GenericException with Aravis' message.
    void check();

private:
    GError* m_error = nullptr;
};

[[noreturn]] void throwGenICam(const QString& message);

} // namespace CameraPool
