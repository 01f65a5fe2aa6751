#include "engine/alerts/mod_NotificationHistory.h"

#include "engine/alerts/mod_MessageCard.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_QuotedRecords.h"
#include "engine/core/mod_Settings.h"
#include "engine/presence/mod_LocationViews.h"

#include <algorithm>
#include <utility>

namespace tessel {

namespace {

// The list holds so many entries, or as many as the user wants to keep in the file, up to a limit.
constexpr int kUsualEntries = 20000;
constexpr int kMostEntries = 100000;
// Characters of an entry on the average, of all entries together: a flood of long messages pushes the
// oldest entries out earlier.
constexpr qsizetype kMostCharacters = 800;
constexpr int kLongestText = 8000;
// Entries that follow each other closely put the save off, but not for ever.
constexpr std::int64_t kLongestUnsavedMs = 300'000;

enum EventValue { EvKind, EvCode, EvWord, EvLocation, EvText, EvTime, EvDate, EvSID, EvCount };
enum MessageValue { MsKind, MsType, MsLog, MsEveryone, MsID, MsName, MsSID, MsBody, MsTime, MsDate, MsCount };

int iconOf(HistoryCode code) {
    switch (code) {
    case HistoryCode::DoorBell:
    case HistoryCode::DoorBellEveryone:
        return kDoorBellIcon;
    case HistoryCode::PhoneCall:
        return kPhoneCallIcon;
    case HistoryCode::Status:
    case HistoryCode::StatusUpdated:
        return kStatusIcon;
    case HistoryCode::Urgent:
        return kUrgentIcon;
    default:
        return -1;
    }
}

Argb borderOf(const Settings& settings, HistoryCode code) {
    switch (code) {
    case HistoryCode::DoorBell:
        return settings.Recents_DB_B();
    case HistoryCode::DoorBellEveryone:
        return settings.Recents_DBG_B();
    case HistoryCode::PhoneCall:
    case HistoryCode::Urgent:
        return settings.Recents_PC_B();
    case HistoryCode::StatusCleared:
    case HistoryCode::StaffTagCleared:
        return settings.Recents_STC_B();
    case HistoryCode::Occupied:
    case HistoryCode::Open:
        return settings.Recents_LU_B();
    case HistoryCode::Status:
    case HistoryCode::StatusUpdated:
    case HistoryCode::StaffTagSet:
        break;
    }
    return settings.Recents_ST_B();
}

bool isStatusKind(HistoryCode code) {
    return code == HistoryCode::Status || code == HistoryCode::StatusUpdated ||
           code == HistoryCode::StatusCleared;
}

bool isOccupancyKind(HistoryCode code) {
    return code == HistoryCode::Occupied || code == HistoryCode::Open;
}

qsizetype charactersOf(const ReportRecord& record) {
    return item(record, CardItem::Record).text.size();
}

struct Heading {
    QString lead;
    QString name;
    Argb color = kNoColor;
};

Heading headingOf(const HistoryMessage& message) {
    const bool toSeveral = message.log == MessageLog::SentToSeveral;
    if (message.log == MessageLog::ReplySent) {
        return {QStringLiteral("Reply to "), message.name, kBlue};
    }
    if (toSeveral) {
        return {message.everyone ? QStringLiteral("Sent to Everyone") : QStringLiteral("Sent to Multiple "),
                {},
                kNoColor};
    }
    if (message.log == MessageLog::SentToOne) {
        return {QStringLiteral("Sent to "), message.name, kPurple};
    }
    const MessageHeading received = ReceivedHeading(QString::number(message.type), message.everyone);
    return {received.lead, message.name, received.nameColor};
}

} // namespace

HistoryMessage HistoryMessageOf(const QString& record) {
    const QStringList values = splitRecord(record, MsCount);
    return {values[MsType].toInt(),
            static_cast<MessageLog>(values[MsLog].toInt()),
            toBoolean(values[MsEveryone]),
            values[MsID],
            values[MsName],
            values[MsSID],
            values[MsBody],
            values[MsTime],
            values[MsDate]};
}

NotificationHistory::NotificationHistory(Settings& settings, const Folders& folders, cErrorLog& log,
                                         Clock& clock, const LocationViews& views)
    : tmrSave(clock, "tmrSave", 30000, Timer::Kind::OneShot, [this] { SaveRecents(); }), m_settings(settings),
      m_folders(folders), m_log(log), m_clock(clock), m_journal(clock, folders, kRecentsFile),
      m_views(views) {}

void NotificationHistory::AddItem(const HistoryEntry& entry, bool loading) {
    const bool favoritesOnly = (isStatusKind(entry.code) && m_settings.Recents_STF()) ||
                               (isOccupancyKind(entry.code) && m_settings.Recents_LUF());
    if (favoritesOnly && !loading && m_views.Active_FindSIDFav(entry.SID) < 0) {
        return;
    }
    const auto record = std::make_shared<ReportRecord>(kCardItems);
    const QString text = entry.text.left(kLongestText);
    ReportItem& heading = item(*record, CardItem::Heading);
    // Some events know no name to come from; then the word alone says what happened.
    if (entry.location.isEmpty()) {
        heading.text = entry.word;
    } else {
        heading.text = QLatin1String("From: ");
        item(*record, CardItem::Name).text =
            text.isEmpty() ? entry.location : entry.location + QLatin1String(" - ") + entry.word;
    }
    heading.icon = iconOf(entry.code);
    item(*record, CardItem::Text).text = MessagePreview(text.isEmpty() ? entry.word : text);
    item(*record, CardItem::Stamp).text = m_stamp.stamp(entry.time, entry.date);
    item(*record, CardItem::Stamp).foreColor = m_settings.Messages_MSG_TS();
    item(*record, CardItem::Border).backColor = borderOf(m_settings, entry.code);
    item(*record, CardItem::Record).text =
        joinRecord({QStringLiteral("0"), QString::number(static_cast<int>(entry.code)), entry.word,
                    entry.location, text, entry.time, entry.date, entry.SID});
    add(record, loading);
}

void NotificationHistory::AddMessage(const HistoryMessage& message, bool loading) {
    const auto record = std::make_shared<ReportRecord>(kCardItems);
    const Heading heading = headingOf(message);
    item(*record, CardItem::Heading).text = heading.lead;
    item(*record, CardItem::Heading).icon = message.type == 1 ? kReplyIcon : kMessageIcon;
    item(*record, CardItem::Name).text = heading.name;
    item(*record, CardItem::Name).foreColor = heading.color;
    item(*record, CardItem::Text).text = MessagePreview(message.body);
    item(*record, CardItem::Stamp).text = m_stamp.stamp(message.time, message.date);
    item(*record, CardItem::Stamp).foreColor = m_settings.Messages_MSG_TS();
    item(*record, CardItem::Border).backColor = m_settings.Recents_MSG_B();
    item(*record, CardItem::Record).text =
        joinRecord({QStringLiteral("1"), QString::number(message.type),
                    QString::number(static_cast<int>(message.log)), BooleanText(message.everyone),
                    message.MessageID, message.name, message.SID, message.body, message.time, message.date});
    add(record, loading);
}

void NotificationHistory::add(const ReportRecordPtr& record, bool loading) {
    m_characters += charactersOf(*record);
    if (loading) {
        rptNotifications.append(record);
    } else {
        rptNotifications.insert(0, record);
        while (rptNotifications.count() > mostEntries() ||
               (m_characters > mostEntries() * kMostCharacters && rptNotifications.count() > 1)) {
            const int oldest = rptNotifications.count() - 1;
            m_characters -= charactersOf(*rptNotifications.at(oldest));
            rptNotifications.remove(oldest);
        }
        if (m_settings.Recents_SAVE()) {
            m_journal.add(item(*record, CardItem::Record).text);
            saveLater();
        }
    }
    if (m_settings.Recents_EV()) {
        emit ensureTopVisible();
    }
}

void NotificationHistory::saveLater() {
    const std::int64_t now = m_clock.monotonicMs();
    if (!m_dirty) {
        m_dirty = true;
        m_dirtySince = now;
    }
    if (!tmrSave.enabled() || now - m_dirtySince < kLongestUnsavedMs - tmrSave.interval()) {
        tmrSave.restart();
    }
    // A disk that did not take the last save is not asked at each entry of a flood.
    if (m_journal.wantsSave() && !m_saveFailed) {
        SaveRecents();
    }
}

int NotificationHistory::mostEntries() const {
    return std::clamp(m_settings.Recents_SAVE_CNT(), kUsualEntries, kMostEntries);
}

qint64 NotificationHistory::mostFileBytes() const {
    return 2 * static_cast<qint64>(mostEntries()) * kMostCharacters;
}

void NotificationHistory::LoadRecents() {
    QByteArray bytes;
    rptNotifications.clear();
    m_characters = 0;
    const QString path = m_folders.dataFile(kRecentsFile);
    readFileStart(path, mostFileBytes(), bytes);
    const QuotedRecords file = readQuotedRecords(bytes, mostEntries());
    keepUnclosed(path, file.unclosed, m_log);
    QStringList records = file.records;
    bool changed = false;
    if (m_settings.Recents_SAVE()) {
        for (const cJournal::Change& change : m_journal.replay(bytes)) {
            changed = true;
            if (change.kind == cJournal::Change::Kind::Added) {
                records.prepend(change.text);
            } else if (change.kind == cJournal::Change::Kind::AllRemoved) {
                records.clear();
            }
        }
    }
    // What stood in the file comes with its stand-ins for quotes, what the journal has comes without.
    for (const QString& record : std::as_const(records)) {
        if (rptNotifications.count() >= mostEntries()) {
            break;
        }
        load(record);
    }
    if (changed) {
        saveLater();
    }
}

void NotificationHistory::load(const QString& record) {
    const QString kind = record.section(ValueMark, 0, 0);
    if (kind == u"0") {
        const QStringList values = splitRecord(record, EvCount);
        AddItem({static_cast<HistoryCode>(values[EvCode].toInt()), values[EvWord], values[EvLocation],
                 values[EvText], values[EvTime], values[EvDate], values[EvSID]},
                true);
    } else if (kind == u"1") {
        AddMessage(HistoryMessageOf(record), true);
    }
}

void NotificationHistory::SaveRecents() {
    tmrSave.setEnabled(false);
    QStringList records;
    const int count = std::clamp(m_settings.Recents_SAVE_CNT(), 0, rptNotifications.count());
    records.reserve(count);
    for (int row = 0; row < count; ++row) {
        records += item(*rptNotifications.at(row), CardItem::Record).text;
    }
    // A disk that is full now may have room at the next try.
    const QString path = m_folders.dataFile(kRecentsFile);
    const bool stored = m_journal.save(writeQuotedRecords(records));
    emit saved(path, stored);
    m_saveFailed = m_dirty = !stored;
    tmrSave.setEnabled(m_dirty);
}

void NotificationHistory::ClearRecents() {
    rptNotifications.clear();
    m_characters = 0;
    SaveRecents();
    if (m_dirty && m_settings.Recents_SAVE()) {
        m_journal.removeAll(); // the old file stands yet, and must not come back
    }
}

void NotificationHistory::saveUnsaved() {
    if (m_dirty) {
        SaveRecents();
    }
}

void NotificationHistory::Open_Recent(const QString& record) {
    if (record.section(ValueMark, 0, 0) != u"1") {
        return;
    }
    const HistoryMessage message = HistoryMessageOf(record);
    if (message.type == 0 &&
        (message.log == MessageLog::SentToSeveral || message.log == MessageLog::SentToOne)) {
        m_opened = message;
        emit openSent();
    } else {
        emit openMessage(message);
    }
}

void NotificationHistory::SetEnsureVisible_Notification() {
    m_settings.Recents_EV.set(!m_settings.Recents_EV());
}

} // namespace tessel
