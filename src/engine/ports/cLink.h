// The multicast socket as the network engine sees it.
#pragma once

#include <QByteArrayView>
#include <QObject>
#include <QString>

#include <functional>
#include <vector>

namespace tessel {

// How the socket is set up. Addresses are dotted text; an empty interface leaves the choice to the
// system.
struct LinkConfig {
    int maxPacketSize = 0; // characters of the largest packet
    int inBufferSize = 0;  // least size of the kernel's queues, in bytes
    int outBufferSize = 0;
    QString localHost;
    QString sendInterface;
    QString receiveInterface;
    int localPort = 0;
    int remotePort = 0;
    QString group;      // to join
    QString remoteHost; // to send to
    int timeToLive = 1;
};

// How much a datagram matters to the engine, from 0: it would do nothing.
struct DatagramWeight {
    std::size_t importance = 0;
    std::size_t sender = 0; // the same number for the same location
};

// One that waits to be handled.
struct WaitingDatagram {
    DatagramWeight weight;
    quint32 source = 0; // as of `Link::dataIn`
    qsizetype size = 0; // in bytes
};

using Weigh = std::function<DatagramWeight(QByteArrayView datagram)>;
// Says which of the waiting datagrams a link without room lets go, a flag for each. At least `bytes` of
// them, in all, must go.
using Sieve = std::function<std::vector<bool>(const std::vector<WaitingDatagram>& waiting, qsizetype bytes)>;

struct Adapter {
    QString name;
    QString address;
    bool leased = false; // the address was lent for a time, as by DHCP
};

// Implemented on a real socket by the platform and in memory by tests.
class Link : public QObject {
    Q_OBJECT
public:
    // Opens the socket and joins the group. False when any step fails; the socket is closed then.
    virtual bool open(const LinkConfig& config) = 0;
    // Leaves the group and closes. Nothing happens when it is not open.
    virtual void close() = 0;
    virtual bool isActive() const = 0;
    // Leaves the group and joins it again, on the same socket, so that switches hear of it once more.
    // False when it could not be joined.
    virtual bool rejoin() = 0;
    // Whether the interface on which the group was joined still has the index and the address of then.
    // True where that is not known.
    virtual bool interfaceIsThere() const = 0;
    // Sends one datagram to the whole group, the own station included. False when it could not leave this
    // machine; it is lost then.
    virtual bool send(QByteArrayView datagram) = 0;
    // The machine's network adapters in a lasting order. One without an address is there too.
    virtual std::vector<Adapter> adapters() const = 0;
    // Whether an IPv4 address, as a number, is one of this machine's.
    virtual bool isOwnAddress(quint32 address) const = 0;
    // Asked when datagrams come faster than they are handled, for so long that there is no more room;
    // each datagram is weighed once at most. Without a sieve the oldest go.
    void setSieve(Weigh weigh, Sieve sieve) {
        m_weigh = std::move(weigh);
        m_sieve = std::move(sieve);
    }

signals:
    // A datagram arrived. The bytes hold until the slot returns, also if it waits. `source`: the IPv4
    // address that it came from as a number, 0 when that is not known.
    void dataIn(QByteArrayView datagram, quint32 source = 0);
    // Datagrams that arrived and were given up for want of room, and their bytes.
    void letGo(int datagrams, qint64 bytes);
    // So many datagrams the system gave up before they could be read.
    void lost(quint32 datagrams);
    // A failure of the open socket. It may have closed itself: see `isActive`.
    void error(int number, const QString& description);
    // Interfaces, their addresses or routes are not as they were. May come many times for one change.
    void interfacesChanged();

protected:
    Weigh m_weigh;
    Sieve m_sieve;
};

} // namespace tessel
