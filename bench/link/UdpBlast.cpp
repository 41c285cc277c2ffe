// bwm-udp-blast: a UDP source and sink with batched system calls, to find how
// many frames per second the test network's link carries.
//   bwm-udp-blast send ADDR PORT --seconds S [--size N] [--rate-mbps R]
//   bwm-udp-blast recv ADDR PORT --seconds S
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

double now()
{
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return ts.tv_sec + ts.tv_nsec * 1e-9;
}

int usage()
{
    std::fputs("usage: bwm-udp-blast send|recv ADDR PORT --seconds S [--size N] [--rate-mbps R] [--batch N]\n",
               stderr);
    return 2;
}

constexpr int kBatch = 64;

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4)
        return usage();
    const std::string mode = argv[1];
    sockaddr_in addr{};
    addr.sin_family = AF_INET;
    addr.sin_port = htons(static_cast<uint16_t>(std::atoi(argv[3])));
    if (inet_pton(AF_INET, argv[2], &addr.sin_addr) != 1)
        return usage();
    double seconds = 5, rateMbps = 0;
    std::size_t size = 1472;
    int batch = kBatch;
    for (int i = 4; i + 1 < argc; i += 2) {
        const std::string o = argv[i];
        if (o == "--seconds") seconds = std::atof(argv[i + 1]);
        else if (o == "--size") size = std::strtoul(argv[i + 1], nullptr, 10);
        else if (o == "--rate-mbps") rateMbps = std::atof(argv[i + 1]);
        else if (o == "--batch") batch = std::max(1, std::min(kBatch, std::atoi(argv[i + 1])));
        else return usage();
    }
    const int fd = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd < 0) {
        std::perror("socket");
        return 1;
    }
    std::vector<char> buffers(kBatch * 65536);
    std::vector<iovec> iov(kBatch);
    std::vector<mmsghdr> msgs(kBatch);
    for (int i = 0; i < kBatch; ++i) {
        iov[i] = {buffers.data() + i * 65536, mode == "send" ? size : 65536};
        msgs[i].msg_hdr.msg_iov = &iov[i];
        msgs[i].msg_hdr.msg_iovlen = 1;
    }
    unsigned long long datagrams = 0, bytes = 0, failed = 0;
    if (mode == "send") {
        if (connect(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) < 0) {
            std::perror("connect");
            return 1;
        }
        const double start = now();
        // Small batches when paced: a burst larger than the switch buffer would
        // be the sender's loss, not the link's.
        const double perBatch = rateMbps > 0 ? batch * size * 8 / (rateMbps * 1e6) : 0;
        double next = start;
        while (now() - start < seconds) {
            const int n = sendmmsg(fd, msgs.data(), batch, 0);
            if (n > 0) {
                datagrams += n;
                bytes += n * size;
            } else {
                ++failed;
            }
            if (perBatch > 0) {
                next += perBatch;
                const double wait = next - now();
                if (wait > 0) {
                    const timespec ts{time_t(wait), long((wait - time_t(wait)) * 1e9)};
                    nanosleep(&ts, nullptr);
                }
            }
        }
        const double elapsed = now() - start;
        std::printf("sent datagrams=%llu per_s=%.0f mbytes_per_s=%.2f failed_calls=%llu\n", datagrams,
                    datagrams / elapsed, bytes / elapsed / 1e6, failed);
        return 0;
    }
    if (mode != "recv")
        return usage();
    int rcvbuf = 8 << 20;
    setsockopt(fd, SOL_SOCKET, SO_RCVBUFFORCE, &rcvbuf, sizeof rcvbuf);
    if (bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) < 0) {
        std::perror("bind");
        return 1;
    }
    const timeval tv{0, 100000};
    setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &tv, sizeof tv);
    double first = 0, last = 0;
    const double start = now();
    while (now() - start < seconds) {
        const int n = recvmmsg(fd, msgs.data(), kBatch, MSG_WAITFORONE, nullptr);
        if (n <= 0)
            continue;
        last = now();
        if (datagrams == 0)
            first = last;
        datagrams += n;
        for (int i = 0; i < n; ++i)
            bytes += msgs[i].msg_len;
    }
    const double span = last > first ? last - first : 1;
    std::printf("received datagrams=%llu per_s=%.0f mbytes_per_s=%.2f\n", datagrams,
                datagrams / span, bytes / span / 1e6);
    return 0;
}
