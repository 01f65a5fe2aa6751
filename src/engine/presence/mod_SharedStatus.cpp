#include "engine/presence/mod_SharedStatus.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/core/mod_INIData.h"
#include "engine/core/mod_Identity.h"
#include "engine/core/mod_Limits.h"
#include "engine/network/mod_FitText.h"
#include "engine/network/mod_Network_Protocol.h"

#include <algorithm>

namespace tessel {

namespace {

const QString kAuthorSection = QStringLiteral("Author");
const QString kEntrySection = QStringLiteral("SharedStatus");
const QString AuthorMark = QStringLiteral(".A\u20AC");
constexpr int kLongestTone = 4; // digits
constexpr int kWriteIntervalMs = 1000;

struct AuthorKey {
    const char* key;
    QString SharedStatus::Author::*value;
};
constexpr AuthorKey kAuthorKeys[] = {
    {"user", &SharedStatus::Author::user}, {"host", &SharedStatus::Author::host},
    {"id", &SharedStatus::Author::id},     {"time", &SharedStatus::Author::time},
    {"date", &SharedStatus::Author::date}, {"ver", &SharedStatus::Author::ver}};

// An entry as it may stand in the file: a text no longer than can be typed, and a tone.
QString usable(const QString& entry) {
    const QString label = entry.section(ListMark, 0, 0).left(SharedStatus::kLongestLabel);
    const QString tone = entry.section(ListMark, 1, 1).left(kLongestTone);
    return entry.contains(ListMark) ? label + ListMark + tone : label;
}

} // namespace

SharedStatus::SharedStatus(const OwnState& own, INIData& data, const Folders& folders, Clock& clock,
                           NetworkProtocol& protocol, Identity& ids)
    : tmrStoreShared(clock, "tmrStoreShared", kWriteIntervalMs, Timer::Kind::OneShot,
                     [this] { writePending(); }),
      m_own(own), m_data(data), m_folders(folders), m_clock(clock), m_protocol(protocol), m_ids(ids) {
    protocol.attach(Code::ZS01, [this](const cPacket& packet) {
        const QString body = packet.bodyText();
        const qsizetype mark = body.indexOf(ValueMark);
        if (mark >= 0) {
            StoreSharedStatus(body.first(mark), body.sliced(mark + ValueMark.size()));
        }
    });
    protocol.attach(Code::ZS02, [this](const cPacket&) { DeleteSharedStatus(); });
}

void SharedStatus::take(int index, const QString& value) {
    SharedStatusEntry& entry = m_table[static_cast<std::size_t>(index)];
    entry.Active = !value.isEmpty();
    if (entry.Active) {
        entry.Label = value.section(ListMark, 0, 0);
        entry.Tone = value.section(ListMark, 1, 1);
    }
}

void SharedStatus::LoadSharedStatus() {
    m_fileThere = FileExists(m_folders.dataFile(kSharedFile));
    for (int index = 0; m_fileThere && index < kUsed; ++index) {
        take(index, m_data.ReadSettingRaw(kSharedFile, kEntrySection, QString::number(index)));
    }
    emit loaded();
}

const SharedStatusEntry& SharedStatus::entry(int index) const {
    static const SharedStatusEntry none;
    return index >= 0 && index < kCount ? m_table[static_cast<std::size_t>(index)] : none;
}

std::vector<SharedStatusChoice> SharedStatus::FillSharedStatusList() const {
    std::vector<SharedStatusChoice> choices;
    for (int index = 0; m_fileThere && index < kUsed; ++index) {
        if (entry(index).Active) {
            choices.push_back({entry(index).Label, index});
        }
    }
    return choices;
}

SharedStatus::Author SharedStatus::LoadAuthorInformation() const {
    if (m_pending) {
        return m_pending->author;
    }
    Author author;
    for (const AuthorKey& row : kAuthorKeys) {
        author.*row.value = m_data.ReadSettingRaw(kSharedFile, kAuthorSection, QLatin1String(row.key));
    }
    return author;
}

bool SharedStatus::isUpdateable(const std::vector<Row>& rows) {
    return std::any_of(rows.begin(), rows.end(),
                       [](const Row& row) { return row.text.trimmed().size() >= kShortestLabel; });
}

int SharedStatus::SaveStatus(const std::vector<Row>& rows) {
    for (std::size_t index = 0; index < rows.size(); ++index) {
        if (rows[index].text.trimmed().size() == 1) {
            return static_cast<int>(index);
        }
    }
    if (isUpdateable(rows)) {
        m_pending.reset();
        List list{{m_own.location, m_own.host, m_own.SID, m_clock.timeText(), m_clock.dateText(),
                   m_ids.MakeMessageID()},
                  {}};
        for (std::size_t index = 0; index < rows.size() && index < list.entries.size(); ++index) {
            QString text = FitText(rows[index].text.trimmed());
            text.replace(ListMark, QLatin1String(" "));
            if (text.size() >= kShortestLabel) {
                list.entries[index] = usable(text + ListMark + QString::number(rows[index].tone));
            }
        }
        write(list, false);
    }
    LoadSharedStatus();
    return -1;
}

// All at once: half of a new list beside half of the old one would be nobody's.
void SharedStatus::write(const List& list, bool unusedToo) {
    std::vector<cIniDocument::Change> changes;
    for (const AuthorKey& row : kAuthorKeys) {
        changes.push_back({kAuthorSection, QLatin1String(row.key), list.author.*row.value});
    }
    for (std::size_t index = 0; index < list.entries.size(); ++index) {
        const QString& entry = list.entries[index];
        changes.push_back({kEntrySection, QString::number(index),
                           unusedToo || !entry.isEmpty() ? std::optional(entry) : std::nullopt});
    }
    m_data.WriteChanges(kSharedFile, changes);
}

void SharedStatus::SendToAllUsers() {
    writePending();
    if (!FileExists(m_folders.dataFile(kSharedFile))) {
        return;
    }
    const Author author = LoadAuthorInformation();
    QStringList header;
    for (const AuthorKey& row : kAuthorKeys) {
        header += FitText(author.*row.value);
    }
    QString entries;
    for (int index = 0; index < kUsed; ++index) {
        entries +=
            FitText(m_data.ReadSettingRaw(kSharedFile, kEntrySection, QString::number(index))) + AuthorMark;
    }
    m_protocol.send(Code::ZS01, QString(header.join(AuthorMark) + ValueMark + entries));
}

void SharedStatus::sendRemoveAll() {
    m_protocol.send(Code::ZS02);
}

void SharedStatus::StoreSharedStatus(const QString& Header, const QString& Entries) {
    if (Header.isEmpty() && Entries.isEmpty()) {
        return;
    }
    List list;
    const QStringList author = Header.split(AuthorMark, Qt::KeepEmptyParts, Qt::CaseInsensitive);
    for (qsizetype i = 0; i < author.size() && i < static_cast<qsizetype>(std::size(kAuthorKeys)); ++i) {
        list.author.*kAuthorKeys[i].value = author[i].left(kMaxRowText);
    }
    const QStringList entries = Entries.split(AuthorMark, Qt::KeepEmptyParts, Qt::CaseInsensitive);
    for (int index = 0; index < kUsed; ++index) {
        QString& entry = list.entries[static_cast<std::size_t>(index)];
        entry = index < entries.size() ? usable(entries[index]) : QString();
        take(index, entry);
    }
    m_fileThere = true;
    m_pending = std::move(list);
    // A flood of lists costs the disk one a second.
    if (!tmrStoreShared.enabled()) {
        writePending();
    }
    emit loaded();
}

void SharedStatus::writePending() {
    if (m_pending) {
        write(*m_pending, true);
        m_pending.reset();
        tmrStoreShared.restart();
    }
}

void SharedStatus::DeleteSharedStatus() {
    m_pending.reset();
    DeleteFile(m_folders.dataFile(kSharedFile));
    LoadSharedStatus();
    emit deleted();
}

} // namespace tessel
