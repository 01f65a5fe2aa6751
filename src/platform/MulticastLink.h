// The multicast socket on the operating system.
#pragma once

#include "engine/ports/cLink.h"

#include "platform/InterfaceWatch.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QSet>
#include <QSocketNotifier>
#include <QTimer>

#include <netinet/in.h>

#include <deque>
#include <memory>
#include <optional>
#include <vector>

namespace tessel {

class DatagramReader;

// What has arrived waits in own memory until it is handled, so that slow handlers do not fill the
// system's queue: that one is small and gives up whatever comes next.
class MulticastLink : public Link {
    Q_OBJECT
public:
    // What may wait. The queue is asked of the system, which may grant less.
    struct Room {
        int queueBytes = 16 << 20;
        qsizetype bytes = 16 << 20;
    };

    MulticastLink();
    explicit MulticastLink(const Room& room);
    ~MulticastLink() override;

    bool open(const LinkConfig& config) override;
    void close() override;
    bool isActive() const override { return m_socket >= 0; }
    bool send(QByteArrayView datagram) override;
    std::vector<Adapter> adapters() const override;
    bool rejoin() override;
    bool interfaceIsThere() const override;
    bool isOwnAddress(quint32 address) const override;

    // Size of the kernel's receive queue as it was granted, in bytes; 0 when not open.
    int receiveQueueBytes() const;

private:
    struct Waiting {
        QByteArray bytes;
        quint32 source;
        qint64 since; // by `m_clock`
        std::optional<DatagramWeight> weight;
    };

    bool setUp(const LinkConfig& config);
    bool join(const LinkConfig& config);
    void findInterface();
    bool chooseSendInterface(const LinkConfig& config);
    bool fail(const char* step);
    void drain();
    // Takes in all that the system has, if there is room.
    void takeIn();
    bool makeRoom(qsizetype wanted);
    std::vector<bool> sift(qsizetype bytes);
    // False when the socket is beyond use.
    bool readFailed(int number);

    int m_socket = -1;
    int m_maxPacketSize = 0;
    sockaddr_in m_to{};
    std::unique_ptr<QSocketNotifier> m_notifier;
    Room m_room;
    std::unique_ptr<DatagramReader> m_reader;
    std::deque<Waiting> m_waiting; // a handler that waits lets the next drain take from it, in order
    qsizetype m_waitingBytes = 0;
    QElapsedTimer m_clock;
    bool m_sifted = false; // in this turn already
    int m_failures = 0;
    quint32 m_lost = 0; // what the system gave up since the socket was made, as last told
    QTimer m_goOn;
    mutable QSet<quint32> m_ownAddresses; // as last read
    mutable QElapsedTimer m_ownAddressesRead;
    // Made by the first `open`: what happened before is seen by it.
    std::unique_ptr<InterfaceWatch> m_watch;
    ip_mreqn m_membership{}; // its interface and address as they were found; zero when not known
};

} // namespace tessel
