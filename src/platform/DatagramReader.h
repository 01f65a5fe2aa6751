// Reads what waits on a datagram socket, many datagrams with one call to the system.
#pragma once

#include <QByteArrayView>

#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <memory>

namespace tessel {

class DatagramReader {
public:
    static constexpr int kMost = 32; // datagrams of one reading

    DatagramReader();

    // Reads up to `kMost` datagrams; how many, or -1 with `errno` set.
    int read(int socket);

    // True when the system has no call for many, and `read` gives one at most.
    bool oneByOne() const { return m_oneByOne; }
    // Of the last reading. The bytes hold until the next one.
    QByteArrayView bytes(int index) const;
    quint32 source(int index) const;
    // Datagrams that the system gave up since the socket was made, when it says so with these; else
    // `before`.
    quint32 lost(int index, quint32 before) const;

private:
    static constexpr std::size_t kLargest = 65536;
    using Control = std::array<char, CMSG_SPACE(sizeof(quint32))>;

    std::unique_ptr<char[]> m_bytes;
    std::array<mmsghdr, kMost> m_messages{};
    std::array<iovec, kMost> m_places{};
    std::array<sockaddr_in, kMost> m_sources{};
    alignas(cmsghdr) std::array<Control, kMost> m_controls{};
    bool m_oneByOne = false;
};

} // namespace tessel
