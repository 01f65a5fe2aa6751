// How this location was used on a day, counted afresh from the file of the notification history.
#pragma once

#include "records/cChartSeries.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDate>
#include <QString>

#include <array>
#include <cstdint>
#include <map>
#include <vector>

namespace tessel {

class Clock;
class Folders;
class NotificationHistory;
class Settings;
struct OwnState;

enum class Counter {
    DoorBell,
    DoorBellEveryone,
    PhoneCall,
    Urgent,
    Status,
    StatusChanged,
    Occupied,
    StatusTags,
    Messages
};
inline constexpr std::size_t kCounters = 9;

// They stop at 32767.
using DayCounters = std::array<std::int16_t, kCounters>;

inline std::int16_t& counter(DayCounters& counters, Counter which) {
    return counters[static_cast<std::size_t>(which)];
}
inline std::int16_t counter(const DayCounters& counters, Counter which) {
    return counters[static_cast<std::size_t>(which)];
}

class Metrics {
public:
    // The days of the bar chart.
    static constexpr int kDays = 30;
    static constexpr int kHours = 24;

    // A day of which there are records.
    struct Day {
        QDate date;
        QString text;     // "M/d/yyyy"
        QString longText; // as the desktop writes it
    };

    Metrics(const OwnState& own, const Settings& settings, const Folders& folders, const Clock& clock,
            NotificationHistory& history)
        : m_own(own), m_settings(settings), m_folders(folders), m_clock(clock), m_history(history) {}

    // Counts what recents.dat holds, after what the history has not saved yet is in it. `SID`: the
    // location whose own statuses, rooms and tags count. A record that is damaged counts nothing.
    void LoadMetrics(const QString& SID, QDate date);

    QDate today() const;
    // The day that was loaded, and its counters: all 0 for a day without records.
    QDate date() const { return m_date; }
    const DayCounters& counters() const { return m_counters; }
    const std::array<DayCounters, kHours>& hours() const { return m_hours; }
    // All days that have records, the newest first, whichever is loaded.
    const std::vector<Day>& lstDates() const { return m_dates; }
    // Whether the file reaches back to that day; what came before its oldest record is not known.
    bool kept(QDate day) const;
    // Whether the older part of that day may have been dropped, as the file was full.
    bool keptInPart(QDate day) const;
    // Day of a point of the days' chart.
    QDate dayAt(int point) const { return m_firstDay.addDays(point); }

    // The counters of the day that are above 0.
    ChartSeries AddSeriesAlerts() const;
    // All counters together, of thirty days and of the hours of the day.
    ChartSeries AddSeriesDays() const;
    ChartSeries AddSeriesHours() const;
    // Why numbers may be smaller than what happened; empty when they are not.
    QString remark() const;
    // The same as lines of values, with all counters: the thirty days, then the hours of the day.
    QByteArray csv() const;

private:
    void take(QByteArrayView record);
    void GetMetricsAlerts(const std::vector<QByteArrayView>& values);
    void GetMetricsMessages(const std::vector<QByteArrayView>& values);
    void count(Counter which, QByteArrayView time);
    bool beginDay(QByteArrayView date);
    void listDates();

    const OwnState& m_own;
    const Settings& m_settings;
    const Folders& m_folders;
    const Clock& m_clock;
    NotificationHistory& m_history;

    QByteArray m_SID;
    QDate m_date;
    QDate m_firstDay; // of the thirty
    std::map<QDate, DayCounters> m_days;
    DayCounters m_counters{};
    std::array<DayCounters, kHours> m_hours{};
    std::vector<Day> m_dates;
    bool m_full = false; // the file holds as many records as it may

    // While a file is read: a record's values, its day, and the text that this was made of.
    std::vector<QByteArrayView> m_values;
    QByteArray m_dayText;
    QDate m_day;
    DayCounters* m_dayCounters = nullptr;
};

} // namespace tessel
