#include "engine/operations/mod_Metrics.h"

#include "engine/alerts/mod_NotificationHistory.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Csv.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_QuotedRecords.h"
#include "engine/core/mod_Settings.h"
#include "engine/core/mod_TimeText.h"
#include "engine/ports/cClock.h"

#include <QLocale>
#include <QTime>

#include <algorithm>
#include <iterator>
#include <limits>
#include <numeric>

namespace tessel {

namespace {

constexpr std::int16_t kMostCounted = std::numeric_limits<std::int16_t>::max();
constexpr char kStandIn[] = ".|.";
// How far the days' chart goes beyond a day long ago, where there are later ones.
constexpr int kDaysBehind = 14;

// In the order of `Counter`, which is that of the chart.
constexpr std::array<const char*, kCounters> kLabels{
    "DoorBell",       "DoorBell Everyone", "PhoneCall",   "Urget Alert", "Status",
    "Status Changed", "Occupied",          "Status Tags", "Messages"};

// Values of the two kinds of record.
enum AlertValue { AlKind, AlType, AlTime = 5, AlDate, AlSID, AlCount };
enum MessageValue { MsKind, MsType, MsTime = 8, MsDate, MsCount };

// A number of at most four digits, -1 for anything else.
int number(QByteArrayView text) {
    int value = text.isEmpty() || text.size() > 4 ? -1 : 0;
    for (const char c : text) {
        value = value < 0 || c < '0' || c > '9' ? -1 : value * 10 + (c - '0');
    }
    return value;
}

QDate parseDate(QByteArrayView text) {
    const qsizetype first = text.indexOf('/');
    const qsizetype second = first < 0 ? -1 : text.indexOf('/', first + 1);
    if (second < 0) {
        return {};
    }
    const int year = number(text.sliced(second + 1));
    // Another program may have written the short form.
    const int whole = text.size() - second - 1 == 2 && year >= 0 ? 2000 + year : year;
    return {whole, number(text.first(first)), number(text.sliced(first + 1, second - first - 1))};
}

void split(QByteArrayView record, std::vector<QByteArrayView>& values) {
    values.clear();
    const QByteArrayView mark(kValueMark.data(), static_cast<qsizetype>(kValueMark.size()));
    qsizetype begin = 0;
    for (qsizetype end; (end = record.indexOf(mark, begin)) >= 0; begin = end + mark.size()) {
        values.push_back(record.sliced(begin, end - begin));
    }
    values.push_back(record.sliced(begin));
}

int sum(const DayCounters& counters) {
    return std::accumulate(counters.begin(), counters.end(), 0);
}

QString longDate(QDate date) {
    return QLocale::system().toString(date, QLocale::LongFormat);
}

} // namespace

void Metrics::LoadMetrics(const QString& SID, QDate date) {
    m_history.saveUnsaved();
    m_SID = toBytes(SID);
    m_date = date;
    m_counters = {};
    m_hours = {};
    m_days.clear();
    m_dayText.clear();
    m_dayCounters = nullptr;
    QByteArray bytes;
    readFileStart(m_folders.dataFile(kRecentsFile), m_history.mostFileBytes(), bytes);
    int records = 0;
    forEachQuotedRecord(bytes, m_history.mostEntries(), [&](QByteArrayView record) {
        ++records;
        take(record);
    });
    m_full = records >= m_settings.Recents_SAVE_CNT();
    if (const auto day = m_days.find(date); day != m_days.end()) {
        m_counters = day->second;
    }
    const bool longAgo = date.daysTo(today()) >= kDays;
    const QDate last = longAgo ? std::min(today(), date.addDays(kDaysBehind)) : std::max(today(), date);
    m_firstDay = last.addDays(1 - kDays);
    listDates();
}

// A double quote inside a value stands as ".|." and may have eaten a dot of the mark beside it, so that
// there are two ways to cut such a record.
void Metrics::take(QByteArrayView record) {
    std::vector<QByteArrayView>& values = m_values;
    QByteArray plain;
    split(record, values);
    const QByteArrayView kind = values.front();
    const bool alert = kind == QByteArrayView("0");
    if (!alert && kind != QByteArrayView("1")) {
        return;
    }
    const std::size_t needed = alert ? std::size_t{AlCount} : std::size_t{MsCount};
    if (values.size() != needed && record.contains(kStandIn)) {
        plain = record.toByteArray().replace(kStandIn, "\"");
        split(plain, values);
    }
    if (values.size() < needed) {
        return;
    }
    if (alert) {
        GetMetricsAlerts(values);
    } else {
        GetMetricsMessages(values);
    }
}

void Metrics::GetMetricsAlerts(const std::vector<QByteArrayView>& values) {
    const int type = number(values[AlType]);
    if (type < 0 || !beginDay(values[AlDate])) {
        return;
    }
    const bool own = values[AlSID] == m_SID;
    const auto countOwn = [&](Counter which) {
        if (own) {
            count(which, values[AlTime]);
        }
    };
    switch (static_cast<HistoryCode>(type)) {
    case HistoryCode::DoorBell:
        return count(Counter::DoorBell, values[AlTime]);
    case HistoryCode::DoorBellEveryone:
        return count(Counter::DoorBellEveryone, values[AlTime]);
    case HistoryCode::PhoneCall:
        return count(Counter::PhoneCall, values[AlTime]);
    case HistoryCode::Urgent:
        return count(Counter::Urgent, values[AlTime]);
    case HistoryCode::Status:
        return countOwn(Counter::Status);
    case HistoryCode::StatusUpdated:
        return countOwn(Counter::StatusChanged);
    case HistoryCode::Occupied:
        return countOwn(Counter::Occupied);
    case HistoryCode::StaffTagSet:
        return countOwn(Counter::StatusTags);
    case HistoryCode::StatusCleared:
    case HistoryCode::StaffTagCleared:
    case HistoryCode::Open:
        break;
    }
}

void Metrics::GetMetricsMessages(const std::vector<QByteArrayView>& values) {
    const int type = number(values[MsType]);
    if (type >= 0 && beginDay(values[MsDate]) && type == 0) {
        count(Counter::Messages, values[MsTime]);
    }
}

// Records of one day stand together, so that its text is read once.
bool Metrics::beginDay(QByteArrayView date) {
    if (m_dayCounters == nullptr || date != m_dayText) {
        const QDate day = parseDate(date);
        if (!day.isValid()) {
            return false;
        }
        m_day = day;
        m_dayText = date.toByteArray();
        m_dayCounters = &m_days[day];
    }
    return true;
}

void Metrics::count(Counter which, QByteArrayView time) {
    const auto countIn = [which](DayCounters& counters) {
        std::int16_t& value = counter(counters, which);
        if (value < kMostCounted) {
            ++value;
        }
    };
    countIn(*m_dayCounters);
    if (m_day != m_date) {
        return;
    }
    if (const int second = parseTime(toText(time)); second >= 0) {
        countIn(m_hours[static_cast<std::size_t>(second / 3600)]);
    }
}

void Metrics::listDates() {
    m_dates.clear();
    m_dates.reserve(m_days.size());
    std::transform(m_days.rbegin(), m_days.rend(), std::back_inserter(m_dates), [](const auto& day) -> Day {
        return {day.first, dateText(day.first), longDate(day.first)};
    });
}

QDate Metrics::today() const {
    return m_clock.date();
}

bool Metrics::kept(QDate day) const {
    // What happens today is on its way into the file, even if nothing did yet.
    const QDate newest = m_days.empty() ? today() : std::max(today(), m_days.rbegin()->first);
    const QDate oldest = m_days.empty() ? today() : std::min(today(), m_days.begin()->first);
    return day >= oldest && day <= newest;
}

bool Metrics::keptInPart(QDate day) const {
    return m_full && !m_days.empty() && day == m_days.begin()->first;
}

ChartSeries Metrics::AddSeriesAlerts() const {
    ChartSeries series{QStringLiteral("Usage for ") + m_own.location + u'\n' + longDate(m_date),
                       QStringLiteral("Metrics"), QStringLiteral("Count")};
    for (std::size_t i = 0; i < kCounters; ++i) {
        if (m_counters[i] > 0) {
            series.points.push_back(
                CreatePiePoint(QLatin1String(kLabels[i]), m_counters[i], QString::number(m_counters[i])));
        }
    }
    return series;
}

ChartSeries Metrics::AddSeriesDays() const {
    const QDate last = dayAt(kDays - 1);
    ChartSeries series{last == today() ? QStringLiteral("The last 30 days")
                                       : QStringLiteral("30 days up to ") + longDate(last),
                       QStringLiteral("Day"), QStringLiteral("Alerts and Messages")};
    const QLocale locale = QLocale::system();
    for (int i = 0; i < kDays; ++i) {
        const QDate date = dayAt(i);
        ChartPoint point{.name = locale.dayName(date.dayOfWeek(), QLocale::ShortFormat) + u' ' +
                                 locale.toString(date, QLocale::ShortFormat),
                         .mark = QString::number(date.day()),
                         .known = kept(date),
                         .marked = date == m_date};
        if (const auto day = m_days.find(date); day != m_days.end()) {
            point.value = sum(day->second);
        }
        point.text = !point.known ? QStringLiteral("not kept")
                     : keptInPart(date)
                         ? QStringLiteral("%1, the earlier ones of this day were not kept").arg(point.value)
                         : QString::number(point.value);
        series.points.push_back(std::move(point));
    }
    return series;
}

ChartSeries Metrics::AddSeriesHours() const {
    ChartSeries series{QStringLiteral("Hours of ") + longDate(m_date), QStringLiteral("Hour"),
                       QStringLiteral("Alerts and Messages")};
    const QLocale locale = QLocale::system();
    for (int hour = 0; hour < kHours; ++hour) {
        const int events = sum(m_hours[static_cast<std::size_t>(hour)]);
        const bool known = kept(m_date);
        series.points.push_back({.name = locale.toString(QTime(hour, 0), QLocale::ShortFormat),
                                 .value = static_cast<double>(events),
                                 .text = known ? QString::number(events) : QStringLiteral("not kept"),
                                 .mark = QString::number(hour),
                                 .known = known});
    }
    return series;
}

QString Metrics::remark() const {
    if (!m_settings.Recents_SAVE()) {
        return QStringLiteral("Notifications are not kept, so nothing new is counted");
    }
    if (std::find(m_counters.begin(), m_counters.end(), kMostCounted) != m_counters.end()) {
        return QStringLiteral("Counters stop at %1").arg(kMostCounted);
    }
    if (keptInPart(m_date)) {
        return QStringLiteral("The earlier part of this day was not kept");
    }
    return kept(m_date) ? QString() : QStringLiteral("This day was not kept");
}

QByteArray Metrics::csv() const {
    QStringList heads{QStringLiteral("Date"), QStringLiteral("Hour")};
    for (const char* const label : kLabels) {
        heads += QLatin1String(label);
    }
    QByteArray lines = csvLine(heads + QStringList(QStringLiteral("All")));
    const auto add = [&lines](QDate date, const QString& hour, const DayCounters& counters, bool known) {
        QStringList values{date.toString(Qt::ISODate), hour};
        for (const std::int16_t value : counters) {
            values += known ? QString::number(value) : QStringLiteral("not kept");
        }
        values += known ? QString::number(sum(counters)) : QStringLiteral("not kept");
        lines += csvLine(values);
    };
    for (int i = 0; i < kDays; ++i) {
        const auto day = m_days.find(dayAt(i));
        add(dayAt(i), QStringLiteral("all day"), day != m_days.end() ? day->second : DayCounters{},
            kept(dayAt(i)));
    }
    for (int hour = 0; hour < kHours; ++hour) {
        add(m_date, QTime(hour, 0).toString(QStringLiteral("HH:mm")), m_hours[static_cast<std::size_t>(hour)],
            kept(m_date));
    }
    return lines;
}

} // namespace tessel
