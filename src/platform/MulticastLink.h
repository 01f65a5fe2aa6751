// The multicast socket on the operating system.
#pragma once

#include "engine/ports/cLink.h"

#include "platform/InterfaceWatch.h"

#include <QElapsedTimer>
#include <QSet>
#include <QSocketNotifier>

#include <netinet/in.h>

#include <array>
#include <memory>
#include <vector>

namespace tessel {

class MulticastLink : public Link {
    Q_OBJECT
public:
    MulticastLink();
    ~MulticastLink() override;

    bool open(const LinkConfig& config) override;
    void close() override;
    bool isActive() const override { return m_socket >= 0; }
    void send(QByteArrayView datagram) override;
    std::vector<Adapter> adapters() const override;
    bool rejoin() override;
    bool interfaceIsThere() const override;
    bool isOwnAddress(quint32 address) const override;

    // Size of the kernel's receive queue as it was granted, in bytes; 0 when not open.
    int receiveQueueBytes() const;

private:
    using Buffer = std::array<char, 65536>;

    bool setUp(const LinkConfig& config);
    bool join(const LinkConfig& config);
    void findInterface();
    bool chooseSendInterface(const LinkConfig& config);
    bool fail(const char* step);
    void drain();
    // False when the socket is beyond use.
    bool readFailed(int number, int& failures);

    int m_socket = -1;
    int m_maxPacketSize = 0;
    sockaddr_in m_to{};
    std::unique_ptr<QSocketNotifier> m_notifier;
    // One buffer for each drain under way: a handler that waits lets the next drain in.
    std::vector<std::unique_ptr<Buffer>> m_buffers;
    std::size_t m_depth = 0;
    mutable QSet<quint32> m_ownAddresses; // as last read
    mutable QElapsedTimer m_ownAddressesRead;
    // Made by the first `open`: what happened before is seen by it.
    std::unique_ptr<InterfaceWatch> m_watch;
    ip_mreqn m_membership{}; // its interface and address as they were found; zero when not known
};

} // namespace tessel
