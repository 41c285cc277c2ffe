#include <gtest/gtest.h>

#include <QApplication>

#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>

namespace {

// Discovery broadcasts stay inside a private namespace that holds only lo, when we may make one.
void enterPrivateNetwork()
{
    if (geteuid() != 0 || unshare(CLONE_NEWNET) != 0)
        return;
    const int fd = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request{};
    std::strncpy(request.ifr_name, "lo", IFNAMSIZ - 1);
    if (fd >= 0 && ioctl(fd, SIOCGIFFLAGS, &request) == 0) {
        request.ifr_flags |= IFF_UP;
        ioctl(fd, SIOCSIFFLAGS, &request);
    }
    if (fd >= 0)
        close(fd);
}

} // namespace

int main(int argc, char** argv)
{
    enterPrivateNetwork();
    QApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
