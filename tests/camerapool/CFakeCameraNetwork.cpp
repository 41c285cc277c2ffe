#include "CFakeCameraNetwork.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QThread>

#include <fcntl.h>
#include <sched.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

CFakeCameraNetwork& CFakeCameraNetwork::instance()
{
    static CFakeCameraNetwork network;
    return network;
}

bool CFakeCameraNetwork::run(const QStringList& arguments) const
{
    QProcess process;
    process.start(QStringLiteral("ip"), arguments);
    return process.waitForFinished(10000) && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

bool CFakeCameraNetwork::setUp()
{
    const int id = int(getpid());
    // Our own range: 10.214.<2k>.0/24 and 10.214.<2k+1>.0/24.
    m_subnet = (id % 120) * 2;
    m_hostNs = QStringLiteral("bwmcam_h_%1").arg(id);
    m_cameraNs = QStringLiteral("bwmcam_c_%1").arg(id);
    removeStaleNamespaces();
    if (geteuid() != 0 || !run({"netns", "add", m_hostNs})) {
        m_skipReason = QStringLiteral("no network namespace (needs root); using loopback");
        return false;
    }
    run({"netns", "add", m_cameraNs});
    bool ok = true;
    for (int link = 0; link < 2; ++link) {
        const QString host = QStringLiteral("bwmh%1").arg(link);
        const QString camera = QStringLiteral("bwmc%1").arg(link);
        const QString subnet = QStringLiteral("10.214.%1.").arg(m_subnet + link);
        ok = ok && run({"link", "add", "name", host, "netns", m_hostNs, "type", "veth", "peer", "name", camera, "netns", m_cameraNs});
        ok = ok && run({"-n", m_hostNs, "addr", "add", subnet + "1/24", "dev", host});
        ok = ok && run({"-n", m_cameraNs, "addr", "add", subnet + "2/24", "dev", camera});
        ok = ok && run({"-n", m_cameraNs, "addr", "add", subnet + "3/24", "dev", camera});
        ok = ok && run({"-n", m_hostNs, "link", "set", host, "up"});
        ok = ok && run({"-n", m_cameraNs, "link", "set", camera, "up"});
    }
    ok = ok && run({"-n", m_hostNs, "link", "set", "lo", "up"}) && run({"-n", m_cameraNs, "link", "set", "lo", "up"});
    const int fd = ok ? ::open(QStringLiteral("/var/run/netns/%1").arg(m_hostNs).toUtf8().constData(), O_RDONLY | O_CLOEXEC) : -1;
    ok = fd >= 0 && setns(fd, CLONE_NEWNET) == 0;
    if (fd >= 0)
        ::close(fd);
    if (ok)
        m_cameraNsFd = ::open(QStringLiteral("/var/run/netns/%1").arg(m_cameraNs).toUtf8().constData(), O_RDONLY | O_CLOEXEC);
    ok = ok && m_cameraNsFd >= 0;
    // Named namespaces outlive a process that dies before it removes them. Held
    // by this process, its descriptor and the cameras instead, they go with us.
    run({"netns", "del", m_cameraNs});
    run({"netns", "del", m_hostNs});
    m_hostNs.clear();
    if (!ok) {
        m_skipReason = QStringLiteral("could not build the namespaces");
        tearDown();
        return false;
    }
    m_namespaced = true;
    return true;
}

void CFakeCameraNetwork::removeStaleNamespaces() const
{
    // Ours are named after the test's pid; a killed run leaves them behind.
    const QDir folder(QStringLiteral("/var/run/netns"));
    const QRegularExpression own(QStringLiteral("^bwmcam_[hc]_(\\d+)$"));
    for (const QString& name : folder.entryList(QDir::Files)) {
        const QRegularExpressionMatch match = own.match(name);
        if (match.hasMatch() && !QDir(QStringLiteral("/proc/") + match.captured(1)).exists())
            run({"netns", "del", name});
    }
}

void CFakeCameraNetwork::tearDown()
{
    for (SCamera& camera : m_cameras)
        killCamera(&camera);
    if (m_cameraNsFd >= 0) {
        ::close(m_cameraNsFd);
        m_cameraNsFd = -1;
    }
}

const CFakeCameraNetwork::SCamera* CFakeCameraNetwork::startCamera(int link, int host, const QString& serial,
                                                                   const QStringList& extraArguments)
{
    SCamera camera;
    camera.serial = serial;
    QStringList arguments;
    if (m_namespaced) {
        camera.address = QStringLiteral("10.214.%1.%2").arg(m_subnet + link).arg(host);
        camera.hostAddress = QStringLiteral("10.214.%1.1").arg(m_subnet + link);
    } else {
        if (!m_cameras.empty())
            return nullptr;  // loopback has room for one camera
        camera.address = camera.hostAddress = QStringLiteral("127.0.0.1");
    }
    arguments << "arv-fake-gv-camera-0.8" << "-i" << camera.address << "-s" << serial << extraArguments;

    std::vector<QByteArray> storage;
    std::vector<char*> argv;
    for (const QString& argument : arguments)
        storage.push_back(argument.toUtf8());
    for (QByteArray& argument : storage)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    camera.pid = fork();
    if (camera.pid == 0) {
        // The camera goes with us even when we are killed.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (m_cameraNsFd >= 0 && setns(m_cameraNsFd, CLONE_NEWNET) != 0)
            _exit(126);
        const int null = ::open("/dev/null", O_WRONLY);
        dup2(null, STDOUT_FILENO);
        dup2(null, STDERR_FILENO);
        execvp(argv[0], argv.data());
        _exit(127);
    }
    if (camera.pid < 0)
        return nullptr;
    QThread::msleep(300);
    if (waitpid(camera.pid, nullptr, WNOHANG) != 0)
        return nullptr;  // exited at once: "Failed to start camera"
    m_cameras.push_back(camera);
    return &m_cameras.back();
}

void CFakeCameraNetwork::killCamera(const SCamera* camera)
{
    for (SCamera& own : m_cameras) {
        if (&own == camera && own.pid > 0) {
            ::kill(own.pid, SIGKILL);
            waitpid(own.pid, nullptr, 0);
            own.pid = -1;
        }
    }
}
