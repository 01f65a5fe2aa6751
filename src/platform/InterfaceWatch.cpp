#include "platform/InterfaceWatch.h"

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <ifaddrs.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <net/if.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tessel {

namespace {

// Interfaces that are there, whether they run, and their IPv4 addresses. A wireless adapter tells of
// every scan, and a lease is renewed to the same address: neither changes this.
QByteArray interfacesNow() {
    ifaddrs* list = nullptr;
    if (::getifaddrs(&list) != 0) {
        return {};
    }
    QByteArray text;
    for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
        if (entry->ifa_addr == nullptr ||
            (entry->ifa_addr->sa_family != AF_INET && entry->ifa_addr->sa_family != AF_PACKET)) {
            continue;
        }
        text += entry->ifa_name;
        text += ' ' + QByteArray::number(::if_nametoindex(entry->ifa_name));
        text += ' ' + QByteArray::number(entry->ifa_flags & (IFF_UP | IFF_RUNNING));
        if (entry->ifa_addr->sa_family == AF_INET) {
            std::array<char, INET_ADDRSTRLEN> dotted{};
            const auto* const address = reinterpret_cast<const sockaddr_in*>(entry->ifa_addr);
            ::inet_ntop(AF_INET, &address->sin_addr, dotted.data(), dotted.size());
            text += ' ' + QByteArray(dotted.data());
        }
        text += '\n';
    }
    ::freeifaddrs(list);
    return text;
}

// Routes are told of apart: an address without its route is of no use to multicast yet.
bool tellsOfRoute(const char* bytes, std::size_t size) {
    const auto* message = reinterpret_cast<const nlmsghdr*>(bytes);
    for (auto left = static_cast<unsigned>(size); NLMSG_OK(message, left);
         message = NLMSG_NEXT(message, left)) {
        if (message->nlmsg_type == RTM_NEWROUTE || message->nlmsg_type == RTM_DELROUTE) {
            return true;
        }
    }
    return false;
}

} // namespace

InterfaceWatch::InterfaceWatch()
    : m_socket(::socket(AF_NETLINK, SOCK_RAW | SOCK_NONBLOCK | SOCK_CLOEXEC, NETLINK_ROUTE)) {
    sockaddr_nl local{};
    local.nl_family = AF_NETLINK;
    local.nl_groups = RTMGRP_LINK | RTMGRP_IPV4_IFADDR | RTMGRP_IPV4_ROUTE;
    if (m_socket < 0 || ::bind(m_socket, reinterpret_cast<const sockaddr*>(&local), sizeof local) != 0) {
        return;
    }
    m_last = interfacesNow();
    m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &InterfaceWatch::drain);
}

InterfaceWatch::~InterfaceWatch() {
    m_notifier.reset();
    if (m_socket >= 0) {
        ::close(m_socket);
    }
}

void InterfaceWatch::drain() {
    // As much as one message may have.
    alignas(nlmsghdr) std::array<char, 32768> buffer;
    bool different = false;
    constexpr int kMostInATurn = 256;
    for (int count = 0; count < kMostInATurn; ++count) {
        const ssize_t size = ::recv(m_socket, buffer.data(), buffer.size(), 0);
        if (size >= 0) {
            different = different || tellsOfRoute(buffer.data(), static_cast<std::size_t>(size));
        } else if (errno == ENOBUFS) {
            different = true; // so much happened that some of it was lost
        } else if (errno != EINTR) {
            break;
        }
    }
    const QByteArray now = interfacesNow();
    if (now != m_last || different) {
        m_last = now;
        emit changed();
    }
}

} // namespace tessel
