#include "Peer.h"

#include <arpa/inet.h>
#include <array>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tessel {

namespace {
constexpr char kFieldEnd[] = "R\x80";
constexpr char kPacketEnd[] = "<\x80P>";
constexpr int kPollMs = 50;

QList<QByteArray> splitAt(const QByteArray& bytes, const QByteArray& mark) {
    QList<QByteArray> parts;
    qsizetype begin = 0;
    for (qsizetype end = bytes.indexOf(mark); end >= 0; end = bytes.indexOf(mark, begin)) {
        parts += bytes.mid(begin, end - begin);
        begin = end + mark.size();
    }
    return parts;
}
} // namespace

Peer::Peer(const char* group, std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    ::inet_pton(AF_INET, group, &address.sin_addr);
    m_address = QByteArray(reinterpret_cast<const char*>(&address), sizeof address);

    m_socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    const int on = 1;
    const int off = 0;
    ip_mreqn membership{};
    membership.imr_multiaddr = address.sin_addr;
    const bool good =
        ::setsockopt(m_socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) == 0 &&
        ::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        ::setsockopt(m_socket, IPPROTO_IP, IP_ADD_MEMBERSHIP, &membership, sizeof membership) == 0 &&
        ::setsockopt(m_socket, IPPROTO_IP, IP_MULTICAST_ALL, &off, sizeof off) == 0;
    if (!good && m_socket >= 0) {
        ::close(m_socket);
        m_socket = -1;
    }
}

Peer::~Peer() {
    if (m_socket >= 0) {
        ::close(m_socket);
    }
}

void Peer::send(const QByteArray& datagram) {
    ::sendto(m_socket, datagram.data(), static_cast<std::size_t>(datagram.size()), 0,
             reinterpret_cast<const sockaddr*>(m_address.data()), static_cast<socklen_t>(m_address.size()));
}

void Peer::drain() {
    std::array<char, 65536> buffer;
    constexpr int kAtMost = 10000;
    for (int turn = 0; turn < kAtMost; ++turn) {
        const ssize_t size = ::recv(m_socket, buffer.data(), buffer.size(), 0);
        if (size < 0) {
            return;
        }
        for (const QByteArray& packet : splitAt(QByteArray(buffer.data(), size), kPacketEnd)) {
            m_heard.push_back({std::chrono::steady_clock::now(), splitAt(packet, kFieldEnd)});
        }
    }
}

std::vector<HeardPacket> Peer::of(const char* code, const QByteArray& SID, Moment since) const {
    std::vector<HeardPacket> found;
    for (const HeardPacket& packet : m_heard) {
        if (packet.at >= since && packet.code() == code && packet.SID() == SID) {
            found.push_back(packet);
        }
    }
    return found;
}

bool waitUntil(const std::vector<Peer*>& peers, double seconds, const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    for (;;) {
        for (Peer* const peer : peers) {
            peer->drain();
        }
        if (done()) {
            return true;
        }
        if (std::chrono::steady_clock::now() >= end) {
            return false;
        }
        ::poll(nullptr, 0, kPollMs);
    }
}

} // namespace tessel
