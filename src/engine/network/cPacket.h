// One packet, cut into its fields. The bytes belong to the datagram that it came in.
#pragma once

#include "engine/core/mod_Definitions.h"
#include "engine/network/mod_Catalogue.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <array>
#include <optional>

namespace tessel {

enum class Field { Marker, SID, Host, Location, Code, Presence, Note, TagWord };
inline constexpr std::size_t kFieldCount = 8;

// The nine values of the presence block.
enum class PresenceValue {
    Status,
    StatusTime,
    Occupied,
    PatientName,
    StaffTag,
    StaffTagTime,
    OccupiedTime,
    DoNotDisturb,
    StatusTone
};
inline constexpr std::size_t kPresenceCount = 9;

// A presence block taken apart. Texts are cut to `kMaxRowText` characters.
struct Presence {
    QString status;
    QString statusTime;
    bool occupied = false;
    QString patientName;
    std::int16_t staffTag = 0;
    QString staffTagTime;
    QString occupiedTime;
    bool doNotDisturb = false;
    QString statusTone;

    static Presence of(QStringView block);
};

// Value `index` of a text whose values are joined by `ValueMark`; empty when there are fewer.
QByteArrayView valueAt(QByteArrayView values, int index);

class cPacket {
public:
    // Takes one packet apart; nothing when it has no `FieldMark`. A field that is missing is empty.
    // `scrambled`: whether the body is to be unscrambled when it is read.
    static std::optional<cPacket> parse(QByteArrayView text, bool scrambled);

    QByteArrayView bytes(Field field) const { return m_fields[static_cast<std::size_t>(field)]; }
    // As text, cut to `kMaxRowText` characters.
    QString text(Field field) const;
    // One value of the presence block as it came.
    QByteArrayView presenceValue(PresenceValue value) const {
        return valueAt(bytes(Field::Presence), static_cast<int>(value));
    }

    // The body, unscrambled. Made at the first reading: many packets are done with before.
    const QByteArray& body() const;
    QString bodyText() const;
    // Value `index` of the body, split at `ValueMark`; empty when there are fewer.
    QString bodyValue(int index) const;

private:
    std::array<QByteArrayView, kFieldCount> m_fields{};
    QByteArrayView m_rawBody;
    bool m_scrambled = false;
    mutable std::optional<QByteArray> m_body;
};

// The position of `mark` in `text` at or behind `from`, -1 when there is none. Letters match in either
// case.
qsizetype findMark(QByteArrayView text, std::string_view mark, qsizetype from);

// Calls `piece` for each part of a datagram between its `PacketEnd` marks, in order; the part behind
// the last mark is one too.
template <typename Piece> void splitDatagram(QByteArrayView datagram, Piece&& piece) {
    qsizetype begin = 0;
    for (;;) {
        const qsizetype end = findMark(datagram, kPacketEnd, begin);
        if (end < 0) {
            piece(datagram.sliced(begin));
            return;
        }
        piece(datagram.sliced(begin, end - begin));
        begin = end + static_cast<qsizetype>(kPacketEnd.size());
    }
}

} // namespace tessel
