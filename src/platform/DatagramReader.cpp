#include "platform/DatagramReader.h"

#include <cerrno>
#include <cstring>

namespace tessel {

// Untouched memory costs nothing: only what large datagrams fill becomes real.
DatagramReader::DatagramReader() : m_bytes(std::make_unique_for_overwrite<char[]>(kMost * kLargest)) {
    for (std::size_t i = 0; i < kMost; ++i) {
        m_places[i] = {m_bytes.get() + i * kLargest, kLargest};
        msghdr& header = m_messages[i].msg_hdr;
        header.msg_iov = &m_places[i];
        header.msg_iovlen = 1;
        header.msg_name = &m_sources[i];
        header.msg_control = m_controls[i].data();
    }
}

int DatagramReader::read(int socket) {
    for (mmsghdr& message : m_messages) {
        message.msg_hdr.msg_namelen = sizeof(sockaddr_in);
        message.msg_hdr.msg_controllen = sizeof(Control);
    }
    if (!m_oneByOne) {
        const int count = ::recvmmsg(socket, m_messages.data(), kMost, 0, nullptr);
        if (count >= 0 || errno != ENOSYS) {
            return count;
        }
        m_oneByOne = true;
    }
    const ssize_t size = ::recvmsg(socket, &m_messages[0].msg_hdr, 0);
    m_messages[0].msg_len = size < 0 ? 0 : static_cast<unsigned>(size);
    return size < 0 ? -1 : 1;
}

QByteArrayView DatagramReader::bytes(int index) const {
    const auto at = static_cast<std::size_t>(index);
    return {m_bytes.get() + at * kLargest, static_cast<qsizetype>(m_messages[at].msg_len)};
}

quint32 DatagramReader::source(int index) const {
    return ntohl(m_sources[static_cast<std::size_t>(index)].sin_addr.s_addr);
}

quint32 DatagramReader::lost(int index, quint32 before) const {
    msghdr header = m_messages[static_cast<std::size_t>(index)].msg_hdr;
    for (cmsghdr* part = CMSG_FIRSTHDR(&header); part != nullptr; part = CMSG_NXTHDR(&header, part)) {
        if (part->cmsg_level == SOL_SOCKET && part->cmsg_type == SO_RXQ_OVFL) {
            std::memcpy(&before, CMSG_DATA(part), sizeof before);
        }
    }
    return before;
}

} // namespace tessel
