// The running log of what happened at this location, its file recents.dat and the file's journal.
#pragma once

#include "engine/core/cJournal.h"
#include "engine/network/cEndpointNews.h"
#include "engine/ports/cClock.h"
#include "records/cReportRecords.h"

#include <QObject>
#include <QString>
#include <QStringList>

namespace tessel {

class Folders;
class LocationViews;
class Settings;

// What a message entry tells of the way that the message went.
enum class MessageLog { Received = 0, SentToSeveral = 1, ReplySent = 2, SentToOne = 3 };

struct HistoryMessage {
    int type = 0; // 0 a message, 1 a reply
    MessageLog log = MessageLog::Received;
    bool everyone = false;
    QString MessageID;
    QString name; // of the other location; for several recipients the whole recipient text
    QString SID;
    QString body;
    QString time;
    QString date;
};

// Items of a card. All texts are plain; the record is the row's text in the file.
enum class CardItem { Heading, Name, Text, Stamp, Border, Record };
inline constexpr int kCardItems = 6;

inline ReportItem& item(ReportRecord& record, CardItem index) {
    return record.item(static_cast<int>(index));
}
inline const ReportItem& item(const ReportRecord& record, CardItem index) {
    return record.item(static_cast<int>(index));
}

class NotificationHistory : public QObject {
    Q_OBJECT
public:
    NotificationHistory(Settings& settings, const Folders& folders, Clock& clock, const LocationViews& views);

    // Enters an event, newest first. The switches of its kind have been looked at already, but for
    // those that keep favorites only.
    void AddItem(const HistoryEntry& entry, bool loading = false);
    void AddMessage(const HistoryMessage& message, bool loading = false);

    // Reads recents.dat, and what came since from its journal. What cannot be read is left out.
    void LoadRecents();
    // Writes the newest `SAVE_CNT` entries.
    void SaveRecents();
    // Forgets all entries, in the file too.
    void ClearRecents();
    // Saves what is not saved yet; the program ends.
    void unload();
    // Toggles whether a new entry brings the list to its top.
    void SetEnsureVisible_Notification();

    ReportRecords rptNotifications{-1};
    Timer tmrSave;

signals:
    // The file was written, or could not be.
    void saved(const QString& path, bool stored);
    // A new entry wants to be seen.
    void ensureTopVisible();

private:
    void add(const ReportRecordPtr& record, bool loading);
    void saveLater();
    QString stamp(const QString& time, const QString& date);

    Settings& m_settings;
    const Folders& m_folders;
    Clock& m_clock;
    cJournal m_journal;
    const LocationViews& m_views;
    bool m_dirty = false;
    bool m_saveFailed = false; // the last one
    std::int64_t m_dirtySince = 0;
    qsizetype m_characters = 0; // of all records
    // The long form of a date is dear to make, and most entries are of a few days.
    QString m_stampDate;
    QString m_stampLongDate;
};

} // namespace tessel
