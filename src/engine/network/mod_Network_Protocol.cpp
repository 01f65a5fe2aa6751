#include "engine/network/mod_Network_Protocol.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_Encode.h"
#include "engine/ports/cLink.h"
#include "records/cReportRecords.h"

#include <algorithm>
#include <numeric>

namespace tessel {

namespace {

// Booleans travel as 16-bit numbers.
QLatin1String wireBoolean(bool value) {
    return value ? QLatin1String("-1") : QLatin1String("0");
}

QByteArray bytesOf(std::string_view text) {
    return {text.data(), static_cast<qsizetype>(text.size())};
}

QString latin1(std::string_view text) {
    return QString::fromLatin1(bytesOf(text));
}

const CatalogueRow* findRow(QByteArrayView name) {
    if (name.size() > 8) {
        return nullptr;
    }
    for (const CatalogueRow& row : kCatalogue) {
        if (row.name == std::string_view(name.data(), static_cast<std::size_t>(name.size()))) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace

QString NetworkProtocol::ownPresence() const {
    const QString values[kPresenceCount] = {m_own.status,
                                            m_own.statusTime,
                                            wireBoolean(m_own.occupied),
                                            m_own.patientName,
                                            QString::number(m_own.staffTag),
                                            m_own.staffTagTime,
                                            m_own.occupiedTime,
                                            wireBoolean(m_own.doNotDisturb),
                                            m_own.statusTone};
    QString block = values[0];
    for (std::size_t i = 1; i < kPresenceCount; ++i) {
        block += ValueMark + values[i];
    }
    return block;
}

QByteArray NetworkProtocol::head(QStringView code, QStringView third) const {
    const QString tagWord = QString::number(m_own.TAG) + u':' + third.trimmed().toString();
    const QString presence = ownPresence(); // named: a view of it goes into the list below
    QByteArray bytes;
    for (const QStringView field :
         {QStringView(kMarker), QStringView(m_own.SID), QStringView(m_own.host), QStringView(m_own.location),
          code, QStringView(presence), QStringView(m_own.note), QStringView(tagWord)}) {
        bytes += toBytes(field) + bytesOf(kFieldMark);
    }
    return bytes;
}

int NetworkProtocol::bodyRoom(Code code) const {
    constexpr int kLargestDatagram = 65507; // of IPv4
    const int most =
        m_maxPacketSize > 0 && m_maxPacketSize < kLargestDatagram ? m_maxPacketSize : kLargestDatagram;
    const CatalogueRow& row = rowOf(code);
    const auto around = head(latin1(row.name), latin1(row.third)).size() +
                        static_cast<qsizetype>(kFieldMark.size() + kPacketEnd.size());
    return most - static_cast<int>(around);
}

bool NetworkProtocol::SendPacket(QStringView code, QStringView body, QStringView third) {
    return m_own.canSend() && transmit(code, body, third);
}

void NetworkProtocol::sendGoodbye() {
    m_own.leaving = true;
    if (m_own.online) {
        remember(Code::XD, transmit(latin1(rowOf(Code::XD).name), {}, {}));
    }
}

void NetworkProtocol::remember(Code code, bool sent) {
    const auto at = std::find(m_untold.begin(), m_untold.end(), code);
    switch (code) {
    case Code::XD:
        if (sent) {
            // Nobody has a row of this station now, and its next announcement carries all.
            m_known = false;
            m_untold.clear();
        }
        return;
    case Code::XAN:
    case Code::XAS:
    case Code::XALU:
    case Code::XALNU:
    case Code::XAST:
        if (sent && at != m_untold.end()) {
            m_untold.erase(at);
        } else if (!sent && at == m_untold.end() && (m_known || code == Code::XAN)) {
            m_untold.push_back(code);
        }
        break;
    default:
        break;
    }
    m_known = m_known || sent;
}

void NetworkProtocol::tellAgain() {
    for (const Code code : std::vector(m_untold)) {
        if (code != Code::XAN) {
            send(code);
        }
    }
}

bool NetworkProtocol::announcementLost() const {
    return std::find(m_untold.begin(), m_untold.end(), Code::XAN) != m_untold.end();
}

bool NetworkProtocol::transmit(QStringView code, QStringView body, QStringView third) {
    QByteArray packet = head(code, third);
    const QByteArray bytes = toBytes(body);
    packet += m_settings.ENCODE() && !bytes.isEmpty() ? EncodeBody(bytes) : bytes;
    packet += bytesOf(kFieldMark) + bytesOf(kPacketEnd);

    bool sent = true;
    if (m_protocol == 0) {
        sent = m_link.send(packet);
        ++m_packetsSent;
    }
    AddBytesSent(packet);
    return sent;
}

void NetworkProtocol::send(Code code, QStringView body) {
    const CatalogueRow& row = rowOf(code);
    remember(code, SendPacket(latin1(row.name), body, latin1(row.third)));
}

void NetworkProtocol::attach(Code code, Handler handler) {
    m_handlers[indexOf(code)] = std::move(handler);
}

void NetworkProtocol::receive(QByteArrayView datagram, quint32 source) {
    if (m_own.exiting) {
        return;
    }
    expectSender(datagram);
    splitDatagram(datagram, [this, source](QByteArrayView piece) { DispatchPacket(piece, source); });
    AddBytesReceived(datagram);
}

void NetworkProtocol::expectSender(QByteArrayView packet) const {
    // Where the SID of a well-made packet stands. Of any other packet nothing is expected, or somebody
    // else: that costs time and nothing more.
    constexpr qsizetype kSIDSize = 12;
    const auto at = static_cast<qsizetype>(kMarker.size() + kFieldMark.size());
    if (packet.size() < at + kSIDSize) {
        return;
    }
    char16_t SID[kSIDSize];
    toText(packet.sliced(at, kSIDSize), SID);
    for (const ReportRecords* const table : m_tables) {
        table->expect(QStringView(SID, kSIDSize));
    }
}

void NetworkProtocol::DispatchPacket(QByteArrayView text, quint32 source) {
    const auto packet = cPacket::parse(text, m_settings.ENCODE());
    if (!packet.has_value()) {
        return;
    }
    const CatalogueRow* const row = findRow(packet->bytes(Field::Code));
    if (row == nullptr) {
        return;
    }
    for (const Listener& listener : m_listeners) {
        listener(*packet, row->code, source);
    }
    if (!passes(row->filter, *packet)) {
        return;
    }
    ++m_received[indexOf(row->code)];
    const Handler& handler = m_handlers[indexOf(row->code)];
    if (handler) {
        handler(*packet);
    }
}

DatagramWeight NetworkProtocol::weigh(QByteArrayView datagram) const {
    DatagramWeight heaviest;
    splitDatagram(datagram, [&](QByteArrayView piece) {
        const auto packet = cPacket::parse(piece, m_settings.ENCODE());
        const CatalogueRow* const row = packet.has_value() ? findRow(packet->bytes(Field::Code)) : nullptr;
        if (row == nullptr || !passes(row->filter, *packet)) {
            return;
        }
        const Importance importance = importanceOf(row->code);
        const bool known = !m_tables.empty() && m_tables.front()->find(packet->text(Field::SID)) != nullptr;
        // Of the unknown: 1 routine, 3 presence, 5 alerts, 6 urgent ones; of the known: 2, 4, 7, 8.
        const auto step = static_cast<std::size_t>(importance);
        const std::size_t weight =
            importance >= Importance::Alert ? step + (known ? 5U : 3U) : 2 * step + (known ? 2U : 1U);
        if (weight > heaviest.importance) {
            heaviest = {weight, qHash(packet->bytes(Field::SID))};
        }
    });
    return heaviest;
}

bool NetworkProtocol::passes(Filter filter, const cPacket& packet) const {
    if (filter == Filter::OwnToo) {
        return true;
    }
    if (isOwnSID(packet.bytes(Field::SID))) {
        return false;
    }
    switch (filter) {
    case Filter::BodyIsSID:
        return isTarget(packet.body());
    case Filter::TargetIsSID:
        return isTarget(valueAt(packet.body(), 0));
    case Filter::TargetIsTag:
        return equalsOwnTag(valueAt(packet.body(), 0));
    case Filter::ListHeadIsTag: {
        const qsizetype end = packet.body().indexOf(QByteArrayView(kListMark.data(), 3));
        return equalsOwnTag(end < 0 ? QByteArrayView(packet.body())
                                    : QByteArrayView(packet.body()).first(end));
    }
    case Filter::NotOwn:
    case Filter::OwnToo:
        break;
    }
    return true;
}

bool NetworkProtocol::isTarget(QByteArrayView bytes) const {
    // A station that could not store a SID has an empty one; a body without a target is not for it.
    return !bytes.isEmpty() && isOwnSID(bytes);
}

bool NetworkProtocol::isOwnSID(QByteArrayView bytes) const {
    if (bytes.size() != m_own.SID.size()) {
        return false;
    }
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (toByte(m_own.SID[i].unicode()) != bytes[i]) {
            return false;
        }
    }
    return true;
}

bool NetworkProtocol::equalsOwnTag(QByteArrayView bytes) const {
    constexpr qsizetype kLongestNumber = 32;
    if (bytes.size() > kLongestNumber) {
        return false;
    }
    bool ok = false;
    const double number = toText(bytes).trimmed().toDouble(&ok);
    return ok && number == static_cast<double>(m_own.TAG);
}

void NetworkProtocol::setMeters(double sent, double received) {
    m_bytesSent = sent;
    m_bytesReceived = received;
}

std::uint64_t NetworkProtocol::packetsReceived() const {
    return std::accumulate(m_received.begin(), m_received.end(), std::uint64_t{0});
}

} // namespace tessel
