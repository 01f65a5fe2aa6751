// A station on the real socket: how many datagrams a second it takes without loss, what bursts a small
// kernel queue survives, and how long a datagram takes from the sender to the handler.
//
// Sends, so it runs in a private network namespace alone: scripts/in-netns plain_socket MODE ...
#include "engine/network/mod_NetworkGroups.h"
#include "platform/EventLoopClock.h"
#include "platform/MulticastLink.h"
#include "support/RecordingDesktop.h"
#include "support/RecordingHotKeys.h"
#include "support/RecordingSounds.h"
#include "support/World.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <arpa/inet.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <netinet/udp.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace tessel;

namespace {

constexpr int kDatagramBytes = 300;
constexpr int kLocations = 1000;
constexpr int kReceiverCore = 0;
constexpr int kSenderCore = 1;
constexpr std::int64_t kNsASecond = 1000000000;

std::int64_t nowNs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * kNsASecond + now.tv_nsec;
}

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec);
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void pinTo(int core) {
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(core, &set);
    if (sched_setaffinity(0, sizeof set, &set) != 0) {
        std::printf("(core %d is not to be had: the figures are of shared cores)\n", core);
    }
}

const NetworkGroup& group() {
    return networkGroup(QStringLiteral("0"));
}

sockaddr_in groupAddress() {
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_port = htons(static_cast<std::uint16_t>(group().port));
    inet_pton(AF_INET, group().address, &to.sin_addr);
    return to;
}

// A socket set up as a station's, but by the plainest means: the measure for the link's latency.
int bareSocket() {
    const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = groupAddress();
    const int on = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    ip_mreqn membership{};
    membership.imr_multiaddr = address.sin_addr;
    const timeval patience{2, 0};
    ::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    if (::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::setsockopt(socket, IPPROTO_IP, IP_ADD_MEMBERSHIP, &membership, sizeof membership) != 0) {
        std::perror("bare socket");
        std::exit(1);
    }
    return socket;
}

std::vector<QByteArray> keepAlives() {
    std::vector<QByteArray> datagrams;
    for (int i = 0; i < kLocations; ++i) {
        RawPacket packet;
        packet.SID = QStringLiteral("%1AB123CDE%2").arg(i / 10, 3, 10, QChar(u'0')).arg(i % 10);
        packet.location = QStringLiteral("Room %1").arg(i);
        packet.code = QStringLiteral("XRKA");
        packet.note = QString(kDatagramBytes - packet.bytes().size(), u'n');
        datagrams.push_back(packet.bytes());
        if (datagrams.back().size() != kDatagramBytes) {
            qFatal("a datagram has %lld bytes", static_cast<long long>(datagrams.back().size()));
        }
    }
    return datagrams;
}

// --- The sender: a process of its own that knows system calls alone ------------------------------

struct Order {
    std::int64_t count = 0;
    std::int64_t rate = 0;     // datagrams a second, 0: as fast as it can
    std::int64_t together = 1; // datagrams handed to the kernel by one call
    bool stamped = false;      // one by one, each with the time of its sending in front
};

// One call hands several datagrams to the kernel, which takes them apart on the way: on loop-back the
// sender also pays for the delivery, and with a call for each, one core does not reach the rates wanted.
double sendAll(int socket, const QByteArray& datagrams, const Order& order) {
    const sockaddr_in to = groupAddress();
    const int size = order.together > 1 ? kDatagramBytes : 0;
    ::setsockopt(socket, IPPROTO_UDP, UDP_SEGMENT, &size, sizeof size);
    const std::int64_t start = nowNs();
    for (std::int64_t sent = 0; sent < order.count;) {
        const std::int64_t first = sent % kLocations;
        const std::int64_t batch = std::min({order.together, order.count - sent, kLocations - first});
        while (order.rate > 0 && nowNs() - start < sent * kNsASecond / order.rate) {
        }
        if (::sendto(socket, datagrams.constData() + first * kDatagramBytes,
                     static_cast<std::size_t>(batch * kDatagramBytes), 0,
                     reinterpret_cast<const sockaddr*>(&to), sizeof to) < 0) {
            std::perror("send");
            ::_exit(1);
        }
        sent += batch;
    }
    return static_cast<double>(nowNs() - start) * 1e-9;
}

double sendStamped(int socket, const Order& order) {
    const sockaddr_in to = groupAddress();
    std::array<char, kDatagramBytes> datagram{};
    const std::int64_t start = nowNs();
    for (std::int64_t i = 0; i < order.count; ++i) {
        const std::int64_t due = start + (i + 1) * kNsASecond / order.rate;
        const timespec until{due / kNsASecond, due % kNsASecond};
        clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr);
        const std::int64_t stamp = nowNs();
        std::memcpy(datagram.data(), &stamp, sizeof stamp);
        ::sendto(socket, datagram.data(), datagram.size(), 0, reinterpret_cast<const sockaddr*>(&to),
                 sizeof to);
    }
    return static_cast<double>(nowNs() - start) * 1e-9;
}

// Started before anything else: a fork of a large process would make the receiver slow for a while,
// since the two share their memory until one writes to it.
class Sender {
public:
    explicit Sender(const std::vector<QByteArray>& datagrams) {
        std::array<int, 2> ends{};
        if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0 || (m_process = ::fork()) < 0) {
            std::perror("sender");
            std::exit(1);
        }
        if (m_process == 0) {
            ::close(ends[0]);
            serve(ends[1], datagrams);
        }
        ::close(ends[1]);
        m_channel = ends[0];
    }
    ~Sender() {
        ::close(m_channel);
        ::waitpid(m_process, nullptr, 0);
    }

    void start(const Order& order) {
        if (::write(m_channel, &order, sizeof order) != sizeof order) {
            qFatal("the sender is gone");
        }
    }
    // Whether the last order is done, and in how many seconds.
    bool done(double& seconds) {
        const ssize_t size = ::recv(m_channel, &seconds, sizeof seconds, MSG_DONTWAIT);
        if (size == 0) {
            qFatal("the sender is gone");
        }
        return size == sizeof seconds;
    }

private:
    [[noreturn]] static void serve(int channel, const std::vector<QByteArray>& datagrams) {
        pinTo(kSenderCore);
        const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
        QByteArray all;
        for (const QByteArray& datagram : datagrams) {
            all += datagram;
        }
        Order order;
        while (::read(channel, &order, sizeof order) == sizeof order) {
            const double seconds = order.stamped ? sendStamped(socket, order) : sendAll(socket, all, order);
            if (::write(channel, &seconds, sizeof seconds) != sizeof seconds) {
                break;
            }
        }
        ::_exit(0);
    }

    pid_t m_process = -1;
    int m_channel = -1;
};

// --- The receiver --------------------------------------------------------------------------------

// A whole station on the real socket, already online and with all locations in its table.
class Receiver {
public:
    explicit Receiver(const std::vector<QByteArray>& datagrams) {
        if (!m_home.isValid()) {
            qFatal("no temporary folder");
        }
        const QString home = m_home.path() + u'/';
        m_facts.programFolder = home;
        m_facts.appData = home;
        m_facts.commonAppData = home;
        m_facts.documents = home;
        m_facts.desktop = home;
        m_facts.hostName = QStringLiteral("bench");
        m_facts.userName = QStringLiteral("bench");
        station = std::make_unique<Station>(m_facts, m_desktop.ports(m_clock, link, m_sounds, m_keys), 1);
        station->start();
        station->loadMain();
        station->network.Network_Start();
        if (!station->own.online) {
            qFatal("the station does not get online");
        }
        for (const QByteArray& datagram : datagrams) {
            station->protocol.receive(datagram);
        }
    }

    std::int64_t dispatched() const {
        return static_cast<std::int64_t>(station->protocol.packetsReceived(Code::XRKA));
    }

    // Handles what arrives until the sender is done and `wanted` packets were dispatched since the
    // start, or no more come. Returns the seconds that the sender took.
    double runUntil(std::int64_t wanted, Sender& sender) {
        constexpr int kLookMs = 20;
        constexpr int kQuietLooks = 10;
        QEventLoop loop;
        QTimer look;
        int quiet = 0;
        std::int64_t seen = -1;
        bool done = false;
        double seconds = 0;
        QObject::connect(&look, &QTimer::timeout, &loop, [&] {
            done = done || sender.done(seconds);
            quiet = done && dispatched() == seen ? quiet + 1 : 0;
            seen = dispatched();
            if (done && (seen >= wanted || quiet == kQuietLooks)) {
                loop.quit();
            }
        });
        look.start(kLookMs);
        loop.exec();
        return seconds;
    }

    // Leaves the kernel `bytes` of queue, as it counts them.
    void limitQueue(int bytes) {
        DIR* const folder = ::opendir("/proc/self/fd");
        while (const dirent* const entry = folder != nullptr ? ::readdir(folder) : nullptr) {
            const int descriptor = std::atoi(entry->d_name);
            sockaddr_in address{};
            socklen_t size = sizeof address;
            if (::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size) == 0 &&
                address.sin_family == AF_INET && ntohs(address.sin_port) == group().port) {
                const int half = bytes / 2; // the kernel doubles it
                ::setsockopt(descriptor, SOL_SOCKET, SO_RCVBUF, &half, sizeof half);
            }
        }
        ::closedir(folder);
        if (link.receiveQueueBytes() != bytes) {
            qFatal("the queue has %d bytes instead of %d", link.receiveQueueBytes(), bytes);
        }
    }

private:
    QTemporaryDir m_home;
    SystemFacts m_facts;
    EventLoopClock m_clock;
    RecordingDesktop m_desktop;
    RecordingSounds m_sounds;
    RecordingHotKeys m_keys;

public:
    MulticastLink link;
    std::unique_ptr<Station> station;
};

void flood(std::int64_t rate, int seconds) {
    const auto datagrams = keepAlives();
    Sender sender(datagrams);
    Receiver receiver(datagrams);
    constexpr std::int64_t kFastest = 400000; // for the number of datagrams alone
    const std::int64_t count = (rate > 0 ? rate : kFastest) * seconds;
    const std::int64_t before = receiver.dispatched();
    const double processorBefore = processorSeconds();
    sender.start({count, rate, 8, false});
    const double took = receiver.runUntil(before + count, sender);
    const std::int64_t received = receiver.dispatched() - before;
    const double used = processorSeconds() - processorBefore;
    std::printf("    %lld datagrams at %.0f a second: lost %lld (%.3f %%), %.2f us of processor each, "
                "queue %d KiB\n",
                static_cast<long long>(count), static_cast<double>(count) / took,
                static_cast<long long>(count - received),
                100.0 * static_cast<double>(count - received) / static_cast<double>(count),
                1e6 * used / static_cast<double>(received), receiver.link.receiveQueueBytes() / 1024);
}

void bursts(int queueBytes, int burst, int times) {
    const auto datagrams = keepAlives();
    Sender sender(datagrams);
    Receiver receiver(datagrams);
    receiver.limitQueue(queueBytes);
    int whole = 0;
    std::int64_t lost = 0;
    double seconds = 0;
    for (int i = 0; i < times; ++i) {
        const std::int64_t before = receiver.dispatched();
        sender.start({burst, 0, 1, false});
        seconds += receiver.runUntil(before + burst, sender);
        const std::int64_t missing = burst - (receiver.dispatched() - before);
        whole += missing == 0 ? 1 : 0;
        lost += missing;
    }
    std::printf(
        "    bursts of %d at %.0f a second into a queue of %d KiB: %d of %d whole, %lld datagrams lost\n",
        burst, burst * times / seconds, queueBytes / 1024, whole, times, static_cast<long long>(lost));
}

using Delays = std::vector<double>;

double part(Delays& delays, double share) {
    if (delays.empty()) {
        return 0;
    }
    const auto at = static_cast<std::ptrdiff_t>(share * static_cast<double>(delays.size() - 1));
    std::nth_element(delays.begin(), delays.begin() + at, delays.end());
    return delays[static_cast<std::size_t>(at)];
}

double delayUs(const char* datagram) {
    std::int64_t stamp = 0;
    std::memcpy(&stamp, datagram, sizeof stamp);
    return static_cast<double>(nowNs() - stamp) * 1e-3;
}

void waitFor(Sender& sender) {
    double seconds = 0;
    for (int tries = 0; tries < 1000 && !sender.done(seconds); ++tries) {
        ::usleep(10000);
    }
}

Delays throughBareSocket(Sender& sender, int count, int rate) {
    Delays delays;
    const int socket = bareSocket();
    sender.start({count, rate, 1, true});
    std::array<char, 65536> buffer;
    while (static_cast<int>(delays.size()) < count && ::recv(socket, buffer.data(), buffer.size(), 0) > 0) {
        delays.push_back(delayUs(buffer.data()));
    }
    ::close(socket);
    waitFor(sender);
    return delays;
}

Delays throughLink(Sender& sender, int count, int rate) {
    Delays delays;
    MulticastLink link;
    LinkConfig config;
    config.localPort = config.remotePort = group().port;
    config.group = config.remoteHost = QString::fromLatin1(group().address);
    QEventLoop loop;
    QObject::connect(&link, &Link::dataIn, &loop, [&](QByteArrayView datagram) {
        delays.push_back(delayUs(datagram.data()));
        if (static_cast<int>(delays.size()) == count) {
            loop.quit();
        }
    });
    if (!link.open(config)) {
        qFatal("the link does not open");
    }
    sender.start({count, rate, 1, true});
    QTimer::singleShot(1000 * count / rate + 2000, &loop, &QEventLoop::quit);
    loop.exec();
    waitFor(sender);
    return delays;
}

void latency(int rounds, int count, int rate) {
    Sender sender({});
    Delays p50Ratios;
    Delays p99Ratios;
    for (int round = 0; round < rounds; ++round) {
        Delays bare = throughBareSocket(sender, count, rate);
        Delays link = throughLink(sender, count, rate);
        const double bare50 = part(bare, 0.5);
        const double bare99 = part(bare, 0.99);
        const double link50 = part(link, 0.5);
        const double link99 = part(link, 0.99);
        std::printf(
            "    bare receiver p50 %.1f us, p99 %.1f us; link p50 %.1f us, p99 %.1f us (%zu and %zu)\n",
            bare50, bare99, link50, link99, bare.size(), link.size());
        p50Ratios.push_back(link50 / bare50);
        p99Ratios.push_back(link99 / bare99);
    }
    std::printf("    link to bare receiver, median of %d rounds: p50 %.2f, p99 %.2f\n", rounds,
                part(p50Ratios, 0.5), part(p99Ratios, 0.5));
}

int usage() {
    std::fprintf(stderr, "usage: scripts/in-netns plain_socket flood RATE SECONDS   (rate 0: the fastest)\n"
                         "                                     burst QUEUE_BYTES DATAGRAMS TIMES\n"
                         "                                     latency ROUNDS DATAGRAMS RATE\n");
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (qEnvironmentVariable("TESSEL_NETNS") != u"1") {
        return usage();
    }
    const QByteArray mode = argc > 1 ? argv[1] : "";
    const auto number = [argv](int index) { return std::atoi(argv[index]); };
    pinTo(kReceiverCore);
    if (mode == "flood" && argc == 4) {
        flood(number(2), number(3));
    } else if (mode == "burst" && argc == 5) {
        bursts(number(2), number(3), number(4));
    } else if (mode == "latency" && argc == 5) {
        latency(number(2), number(3), number(4));
    } else {
        return usage();
    }
    return 0;
}
