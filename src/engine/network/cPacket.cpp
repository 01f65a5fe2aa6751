#include "engine/network/cPacket.h"

#include "engine/core/cSetting.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_Limits.h"
#include "engine/network/mod_Encode.h"

#include <cstring>

namespace tessel {

namespace {

constexpr char kEuro = '\x80';

char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool matches(const char* text, std::string_view mark) {
    for (std::size_t i = 0; i < mark.size(); ++i) {
        if (upper(text[i]) != upper(mark[i])) {
            return false;
        }
    }
    return true;
}

qsizetype sizeOf(std::string_view text) {
    return static_cast<qsizetype>(text.size());
}

QString cutText(QByteArrayView bytes) {
    return toText(bytes.first(std::min<qsizetype>(bytes.size(), kMaxRowText)));
}

} // namespace

qsizetype findMark(QByteArrayView text, std::string_view mark, qsizetype from) {
    // Every mark holds the euro sign behind its first character, and hardly any other text does.
    const qsizetype last = text.size() - sizeOf(mark);
    for (qsizetype at = from; at <= last;) {
        const void* const euro =
            std::memchr(text.data() + at + 1, kEuro, static_cast<std::size_t>(last - at + 1));
        if (euro == nullptr) {
            return -1;
        }
        at = static_cast<const char*>(euro) - text.data() - 1;
        if (matches(text.data() + at, mark)) {
            return at;
        }
        ++at;
    }
    return -1;
}

QByteArrayView valueAt(QByteArrayView values, int index) {
    qsizetype begin = 0;
    for (;;) {
        const qsizetype end = findMark(values, kValueMark, begin);
        if (index == 0) {
            return end < 0 ? values.sliced(begin) : values.sliced(begin, end - begin);
        }
        if (end < 0) {
            return {};
        }
        begin = end + sizeOf(kValueMark);
        --index;
    }
}

Presence Presence::of(QStringView block) {
    std::array<QString, kPresenceCount> values;
    std::size_t count = 0;
    for (qsizetype begin = 0; begin <= block.size() && count < values.size(); ++count) {
        qsizetype end = block.indexOf(ValueMark, begin);
        end = end < 0 ? block.size() : end;
        values[count] = block.sliced(begin, std::min<qsizetype>(end - begin, kMaxRowText)).toString();
        begin = end + ValueMark.size();
    }
    const auto take = [&values](PresenceValue value) { return values[static_cast<std::size_t>(value)]; };
    Presence presence;
    presence.status = take(PresenceValue::Status);
    presence.statusTime = take(PresenceValue::StatusTime);
    presence.occupied = toBoolean(take(PresenceValue::Occupied));
    presence.patientName = take(PresenceValue::PatientName);
    presence.staffTag = take(PresenceValue::StaffTag).trimmed().toShort();
    presence.staffTagTime = take(PresenceValue::StaffTagTime);
    presence.occupiedTime = take(PresenceValue::OccupiedTime);
    presence.doNotDisturb = toBoolean(take(PresenceValue::DoNotDisturb));
    presence.statusTone = take(PresenceValue::StatusTone);
    return presence;
}

std::optional<cPacket> cPacket::parse(QByteArrayView text, bool scrambled) {
    qsizetype mark = findMark(text, kFieldMark, 0);
    if (mark < 0) {
        return std::nullopt;
    }
    const qsizetype tail = text.size() - sizeOf(kPacketEnd);
    if (tail >= 0 && matches(text.data() + tail, kPacketEnd)) {
        text = text.first(tail);
    }
    cPacket packet;
    packet.m_scrambled = scrambled;
    qsizetype begin = 0;
    qsizetype bodyAt = 0;
    for (QByteArrayView& field : packet.m_fields) {
        const qsizetype end = mark < 0 ? text.size() : mark;
        field = text.sliced(begin, end - begin);
        bodyAt += field.size() + sizeOf(kFieldMark);
        if (mark < 0) {
            break;
        }
        begin = end + sizeOf(kFieldMark);
        mark = findMark(text, kFieldMark, begin);
    }
    // The body may hold the mark itself: it is found by its position, and the closing mark cut off
    // its end.
    const qsizetype bodySize = text.size() - bodyAt - sizeOf(kFieldMark);
    if (bodySize > 0) {
        packet.m_rawBody = text.sliced(bodyAt, bodySize);
    }
    return packet;
}

QString cPacket::text(Field field) const {
    return cutText(bytes(field));
}

const QByteArray& cPacket::body() const {
    if (!m_body.has_value()) {
        m_body = m_scrambled && !m_rawBody.isEmpty() ? EncodeBody(m_rawBody) : m_rawBody.toByteArray();
    }
    return *m_body;
}

QString cPacket::bodyText() const {
    return toText(body());
}

QString cPacket::bodyValue(int index) const {
    return toText(valueAt(body(), index));
}

} // namespace tessel
