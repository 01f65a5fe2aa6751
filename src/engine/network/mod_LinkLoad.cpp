#include "engine/network/mod_LinkLoad.h"

#include "engine/core/cErrorLog.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cClock.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <functional>

namespace tessel {

namespace {

constexpr std::int64_t kBetweenLinesMs = 60000;

struct Machine {
    qsizetype bytes = 0;
    QHash<std::size_t, qsizetype> bySender;
    qsizetype over = 0;  // that it has to give up
    qsizetype share = 0; // that each of its senders may keep
};

qsizetype sizeOf(qsizetype bytes) {
    return bytes;
}
qsizetype sizeOf(const Machine& machine) {
    return machine.bytes;
}

// The most that each part may keep, so that at least `bytes` of all go.
template <typename Parts> qsizetype fairShare(const Parts& parts, qsizetype bytes) {
    std::vector<qsizetype> sizes;
    sizes.reserve(static_cast<std::size_t>(parts.size()));
    for (const auto& part : parts) {
        sizes.push_back(sizeOf(part));
    }
    std::sort(sizes.begin(), sizes.end(), std::greater<>());
    qsizetype sum = 0;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        sum += sizes[i];
        const qsizetype next = i + 1 < sizes.size() ? sizes[i + 1] : 0;
        const auto count = static_cast<qsizetype>(i + 1);
        if (sum - next * count >= bytes) {
            return (sum - bytes) / count;
        }
    }
    return 0;
}

} // namespace

LinkLoad::LinkLoad(Link& link, NetworkProtocol& protocol, cErrorLog& log, const Clock& clock)
    : m_protocol(protocol), m_log(log), m_clock(clock) {
    link.setSieve([this](QByteArrayView datagram) { return m_protocol.weigh(datagram); }, &LinkLoad::sift);
    connect(&link, &Link::letGo, this, [this](int datagrams, qint64 bytes) {
        m_protocol.countReceived(static_cast<double>(bytes));
        tell(m_letGo, static_cast<std::uint64_t>(datagrams));
    });
    connect(&link, &Link::lost, this, [this](quint32 datagrams) { tell(m_lost, datagrams); });
}

std::vector<bool> LinkLoad::sift(const std::vector<WaitingDatagram>& waiting, qsizetype bytes) {
    std::array<qsizetype, NetworkProtocol::kWeights> ofWeight{};
    for (const WaitingDatagram& datagram : waiting) {
        ofWeight[datagram.weight.importance] += datagram.size;
    }
    // All below this importance go, and a part of those that have it.
    std::size_t importance = 0;
    while (importance + 1 < ofWeight.size() && ofWeight[importance] <= bytes) {
        bytes -= ofWeight[importance];
        ++importance;
    }
    QHash<quint32, Machine> machines;
    for (const WaitingDatagram& datagram : waiting) {
        if (bytes > 0 && datagram.weight.importance == importance) {
            Machine& machine = machines[datagram.source];
            machine.bytes += datagram.size;
            machine.bySender[datagram.weight.sender] += datagram.size;
        }
    }
    const qsizetype ofMachine = fairShare(machines, bytes);
    for (Machine& machine : machines) {
        machine.over = std::max<qsizetype>(machine.bytes - ofMachine, 0);
        machine.share = fairShare(machine.bySender, machine.over);
    }
    std::vector<bool> goes(waiting.size());
    for (std::size_t i = 0; i < waiting.size(); ++i) {
        const auto& [weight, source, size] = waiting[i];
        goes[i] = weight.importance < importance;
        if (bytes > 0 && weight.importance == importance) {
            Machine& machine = machines[source];
            qsizetype& left = machine.bySender[weight.sender];
            // A share may be less than one datagram: then the rest is spared, not all let go.
            if (machine.over > 0 && left > machine.share) {
                goes[i] = true;
                bytes -= size;
                machine.over -= size;
                left -= size;
            }
        }
    }
    return goes;
}

void LinkLoad::tell(Kind& kind, std::uint64_t more) {
    const std::int64_t now = m_clock.monotonicMs();
    kind.count += more;
    if (kind.toldAt < 0 || now - kind.toldAt >= kBetweenLinesMs) {
        m_log.LogEvent(QStringLiteral("MSocket"), QLatin1String(kind.text) + QString::number(kind.count),
                       QLatin1String(kind.code));
        kind.count = 0;
        kind.toldAt = now;
    }
}

} // namespace tessel
