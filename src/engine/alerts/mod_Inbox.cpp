#include "engine/alerts/mod_Inbox.h"

#include "engine/alerts/mod_MessageCard.h"
#include "engine/alerts/mod_Popups.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_QuotedRecords.h"
#include "engine/core/mod_Settings.h"
#include "records/mod_PlainText.h"

#include <algorithm>

namespace tessel {

namespace {

const QString kNewLine = QStringLiteral("\r\n");

// The values of a record, in the order of the file.
enum FileValue { FvType, FvEveryone, FvID, FvName, FvSID, FvBody, FvTime, FvDate, FvCount };

ReceivedMessage messageOf(const ReportRecord& row) {
    return {item(row, InboxItem::Type).text, toBoolean(item(row, InboxItem::Everyone).text),
            item(row, InboxItem::ID).text,   item(row, InboxItem::Name).text,
            item(row, InboxItem::SID).text,  item(row, InboxItem::Body).text,
            item(row, InboxItem::Time).text, item(row, InboxItem::Date).text};
}

} // namespace

QString MessageRecord(const ReceivedMessage& message) {
    return joinRecord({message.kind, BooleanText(message.everyone), message.MessageID, message.location,
                       message.SID, message.text, message.time, message.date});
}

ReceivedMessage MessageOf(const QString& record) {
    const QStringList values = splitRecord(record, FvCount);
    return {values[FvType], toBoolean(values[FvEveryone]),
            values[FvID],   values[FvName],
            values[FvSID],  values[FvBody],
            values[FvTime], values[FvDate]};
}

QString MessageText(const QString& body) {
    QString text;
    for (const QString& part : body.split(ListMark)) {
        text += part + kNewLine;
    }
    return text;
}

Inbox::Inbox(Settings& settings, const Folders& folders, cErrorLog& log, Clock& clock, Popups& popups)
    : tmrSaveInbox(clock, "tmrSaveInbox", 10000, Timer::Kind::OneShot, [this] { Saveinbox(); }),
      m_settings(settings), m_folders(folders), m_log(log), m_popups(popups),
      m_journal(clock, folders, kInboxFile) {}

ReportRecordPtr Inbox::make(const ReceivedMessage& message) {
    auto record = std::make_shared<ReportRecord>(kInboxItems);
    item(*record, InboxItem::Type).text = message.kind;
    item(*record, InboxItem::Everyone).text = BooleanText(message.everyone);
    item(*record, InboxItem::ID).text = message.MessageID;
    item(*record, InboxItem::Name).text = message.location;
    item(*record, InboxItem::SID).text = message.SID;
    item(*record, InboxItem::Time).text = message.time;
    item(*record, InboxItem::Date).text = message.date;
    item(*record, InboxItem::Body).text = message.text;
    item(*record, InboxItem::Value).value = m_stamp.seconds(message.time, message.date);

    const MessageHeading heading = ReceivedHeading(message.kind, message.everyone);
    item(*record, InboxItem::Display).text = heading.lead;
    item(*record, InboxItem::Display).icon = heading.icon;
    item(*record, InboxItem::Display).backColor = m_settings.Messages_MSG_B();
    item(*record, InboxItem::Name).foreColor = heading.nameColor;
    item(*record, InboxItem::Preview).text = MessagePreview(message.text);
    item(*record, InboxItem::Stamp).text = m_stamp.stamp(message.time, message.date);
    item(*record, InboxItem::Stamp).foreColor = m_settings.Messages_MSG_TS();
    return record;
}

// Behind all that is newer; what is as old was there before.
void Inbox::insert(const ReportRecordPtr& record) {
    const std::int32_t value = item(*record, InboxItem::Value).value;
    int row = 0;
    while (row < rptMessages.count() && item(*rptMessages.at(row), InboxItem::Value).value > value) {
        ++row;
    }
    rptMessages.insert(row, record);
    m_characters += item(*record, InboxItem::Body).text.size();
    trim();
}

int Inbox::mostRows() const {
    constexpr std::int64_t kMost = 1 << 20;
    return static_cast<int>(
        std::clamp(std::int64_t{4} * m_settings.Messages_SAVE_CNT(), std::int64_t{kLeastLimit}, kMost));
}

void Inbox::trim() {
    while (rptMessages.count() > mostRows() || (m_characters > kMostCharacters && rptMessages.count() > 1)) {
        remove(rptMessages.count() - 1);
    }
}

void Inbox::remove(int row) {
    m_characters -= item(*rptMessages.at(row), InboxItem::Body).text.size();
    rptMessages.remove(row);
}

void Inbox::Add_Message(const ReceivedMessage& message, bool loading) {
    insert(make(message));
    if (!loading) {
        m_journal.add(MessageRecord(message));
        SaveInboxMessages();
        emit countChanged();
    }
    if (m_settings.Messages_EV()) {
        emit ensureTopVisible();
    }
}

void Inbox::Loadinbox() {
    rptMessages.clear();
    m_characters = 0;
    const QString path = m_folders.dataFile(kInboxFile);
    QByteArray bytes;
    if (readFileStart(path, kMostFileBytes, bytes)) {
        const QuotedRecords file = readQuotedRecords(bytes, mostRows());
        keepUnclosed(path, file.unclosed, m_log);
        std::vector<ReportRecordPtr> rows;
        rows.reserve(static_cast<std::size_t>(file.records.size()));
        for (const QString& record : file.records) {
            if (!record.isEmpty()) {
                rows.push_back(make(MessageOf(record)));
            }
        }
        std::stable_sort(rows.begin(), rows.end(), [](const ReportRecordPtr& a, const ReportRecordPtr& b) {
            return item(*a, InboxItem::Value).value > item(*b, InboxItem::Value).value;
        });
        rptMessages.reserve(static_cast<int>(rows.size()));
        for (ReportRecordPtr& row : rows) {
            m_characters += item(*row, InboxItem::Body).text.size();
            rptMessages.append(std::move(row));
        }
        trim();
    }
    replay(bytes);
    emit countChanged();
    if (m_settings.Messages_EV()) {
        emit ensureTopVisible();
    }
}

void Inbox::replay(QByteArrayView bytes) {
    const std::vector<cJournal::Change> changes = m_journal.replay(bytes);
    for (const cJournal::Change& change : changes) {
        switch (change.kind) {
        case cJournal::Change::Kind::Added:
            insert(make(MessageOf(change.text)));
            break;
        case cJournal::Change::Kind::Removed: {
            // The whole record is the key: an id may come twice, and either of two equal records will do.
            const ReceivedMessage gone = MessageOf(change.text);
            for (int row = Message_FindID(gone.MessageID); has(row); ++row) {
                if (MessageRecord(messageOf(*rptMessages.at(row))) == change.text) {
                    remove(row);
                    break;
                }
            }
            break;
        }
        case cJournal::Change::Kind::AllRemoved:
            rptMessages.clear();
            m_characters = 0;
            break;
        }
    }
    if (!changes.empty()) {
        SaveInboxMessages();
    }
}

bool Inbox::Saveinbox() {
    tmrSaveInbox.setEnabled(false);
    QStringList records;
    const int count = std::clamp(m_settings.Messages_SAVE_CNT(), 0, rptMessages.count());
    records.reserve(count);
    for (int row = 0; row < count; ++row) {
        records += MessageRecord(messageOf(*rptMessages.at(row)));
    }
    const bool stored = m_journal.save(writeQuotedRecords(records));
    emit saved(m_folders.dataFile(kInboxFile), stored);
    m_saveFailed = m_dirty = !stored;
    tmrSaveInbox.setEnabled(m_dirty);
    return !m_dirty;
}

void Inbox::SaveInboxMessages() {
    m_dirty = true;
    tmrSaveInbox.restart();
    // Messages that never leave ten seconds between them must not fill the disk.
    if (m_journal.wantsSave() && !m_saveFailed) {
        Saveinbox();
    }
}

void Inbox::setFocused(const ReportRecordPtr& record) {
    m_focused = record;
    emit focusChanged();
}

const ReportRecord* Inbox::focused() const {
    return m_focused && m_focused->row() >= 0 ? m_focused.get() : nullptr;
}

void Inbox::Delete_Message() {
    const ReportRecord* const record = focused();
    if (record == nullptr) {
        return;
    }
    const ReceivedMessage message = messageOf(*record);
    if (!message.MessageID.isEmpty() && m_popups.tag(PopupId::ctrlPopupStatus) == message.MessageID) {
        m_popups.close(PopupId::ctrlPopupStatus);
    }
    remove(record->row());
    m_journal.remove(MessageRecord(message));
    SaveInboxMessages();
    emit countChanged();
}

void Inbox::Delete_Message_ID(const QString& id) {
    const int row = Message_FindID(id);
    if (has(row)) {
        // The file follows at the next save; until then the journal knows that it is gone.
        m_journal.remove(MessageRecord(messageOf(*rptMessages.at(row))));
        remove(row);
    }
    emit countChanged();
}

int Inbox::Message_FindID(const QString& id) const {
    const ReportRecord* const record = rptMessages.find(id);
    return record == nullptr ? -1 : record->row();
}

void Inbox::Remove_All_Inbox_Messages() {
    rptMessages.clear();
    m_characters = 0;
    m_popups.close(PopupId::ctrlPopupStatus);
    m_journal.removeAll();
    Saveinbox();
    emit countChanged();
}

void Inbox::askToRemoveAll() {
    if (rptMessages.count() > 0) {
        emit clearRequested();
    }
}

void Inbox::OpenMessage(const QString& record) {
    emit opened(MessageOf(record));
}

void Inbox::GetMessageFromList() {
    if (const ReportRecord* const record = focused()) {
        emit opened(messageOf(*record));
    }
}

void Inbox::GetMessageFromPopup(const QString& id) {
    if (const int row = Message_FindID(id); has(row)) {
        emit opened(messageOf(*rptMessages.at(row)));
    }
}

void Inbox::SetEnsureVisible_Message() {
    m_settings.Messages_EV.set(!m_settings.Messages_EV());
    emit ensureVisibleChanged();
}

QString Inbox::caption() const {
    return rptMessages.count() == 0 ? QStringLiteral("Inbox ")
                                    : QStringLiteral("Inbox (%1)").arg(rptMessages.count());
}

void Inbox::Print_Message() {
    if (const ReportRecord* const record = focused()) {
        emit printRequested(printText(messageOf(*record)));
    }
}

QString Inbox::printText(const ReceivedMessage& message) {
    return QLatin1String("Message From: ") + withoutControls(message.location) + kNewLine + kNewLine +
           MessageText(message.text).trimmed() + kNewLine + kNewLine + message.time + QLatin1String(" on ") +
           m_stamp.LongDate(message.date) + kNewLine;
}

} // namespace tessel
