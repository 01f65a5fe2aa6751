#include "engine/alerts/cStamp.h"

#include "engine/core/mod_TimeText.h"

#include <QDate>
#include <QLocale>

#include <algorithm>
#include <limits>

namespace tessel {

void cStamp::take(const QString& date) {
    if (date == m_date) {
        return;
    }
    constexpr std::int64_t kDaySeconds = 24 * 60 * 60;
    m_date = date;
    const QDate day = QLocale::c().toDate(date, QStringLiteral("M/d/yyyy"));
    m_longDate = day.isValid() ? QLocale::system().toString(day, QLocale::LongFormat) : date;
    m_daySeconds = day.isValid() ? QDate(2000, 1, 1).daysTo(day) * kDaySeconds : 0;
}

QString cStamp::LongDate(const QString& date) {
    take(date);
    return m_longDate;
}

QString cStamp::stamp(const QString& time, const QString& date) {
    return time + QLatin1String("  ") + LongDate(date);
}

std::int32_t cStamp::seconds(const QString& time, const QString& date) {
    take(date);
    const std::int64_t seconds = m_daySeconds == 0 ? 0 : m_daySeconds + std::max(0, parseTime(time));
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(seconds, 0, std::numeric_limits<std::int32_t>::max()));
}

} // namespace tessel
