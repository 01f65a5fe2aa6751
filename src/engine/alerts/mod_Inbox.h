// The inbox: the messages that others sent to this location, and its file inbox.dat.
#pragma once

#include "engine/alerts/cStamp.h"
#include "engine/alerts/mod_Messages.h"
#include "engine/core/cJournal.h"
#include "engine/ports/cClock.h"
#include "records/cReportRecords.h"

#include <QObject>
#include <QString>
#include <QStringList>

namespace tessel {

class cErrorLog;
class Folders;
class Popups;
class Settings;

// Items of a row. Those up to `Body` are the store itself.
enum class InboxItem {
    Type,     // "0" a message, "1" a reply
    Everyone, // "-1" or "0"
    ID,
    Name, // of the sender
    SID,
    Display, // heading, icon and border of the card
    Time,
    Date,
    Body,    // whole
    Value,   // date and time as a number, by which the list is sorted
    Stamp,   // time and long date
    Preview, // beginning of the body's first part
};
inline constexpr int kInboxItems = 12;

inline ReportItem& item(ReportRecord& record, InboxItem index) {
    return record.item(static_cast<int>(index));
}
inline const ReportItem& item(const ReportRecord& record, InboxItem index) {
    return record.item(static_cast<int>(index));
}

class Inbox : public QObject {
    Q_OBJECT
public:
    // Guards of memory alone: what is older falls away. The list holds four times `SAVE_CNT` messages in
    // any case, unless their text is more than this.
    static constexpr int kLeastLimit = 20000;
    static constexpr qsizetype kMostCharacters = 32 << 20;
    static constexpr qint64 kMostFileBytes = 64 << 20;

    Inbox(Settings& settings, const Folders& folders, cErrorLog& log, Clock& clock, Popups& popups);

    void Add_Message(const ReceivedMessage& message, bool loading = false);
    // Reads inbox.dat and what came since it was saved. What cannot be read is left out.
    void Loadinbox();
    // Writes the newest `SAVE_CNT` messages. False when the old file stands; it is tried again then.
    bool Saveinbox();
    // Asks for a save, ten seconds after the last call.
    void SaveInboxMessages();
    bool dirty() const { return m_dirty; }

    // The message that the user has in front, which the acts below are for. nullptr for none.
    void setFocused(const ReportRecordPtr& record);
    // nullptr also when it is in the list no more.
    const ReportRecord* focused() const;
    void Delete_Message();
    void GetMessageFromList();
    void Print_Message();

    void Delete_Message_ID(const QString& id);
    // The first row with this id, -1 when there is none.
    int Message_FindID(const QString& id) const;
    void Remove_All_Inbox_Messages();
    // Asks the user first. Nothing happens with an empty list.
    void askToRemoveAll();

    // These emit `opened`, if there is such a message. `record`: as in inbox.dat.
    void OpenMessage(const QString& record);
    void GetMessageFromPopup(const QString& id);

    // Toggles whether a new message brings the list to its top.
    void SetEnsureVisible_Message();

    // "Inbox " with the number of messages, if there are any.
    QString caption() const;

    ReportRecords rptMessages{static_cast<int>(InboxItem::ID)};
    Timer tmrSaveInbox;

signals:
    // The file was written, or could not be.
    void saved(const QString& path, bool stored);
    void countChanged();
    // A new message wants to be seen.
    void ensureTopVisible();
    void opened(const ReceivedMessage& message);
    void focusChanged();
    void ensureVisibleChanged();
    // The text of a message is to be shown as it is printed.
    void printRequested(const QString& text);
    // All messages are to go, if the user says so again.
    void clearRequested();

private:
    ReportRecordPtr make(const ReceivedMessage& message);
    void insert(const ReportRecordPtr& record);
    void remove(int row);
    void trim();
    int mostRows() const;
    void replay(QByteArrayView bytes);
    bool has(int row) const { return row >= 0 && row < rptMessages.count(); }
    QString printText(const ReceivedMessage& message);

    Settings& m_settings;
    const Folders& m_folders;
    cErrorLog& m_log;
    Popups& m_popups;
    cJournal m_journal;
    cStamp m_stamp;
    ReportRecordPtr m_focused;
    bool m_dirty = false;
    bool m_saveFailed = false;  // the last one
    qsizetype m_characters = 0; // of all bodies
};

// The eight values of a message, joined as they stand in inbox.dat, and back. What is missing is empty.
QString MessageRecord(const ReceivedMessage& message);
ReceivedMessage MessageOf(const QString& record);

// The parts of a body, the answer first and what it answers behind it, each on lines of its own.
QString MessageText(const QString& body);

} // namespace tessel
