// A location of another maker: a socket of its own that speaks to the stations as the wire is written
// down, with nothing of their code.
#pragma once

#include <QByteArray>
#include <QList>

#include <chrono>
#include <functional>
#include <vector>

namespace tessel {

using Moment = std::chrono::steady_clock::time_point;

inline double secondsBetween(Moment from, Moment to) {
    return std::chrono::duration<double>(to - from).count();
}

struct HeardPacket {
    Moment at;
    QList<QByteArray> fields; // marker, SID, host, location, code, presence, note, tag word, body
    QByteArray field(qsizetype index) const { return fields.value(index); }
    QByteArray SID() const { return field(1); }
    QByteArray code() const { return field(4); }
};

class Peer {
public:
    explicit Peer(const char* group = "232.36.32.36", std::uint16_t port = 5748);
    ~Peer();
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    bool isOpen() const { return m_socket >= 0; }
    void send(const QByteArray& datagram);
    // Takes in what waits on the socket.
    void drain();

    // Packets of one code and sender since a moment, in order.
    std::vector<HeardPacket> of(const char* code, const QByteArray& SID, Moment since = {}) const;
    const std::vector<HeardPacket>& all() const { return m_heard; }

private:
    int m_socket = -1;
    QByteArray m_address; // where to send
    std::vector<HeardPacket> m_heard;
};

// Listens on all peers until `done` holds; false when it does not within `seconds`.
bool waitUntil(const std::vector<Peer*>& peers, double seconds, const std::function<bool()>& done);

} // namespace tessel
