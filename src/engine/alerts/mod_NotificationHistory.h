// The running log of what happened at this location, its file recents.dat and the file's journal.
#pragma once

#include "engine/alerts/cStamp.h"
#include "engine/core/cJournal.h"
#include "engine/network/cEndpointNews.h"
#include "engine/ports/cClock.h"
#include "records/cReportRecords.h"

#include <QObject>
#include <QString>
#include <QStringList>

namespace tessel {

class cErrorLog;
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

// A message's record as it stands in the file. What is missing is empty.
HistoryMessage HistoryMessageOf(const QString& record);

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
    NotificationHistory(Settings& settings, const Folders& folders, cErrorLog& log, Clock& clock,
                        const LocationViews& views);

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
    // Saves what is not saved yet, for whoever is about to read the file, or as the program ends.
    void saveUnsaved();
    // How many entries are kept at most, and how large a file is read.
    int mostEntries() const;
    qint64 mostFileBytes() const;
    // Opens a message from its record; a record of any other kind opens nothing.
    void Open_Recent(const QString& record);
    // The sent message that was opened last.
    const HistoryMessage& openedMessage() const { return m_opened; }
    // Toggles whether a new entry brings the list to its top.
    void SetEnsureVisible_Notification();

    ReportRecords rptNotifications{-1};
    Timer tmrSave;

signals:
    // The file was written, or could not be.
    void saved(const QString& path, bool stored);
    // A new entry wants to be seen.
    void ensureTopVisible();
    // A message that this location sent, and any other.
    void openSent();
    void openMessage(const HistoryMessage& message);

private:
    void add(const ReportRecordPtr& record, bool loading);
    void saveLater();
    void load(const QString& record);

    Settings& m_settings;
    const Folders& m_folders;
    cErrorLog& m_log;
    Clock& m_clock;
    cJournal m_journal;
    const LocationViews& m_views;
    bool m_dirty = false;
    bool m_saveFailed = false; // the last one
    std::int64_t m_dirtySince = 0;
    qsizetype m_characters = 0; // of all records
    cStamp m_stamp;
    HistoryMessage m_opened;
};

} // namespace tessel
