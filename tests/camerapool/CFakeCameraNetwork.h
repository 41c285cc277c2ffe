#pragma once

#include <QString>
#include <QStringList>

#include <sys/types.h>

#include <list>

// Aravis' fake GigE cameras for the tests. As root: a host namespace that
// this process enters and a camera namespace behind two veth links, each
// link its own subnet. Otherwise loopback with one camera. The namespaces
// lose their names once built, so they end with this process and its
// cameras, however it ends.
class CFakeCameraNetwork
{
public:
    struct SCamera
    {
        QString serial;
        QString address;
        QString hostAddress;  // the host side of the camera's link
        pid_t pid = -1;
    };

    // Call first in main, before any thread exists.
    static CFakeCameraNetwork& instance();
    bool setUp();
    void tearDown();

    bool isNamespaced() const { return m_namespaced; }
    // Link 0 or 1, host number on the link (2, 3, ...). Null when the camera did not come up.
    const SCamera* startCamera(int link, int host, const QString& serial, const QStringList& extraArguments = {});
    void killCamera(const SCamera* camera);
    QString skipReason() const { return m_skipReason; }

private:
    bool run(const QStringList& arguments) const;
    void removeStaleNamespaces() const;

    bool m_namespaced = false;
    int m_subnet = 0;
    QString m_hostNs;
    QString m_cameraNs;
    int m_cameraNsFd = -1;
    QString m_skipReason;
    std::list<SCamera> m_cameras;  // handed out by address
};
