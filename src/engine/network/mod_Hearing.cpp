#include "engine/network/mod_Hearing.h"

#include "engine/core/cErrorLog.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Limits.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cLink.h"

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

constexpr std::int64_t kLeastSilenceMs = 90000;
constexpr std::int64_t kAgainMs = 5 * 60 * 1000; // between two joins that did not help
constexpr std::int64_t kGraceMs = 10000;         // for a join to reach the switch
constexpr int kRenewMs = 120000;
constexpr std::int64_t kHourMs = 3600 * 1000;
constexpr std::int64_t kQuietMs = 5000;

const QString kNoOther = QStringLiteral("No other location heard for 5 minutes");
const QString kNoOwn = QStringLiteral("Own packets do not come back");

QString dotted(quint32 address) {
    return QStringLiteral("%1.%2.%3.%4")
        .arg(address >> 24U)
        .arg(address >> 16U & 0xFFU)
        .arg(address >> 8U & 0xFFU)
        .arg(address & 0xFFU);
}

} // namespace

Hearing::Hearing(const OwnState& own, cErrorLog& log, Clock& clock, Link& link, NetworkProtocol& protocol,
                 NetworkMC& network)
    : tmrRenew(clock, "tmrRenew", kRenewMs, Timer::Kind::Repeating,
               [this] {
                   if (m_own.canSend()) {
                       m_link.rejoin();
                   }
               }),
      m_own(own), m_log(log), m_clock(clock), m_link(link), m_protocol(protocol), m_network(network) {
    protocol.listen(
        [this](const cPacket& packet, Code code, quint32 source) { heard(packet, code, source); });
    connect(&network, &NetworkMC::canSendChanged, this, &Hearing::canSendChanged);
}

void Hearing::canSendChanged() {
    if (!m_own.canSend()) {
        return;
    }
    // What was missed while nothing could be heard is no silence.
    m_ownAt = m_foreignAt = m_clock.monotonicMs();
    m_quietUntil = m_ownAt + kQuietMs;
    m_joinedInVain = false;
    m_shown.clear();
    const Rejoin rejoin = m_network.rejoin();
    tmrRenew.setEnabled(rejoin == Rejoin::Always || (rejoin == Rejoin::WhenDeaf && tmrRenew.enabled()));
}

void Hearing::locationAdded(const QString& SID) {
    if (SID != m_own.SID && m_known.size() < kMaxEndpoints) {
        m_known.insert(SID);
    }
}

void Hearing::heard(const cPacket& packet, Code code, quint32 source) {
    if (m_protocol.isOwn(packet)) {
        heardOwn(packet, source);
        return;
    }
    m_foreignAt = m_clock.monotonicMs();
    if (code == Code::XD) {
        m_known.remove(packet.text(Field::SID));
    }
    if (m_joinedInVain) {
        cameBack();
    }
}

void Hearing::heardOwn(const cPacket& packet, quint32 source) {
    if (packet.bytes(Field::Host) != toBytes(m_own.host) || (source != 0 && !m_link.isOwnAddress(source))) {
        tellDuplicate(packet, source);
        return;
    }
    m_ownAt = m_clock.monotonicMs();
    if (m_shown == kNoOwn) {
        showInFooter();
    }
}

void Hearing::tellDuplicate(const cPacket& packet, quint32 source) {
    const std::int64_t now = m_clock.monotonicMs();
    if (now < m_quietUntil || (m_duplicateAt >= 0 && now - m_duplicateAt < kHourMs)) {
        return;
    }
    m_duplicateAt = now;
    const DuplicateIdentity other{packet.text(Field::Host), source == 0 ? QString() : dotted(source)};
    m_log.LogEvent(QStringLiteral("SID"),
                   QLatin1String("Another computer has the same SID: ") + other.host + u' ' + other.address,
                   QStringLiteral("DSID"));
    m_duplicate = other;
    emit duplicateIdentity(other);
}

void Hearing::cameBack() {
    m_joinedInVain = false;
    if (m_foreignAt - m_joinedAt <= m_network.keepAliveMs() + kGraceMs) {
        m_log.LogEvent(QStringLiteral("Multicast"), QStringLiteral("Multicast came back after a new join"),
                       QStringLiteral("JOIN"));
        tmrRenew.setEnabled(true);
    }
    showInFooter();
}

void Hearing::tick() {
    if (m_own.canSend() && !restartForOwn()) {
        joinForOthers();
        showInFooter();
    }
}

std::int64_t Hearing::longestSilence() const {
    return std::max(kLeastSilenceMs, 2 * static_cast<std::int64_t>(m_network.keepAliveMs()));
}

bool Hearing::restartForOwn() {
    const std::int64_t now = m_clock.monotonicMs();
    if (now - m_ownAt < longestSilence() || (m_restartedAt >= 0 && now - m_restartedAt < kHourMs)) {
        return false;
    }
    m_restartedAt = now;
    m_log.LogEvent(QStringLiteral("Multicast"),
                   QStringLiteral("Own packets do not come back, the network restarts"),
                   QStringLiteral("LOOP"));
    m_network.RestartNetwork();
    return true;
}

bool Hearing::looksForOthers() const {
    return m_network.rejoin() != Rejoin::Never && !m_known.isEmpty();
}

void Hearing::joinForOthers() {
    const std::int64_t now = m_clock.monotonicMs();
    if (!looksForOthers() || now - m_foreignAt < longestSilence() ||
        (m_joinedAt >= 0 && now - m_joinedAt < kAgainMs)) {
        return;
    }
    m_joinedAt = now;
    m_joinedInVain = true;
    m_link.rejoin();
}

void Hearing::showInFooter() {
    const std::int64_t now = m_clock.monotonicMs();
    QString text;
    if (now - m_ownAt >= longestSilence()) {
        text = kNoOwn;
    } else if (m_joinedInVain && now - m_foreignAt >= kAgainMs) {
        text = kNoOther;
    }
    if (text == m_shown) {
        return;
    }
    const QString before = std::exchange(m_shown, text);
    if (text.isEmpty()) {
        emit footerOver(before);
    } else {
        emit footer(text, QStringLiteral("The network may not carry multicast any more"));
    }
}

} // namespace tessel
