// The stamp of a card: a time and the long form of its date.
#pragma once

#include <QString>

#include <cstdint>

namespace tessel {

// The long form of a date is dear to make, and most cards of a list are of a few days, so that the
// last date is kept.
class cStamp {
public:
    // The time, two blanks and the long date as the desktop writes it; a text that is no "M/d/yyyy"
    // as it stands.
    QString stamp(const QString& time, const QString& date);
    QString LongDate(const QString& date);
    // Seconds since the beginning of 2000, for sorting; 0 when the date is none, a time that is none
    // counts as midnight.
    std::int32_t seconds(const QString& time, const QString& date);

private:
    void take(const QString& date);

    QString m_date;
    QString m_longDate;
    std::int64_t m_daySeconds = 0;
};

} // namespace tessel
