#include "engine/network/mod_LinkLoad.h"

#include "engine/core/cErrorLog.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cClock.h"
#include "engine/ports/cLink.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <functional>

namespace tessel {

namespace {

constexpr std::int64_t kBetweenLinesMs = 60000;

// The most that each sender may keep, so that at least `bytes` of all go.
qsizetype fairShare(const QHash<size_t, qsizetype>& bySender, qsizetype bytes) {
    std::vector<qsizetype> sizes(bySender.cbegin(), bySender.cend());
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
    link.setSieve(
        [this](const std::vector<QByteArrayView>& waiting, qsizetype bytes) { return sift(waiting, bytes); });
    connect(&link, &Link::letGo, this, [this](int datagrams, qint64 bytes) {
        m_protocol.countReceived(static_cast<double>(bytes));
        tell(m_letGo, static_cast<std::uint64_t>(datagrams));
    });
    connect(&link, &Link::lost, this, [this](quint32 datagrams) { tell(m_lost, datagrams); });
}

std::vector<bool> LinkLoad::sift(const std::vector<QByteArrayView>& waiting, qsizetype bytes) const {
    std::vector<NetworkProtocol::Weight> weights;
    std::array<qsizetype, NetworkProtocol::kWeights> ofWeight{};
    weights.reserve(waiting.size());
    for (const QByteArrayView datagram : waiting) {
        weights.push_back(m_protocol.weigh(datagram));
        ofWeight[weights.back().importance] += datagram.size();
    }
    // All below this weight go, and a part of those that have it.
    std::size_t weight = 0;
    while (weight + 1 < ofWeight.size() && ofWeight[weight] <= bytes) {
        bytes -= ofWeight[weight];
        ++weight;
    }
    QHash<size_t, qsizetype> bySender;
    for (std::size_t i = 0; i < waiting.size(); ++i) {
        if (weights[i].importance == weight) {
            bySender[weights[i].sender] += waiting[i].size();
        }
    }
    const qsizetype share = bytes > 0 ? fairShare(bySender, bytes) : 0;
    std::vector<bool> goes(waiting.size());
    for (std::size_t i = 0; i < waiting.size(); ++i) {
        goes[i] = weights[i].importance < weight;
        if (weights[i].importance == weight && bytes > 0) {
            qsizetype& left = bySender[weights[i].sender];
            goes[i] = left > share;
            left -= goes[i] ? waiting[i].size() : 0;
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
