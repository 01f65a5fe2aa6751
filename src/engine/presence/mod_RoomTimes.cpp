#include "engine/presence/mod_RoomTimes.h"

#include "engine/core/cSetting.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Limits.h"
#include "engine/core/mod_TimeText.h"
#include "engine/network/cPacket.h"

#include <algorithm>

namespace tessel {

namespace {
constexpr qsizetype kLongestTime = 16; // characters of a time of day
constexpr int kMinute = 60;            // seconds
constexpr int kHour = 60;              // minutes
constexpr int kDay = 24 * kHour * kMinute;
// A location whose clock is ahead of this one's has been taken just now, not a day ago.
constexpr int kClocksDiffer = 30 * kMinute;
} // namespace

void RoomTimes::hear(const cPacket& packet) {
    const QByteArrayView told = packet.presenceValue(PresenceValue::Occupied);
    // Every keep-alive comes by here, and nearly all of them say it in one of these ways.
    const bool plainly = told.isEmpty() || told == "0" || told == "-1";
    const bool occupied = plainly ? told == "-1" : toBoolean(toText(told));
    if (!occupied && m_since.isEmpty()) {
        return;
    }
    const QString SID = packet.text(Field::SID);
    if (!occupied) {
        m_since.remove(SID);
        return;
    }
    QByteArrayView time = packet.presenceValue(PresenceValue::OccupiedTime);
    time = time.first(std::min<qsizetype>(time.size(), kLongestTime));
    const auto known = m_since.find(SID);
    if (known == m_since.end()) {
        if (m_since.size() < kMaxEndpoints) {
            m_since.insert(SID, toText(time));
        }
    } else if (*known != QLatin1String(time.data(), time.size())) {
        *known = toText(time);
    }
}

void RoomTimes::forget(const QStringList& SIDs) {
    for (const QString& SID : SIDs) {
        m_since.remove(SID);
    }
}

QString RoomTimes::occupiedFor(const QString& SID, int nowSecond) const {
    const int start = parseTime(since(SID));
    if (start < 0) {
        return {};
    }
    const int elapsed = nowSecond - start;
    const int minutes = std::max(0, elapsed >= -kClocksDiffer ? elapsed : elapsed + kDay) / kMinute;
    return minutes < kHour ? QStringLiteral("%1 min").arg(minutes)
                           : QStringLiteral("%1 h %2 min")
                                 .arg(minutes / kHour)
                                 .arg(minutes % kHour, 2, 10, QLatin1Char('0'));
}

} // namespace tessel
