#include "FakeNetwork.h"

#include "engine/network/mod_NetworkGroups.h"

#include <algorithm>

namespace tessel {

FakeNetwork::FakeNetwork(VirtualClock& clock) : m_clock(clock) {
    clock.nextOther = [this] { return m_inFlight.empty() ? -1 : m_inFlight.begin()->first; };
    clock.atStep = [this] { deliverDue(); };
}

void FakeNetwork::inject(const QByteArray& datagram, quint32 source) {
    const NetworkGroup& group = kNetworkGroups.front();
    m_inFlight.emplace(m_clock.monotonicMs(),
                       InFlight{datagram, group.port, QString::fromLatin1(group.address), source});
}

void FakeNetwork::send(const QByteArray& bytes, int port, const QString& group, quint32 source) {
    if (keepSent) {
        sent.push_back(bytes);
    }
    std::uniform_real_distribution<double> chance(0, 1);
    const int copies = chance(m_random) < doubling ? 2 : 1;
    for (int copy = 0; copy < copies; ++copy) {
        if (loss > 0 && chance(m_random) < loss) {
            continue;
        }
        const int delay =
            longestDelayMs > 0 ? std::uniform_int_distribution<int>(0, longestDelayMs)(m_random) : 0;
        m_inFlight.emplace(m_clock.monotonicMs() + delay, InFlight{bytes, port, group, source});
    }
}

void FakeNetwork::deliverDue() {
    // A receiver that waits comes back here: what is taken out first is not delivered twice.
    while (!m_inFlight.empty() && m_inFlight.begin()->first <= m_clock.monotonicMs()) {
        const InFlight datagram = std::move(m_inFlight.begin()->second);
        m_inFlight.erase(m_inFlight.begin());
        const std::vector<FakeLink*> links = m_links;
        const int goneBefore = m_gone;
        for (FakeLink* const link : links) {
            // A receiver may take others down. The search is for that case alone: in an office of a
            // thousand it would cost as much as the deliveries.
            const bool there =
                m_gone == goneBefore || std::find(m_links.begin(), m_links.end(), link) != m_links.end();
            const bool deaf = datagram.source == link->address ? link->deafToItself : link->deafToOthers;
            if (there && !deaf && link->m_active && link->config.localPort == datagram.port &&
                link->config.group == datagram.group) {
                emit link->dataIn(datagram.bytes, datagram.source);
            }
        }
    }
}

FakeLink::FakeLink(FakeNetwork& network) : m_network(network) {
    network.m_links.push_back(this);
    constexpr quint32 kFirstAddress = 0x0A000001; // 10.0.0.1
    address = kFirstAddress + static_cast<quint32>(network.m_links.size()) - 1;
}

FakeLink::~FakeLink() {
    std::erase(m_network.m_links, this);
    ++m_network.m_gone;
}

bool FakeLink::open(const LinkConfig& wanted) {
    config = wanted;
    ++opened;
    m_active = !refuse;
    return m_active;
}

bool FakeLink::rejoin() {
    rejoinedAt.push_back(m_network.m_clock.monotonicMs());
    deafToOthers = deafToOthers && !joiningHelps;
    return m_active;
}

bool FakeLink::send(QByteArrayView datagram) {
    if (noWay) {
        emit error(101, QStringLiteral("send: no way"));
    }
    if (m_active && !noWay) {
        m_network.send(datagram.toByteArray(), config.remotePort, config.remoteHost, address);
    }
    return m_active && !noWay;
}

void FakeLink::breakDown(int number) {
    m_active = false;
    emit error(number, QStringLiteral("broken"));
}

} // namespace tessel
