#include "platform/MulticastLink.h"

#include "platform/DatagramReader.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QNetworkInterface>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <net/if.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tessel {

namespace {

// After so long the windows get their turn, before the rest.
constexpr qint64 kTurnNs = 20'000'000;
// Longer with many waiting: painting what the next one changes again would take most of the time.
constexpr qint64 kLongTurnNs = 50'000'000;
constexpr std::size_t kMany = 100;
// Nobody who rings now may wait behind minutes of somebody else's flood: once the oldest has waited so
// long, no more than a large burst is kept.
constexpr qint64 kLongestWaitMs = 2000;
constexpr std::size_t kAlwaysKept = 1000;
constexpr qint64 kSoonHandledMs = 100;
// What came meanwhile is taken in so often. A look at the clock costs a tenth of what a keep-alive does,
// so not every datagram pays for one, unless they are slow.
constexpr qint64 kTakeInNs = 100'000;
constexpr unsigned kDatagramsALook = 8;
// A sender as fast as this reader must not keep it reading for ever.
constexpr int kReadingsInARow = 256;
// What a waiting datagram costs beside its bytes.
constexpr qsizetype kOverhead = 256;
constexpr int kFailuresInARow = 16;

bool toAddress(const QString& text, in_addr& address) {
    bool ok = false;
    const quint32 number = QHostAddress(text).toIPv4Address(&ok);
    address.s_addr = htonl(number);
    return ok;
}

template <typename Value> bool setOption(int socket, int level, int name, const Value& value) {
    return ::setsockopt(socket, level, name, &value, sizeof value) == 0;
}

// The address that the system would send to the group from; zero when there is no way.
in_addr routedAddress(const sockaddr_in& group) {
    sockaddr_in local{};
    socklen_t size = sizeof local;
    const int probe = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0); // sends nothing
    if (probe < 0 || ::connect(probe, reinterpret_cast<const sockaddr*>(&group), sizeof group) != 0 ||
        ::getsockname(probe, reinterpret_cast<sockaddr*>(&local), &size) != 0) {
        local = {};
    }
    if (probe >= 0) {
        ::close(probe);
    }
    return local.sin_addr;
}

bool hasAddress(const QNetworkInterface& interface, in_addr address) {
    const QList<QNetworkAddressEntry> entries = interface.addressEntries();
    return std::any_of(entries.begin(), entries.end(), [&](const QNetworkAddressEntry& entry) {
        return entry.ip().protocol() == QAbstractSocket::IPv4Protocol &&
               entry.ip().toIPv4Address() == ntohl(address.s_addr);
    });
}

} // namespace

MulticastLink::MulticastLink() : MulticastLink(Room{}) {}

MulticastLink::MulticastLink(const Room& room) : m_room(room), m_reader(std::make_unique<DatagramReader>()) {
    m_clock.start();
    m_goOn.setSingleShot(true);
    connect(&m_goOn, &QTimer::timeout, this, &MulticastLink::drain);
}

MulticastLink::~MulticastLink() {
    MulticastLink::close();
}

bool MulticastLink::fail(const char* step) {
    const int number = errno;
    emit error(number, QString::fromLatin1(step) + QLatin1String(": ") +
                           QString::fromLocal8Bit(std::strerror(number)));
    return false;
}

bool MulticastLink::open(const LinkConfig& config) {
    close();
    if (!m_watch) {
        m_watch = std::make_unique<InterfaceWatch>();
        connect(m_watch.get(), &InterfaceWatch::changed, this, &Link::interfacesChanged);
    }
    if (!setUp(config)) {
        close();
        return false;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &MulticastLink::drain);
    return true;
}

bool MulticastLink::setUp(const LinkConfig& config) {
    constexpr int kLargestPort = 65535;
    const auto isPort = [](int port) { return port > 0 && port <= kLargestPort; };
    if (!isPort(config.localPort) || !isPort(config.remotePort) || config.timeToLive < 0 ||
        config.timeToLive > 255) {
        errno = EINVAL;
        return fail("port or time-to-live");
    }
    m_socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (m_socket < 0) {
        return fail("socket");
    }
    // The configured sizes are lower bounds: a queue of some kilobytes loses every burst. Beyond what the
    // system grants everybody, it takes a privilege.
    const int queueBytes = std::max(config.inBufferSize, m_room.queueBytes);
    if (!setOption(m_socket, SOL_SOCKET, SO_RCVBUFFORCE, queueBytes)) {
        setOption(m_socket, SOL_SOCKET, SO_RCVBUF, queueBytes);
    }
    setOption(m_socket, SOL_SOCKET, SO_SNDBUF, std::max(config.outBufferSize, m_room.queueBytes));
    setOption(m_socket, SOL_SOCKET, SO_RXQ_OVFL, 1);
    m_lost = 0;
    m_failures = 0;
    m_maxPacketSize = config.maxPacketSize;

    // Bound to the group, not to the own address: other groups of the same port stay unheard, and so
    // does whatever is sent to this machine alone.
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_port = htons(static_cast<std::uint16_t>(config.localPort));
    m_to = {};
    m_to.sin_family = AF_INET;
    m_to.sin_port = htons(static_cast<std::uint16_t>(config.remotePort));
    if (!toAddress(config.group, local.sin_addr) || !toAddress(config.remoteHost, m_to.sin_addr)) {
        errno = EINVAL;
        return fail("group or send address");
    }
    if (!setOption(m_socket, SOL_SOCKET, SO_REUSEADDR, 1) ||
        ::bind(m_socket, reinterpret_cast<const sockaddr*>(&local), sizeof local) != 0) {
        return fail("bind");
    }
    return join(config);
}

bool MulticastLink::join(const LinkConfig& config) {
    m_membership = {};
    toAddress(config.group, m_membership.imr_multiaddr);
    if (!config.receiveInterface.isEmpty() && !toAddress(config.receiveInterface, m_membership.imr_address)) {
        errno = EINVAL;
        return fail("receive interface");
    }
    findInterface();
    if (!setOption(m_socket, IPPROTO_IP, IP_ADD_MEMBERSHIP, m_membership)) {
        return fail("join");
    }
    if (!chooseSendInterface(config)) {
        return fail("send interface");
    }
    if (!setOption(m_socket, IPPROTO_IP, IP_MULTICAST_ALL, 0) ||
        !setOption(m_socket, IPPROTO_IP, IP_MULTICAST_LOOP, 1) ||
        !setOption(m_socket, IPPROTO_IP, IP_MULTICAST_TTL, config.timeToLive)) {
        return fail("multicast options");
    }
    return true;
}

void MulticastLink::findInterface() {
    const ip_mreqn asked = m_membership;
    if (asked.imr_address.s_addr == 0) {
        sockaddr_in group = m_to;
        group.sin_addr = asked.imr_multiaddr;
        m_membership.imr_address = routedAddress(group);
    }
    for (const QNetworkInterface& interface : QNetworkInterface::allInterfaces()) {
        if (m_membership.imr_address.s_addr != 0 && hasAddress(interface, m_membership.imr_address)) {
            m_membership.imr_ifindex = interface.index();
            return;
        }
    }
    m_membership = asked; // the system finds it, or fails
}

bool MulticastLink::chooseSendInterface(const LinkConfig& config) {
    if (!config.sendInterface.isEmpty()) {
        in_addr address{};
        return toAddress(config.sendInterface, address) &&
               setOption(m_socket, IPPROTO_IP, IP_MULTICAST_IF, address);
    }
    if (!config.receiveInterface.isEmpty() || m_membership.imr_ifindex == 0) {
        return true;
    }
    // The system's choice holds for both directions: a tunnel that comes up later and takes the routes
    // must not carry away what is sent, while the station goes on listening here.
    ip_mreqn here{};
    here.imr_ifindex = m_membership.imr_ifindex;
    return setOption(m_socket, IPPROTO_IP, IP_MULTICAST_IF, here);
}

bool MulticastLink::interfaceIsThere() const {
    return m_membership.imr_ifindex == 0 ||
           hasAddress(QNetworkInterface::interfaceFromIndex(m_membership.imr_ifindex),
                      m_membership.imr_address);
}

bool MulticastLink::rejoin() {
    if (m_socket < 0) {
        return false;
    }
    // Fails where the membership went with its interface.
    const bool left = setOption(m_socket, IPPROTO_IP, IP_DROP_MEMBERSHIP, m_membership);
    if (!setOption(m_socket, IPPROTO_IP, IP_ADD_MEMBERSHIP, m_membership) && (left || errno != EADDRINUSE)) {
        return fail("join again");
    }
    return true;
}

void MulticastLink::close() {
    if (m_socket < 0) {
        return;
    }
    // A handler of the drain under way may have asked for this.
    if (m_notifier) {
        m_notifier->setEnabled(false);
        m_notifier.release()->deleteLater();
    }
    ::close(m_socket); // leaves the group
    m_socket = -1;
    m_goOn.stop();
    m_waiting.clear();
    m_waitingBytes = 0;
}

bool MulticastLink::send(QByteArrayView datagram) {
    if (m_socket < 0) {
        return false;
    }
    if (m_maxPacketSize > 0 && datagram.size() > m_maxPacketSize) {
        errno = EMSGSIZE;
        return fail("send");
    }
    ssize_t sent = 0;
    do {
        sent = ::sendto(m_socket, datagram.data(), static_cast<std::size_t>(datagram.size()), 0,
                        reinterpret_cast<const sockaddr*>(&m_to), sizeof m_to);
    } while (sent < 0 && errno == EINTR);
    return sent >= 0 || fail("send");
}

bool MulticastLink::readFailed(int number) {
    if (number == EINTR) {
        return true;
    }
    errno = number;
    fail("receive");
    if (++m_failures < kFailuresInARow && number != EBADF && number != ENOTSOCK) {
        return true;
    }
    close();
    errno = number;
    fail("socket closed");
    return false;
}

std::vector<bool> MulticastLink::sift(qsizetype bytes) {
    std::vector<WaitingDatagram> all;
    all.reserve(m_waiting.size());
    for (Waiting& waiting : m_waiting) {
        if (!waiting.weight) {
            waiting.weight = m_weigh(waiting.bytes);
        }
        all.push_back({*waiting.weight, waiting.source, waiting.bytes.size()});
    }
    return m_sieve(all, bytes);
}

// Lets go what the engine can do without, once a turn: judging costs as much as handling what is quickly
// handled. Where that is all that waits, nobody waits long, and the system's queue is the better place.
bool MulticastLink::makeRoom(qsizetype wanted) {
    if (m_sifted || m_clock.elapsed() - m_waiting.front().since < kSoonHandledMs) {
        return false;
    }
    m_sifted = true;
    std::vector<bool> goes;
    if (m_sieve) {
        // Asked in bytes of datagrams, without what their waiting costs: tiny ones must not cost the rest.
        const qsizetype bare = m_waitingBytes - static_cast<qsizetype>(m_waiting.size()) * kOverhead;
        goes = sift(bare * wanted / m_waitingBytes);
    }
    goes.resize(m_waiting.size());
    qsizetype freed = 0;
    for (std::size_t i = 0; i < goes.size(); ++i) {
        freed += goes[i] ? m_waiting[i].bytes.size() + kOverhead : 0;
    }
    for (std::size_t i = 0; i < goes.size() && freed < wanted; ++i) {
        freed += goes[i] ? 0 : m_waiting[i].bytes.size() + kOverhead;
        goes[i] = true;
    }
    int count = 0;
    qint64 bytes = 0;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < goes.size(); ++i) {
        if (goes[i]) {
            ++count;
            bytes += m_waiting[i].bytes.size();
        } else {
            m_waiting[kept++] = std::move(m_waiting[i]);
        }
    }
    m_waiting.erase(m_waiting.begin() + static_cast<std::ptrdiff_t>(kept), m_waiting.end());
    m_waitingBytes -= freed;
    emit letGo(count, bytes);
    return true;
}

void MulticastLink::takeIn() {
    const qint64 now = m_clock.elapsed();
    for (int reading = 0; reading < kReadingsInARow && m_socket >= 0; ++reading) {
        // An eighth at once, so that not every datagram behind it asks again.
        if (m_waitingBytes >= m_room.bytes && !makeRoom(m_room.bytes / 8)) {
            return;
        }
        const int count = m_reader->read(m_socket);
        if (count < 0) {
            if (errno == EAGAIN || errno == EWOULDBLOCK || !readFailed(errno)) {
                return;
            }
            continue;
        }
        m_failures = 0;
        quint32 lostNow = m_lost;
        for (int i = 0; i < count; ++i) {
            const QByteArrayView bytes = m_reader->bytes(i);
            m_waiting.push_back({bytes.toByteArray(), m_reader->source(i), now, {}});
            m_waitingBytes += bytes.size() + kOverhead;
            lostNow = m_reader->lost(i, lostNow);
        }
        if (lostNow != m_lost) {
            const quint32 more = lostNow - m_lost; // the system's count begins anew after its largest
            m_lost = lostNow;
            emit lost(more);
        }
        if (count < DatagramReader::kMost && !m_reader->oneByOne()) {
            return;
        }
    }
}

// A handler may close the link, open it anew, or wait, in which case the next drain comes in between.
void MulticastLink::drain() {
    const int socket = m_socket;
    if (socket < 0) {
        return;
    }
    m_sifted = false;
    takeIn();
    if (m_waiting.size() > kAlwaysKept && m_clock.elapsed() - m_waiting.front().since > kLongestWaitMs) {
        const auto size = static_cast<qsizetype>(m_waiting.size());
        makeRoom(m_waitingBytes / size * (size - static_cast<qsizetype>(kAlwaysKept)));
    }
    QElapsedTimer turn;
    turn.start();
    qint64 looked = 0;
    qint64 taken = 0;
    unsigned untilLook = 1;
    while (m_socket == socket && !m_waiting.empty()) {
        const Waiting next = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_waitingBytes -= next.bytes.size() + kOverhead;
        emit dataIn(next.bytes, next.source);
        if (--untilLook > 0 && !m_waiting.empty()) {
            continue;
        }
        const qint64 now = turn.nsecsElapsed();
        untilLook = now - looked > kTakeInNs ? 1 : kDatagramsALook;
        looked = now;
        if (now >= (m_waiting.size() > kMany ? kLongTurnNs : kTurnNs)) {
            break;
        }
        if (m_socket == socket && (now - taken >= kTakeInNs || m_waiting.empty())) {
            taken = now;
            takeIn();
        }
    }
    if (m_socket >= 0 && !m_waiting.empty()) {
        m_goOn.start(0);
    }
}

std::vector<Adapter> MulticastLink::adapters() const {
    QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    std::sort(interfaces.begin(), interfaces.end(), [](const auto& a, const auto& b) {
        const bool loopA = a.flags().testFlag(QNetworkInterface::IsLoopBack);
        const bool loopB = b.flags().testFlag(QNetworkInterface::IsLoopBack);
        return loopA != loopB ? loopB : a.index() < b.index();
    });
    std::vector<Adapter> found;
    for (const QNetworkInterface& interface : interfaces) {
        // One without an address has its place too: choices are stored by their place, and a cable that
        // is pulled must not make them mean another adapter.
        const QList<QNetworkAddressEntry> entries = interface.addressEntries();
        const auto ip4 = std::find_if(entries.begin(), entries.end(), [](const auto& entry) {
            return entry.ip().protocol() == QAbstractSocket::IPv4Protocol;
        });
        const bool has = ip4 != entries.end();
        found.push_back({interface.humanReadableName(), has ? ip4->ip().toString() : QString(),
                         has && ip4->isLifetimeKnown() && !ip4->isPermanent()});
    }
    return found;
}

bool MulticastLink::isOwnAddress(quint32 address) const {
    if (m_ownAddresses.contains(address)) {
        return true;
    }
    // A copy of this station must not make it read them for each of its packets.
    constexpr qint64 kLeastAgeMs = 1000;
    if (m_ownAddressesRead.isValid() && !m_ownAddressesRead.hasExpired(kLeastAgeMs)) {
        return false;
    }
    m_ownAddressesRead.start();
    m_ownAddresses.clear();
    for (const QHostAddress& own : QNetworkInterface::allAddresses()) {
        if (own.protocol() == QAbstractSocket::IPv4Protocol) {
            m_ownAddresses.insert(own.toIPv4Address());
        }
    }
    return m_ownAddresses.contains(address);
}

int MulticastLink::receiveQueueBytes() const {
    int bytes = 0;
    socklen_t size = sizeof bytes;
    if (m_socket < 0 || ::getsockopt(m_socket, SOL_SOCKET, SO_RCVBUF, &bytes, &size) != 0) {
        return 0;
    }
    return bytes;
}

} // namespace tessel
