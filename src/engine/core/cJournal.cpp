#include "engine/core/cJournal.h"

#include "engine/core/mod_CodePage.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"

#include <QCryptographicHash>
#include <QFile>

#include <algorithm>
#include <optional>

namespace tessel {

namespace {

// Written before a save: the list file whose fingerprint this is has all entries up to here.
constexpr char kSaving = '=';

QByteArray fingerprint(QByteArrayView list) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(list);
    return hash.result().toHex();
}

bool isKind(char kind) {
    return kind == kSaving || kind == static_cast<char>(cJournal::Change::Kind::Added) ||
           kind == static_cast<char>(cJournal::Change::Kind::Removed) ||
           kind == static_cast<char>(cJournal::Change::Kind::AllRemoved);
}

// The number, the kind, the length of the payload in bytes and its checksum, then the payload on
// lines of its own.
QByteArray entryBytes(std::uint64_t number, char kind, const QByteArray& payload) {
    return QByteArray::number(static_cast<qulonglong>(number)) + ' ' + kind + ' ' +
           QByteArray::number(payload.size()) + ' ' + QByteArray::number(qChecksum(payload), 16) + '\n' +
           payload + '\n';
}

} // namespace

struct cJournal::Entry {
    std::uint64_t number = 0;
    char kind = 0;
    QByteArray payload;
    qsizetype end = 0; // behind the entry
};

struct cJournal::Contents {
    std::uint64_t saved = 0; // the number on the first line
    std::vector<Entry> entries;
    qsizetype end = 0; // of the last whole entry, or of the first line
};

cJournal::cJournal(Clock& clock, const Folders& folders, const QString& listFile)
    : tmrSync(clock, "tmrSync", 1000, Timer::Kind::OneShot, [this] { sync(); }), m_folders(folders),
      m_listFile(listFile) {}

QString cJournal::path() const {
    return m_folders.dataFile(m_listFile) + kJournalEnding;
}

cJournal::Contents cJournal::read() {
    const auto entryAt = [](QByteArrayView bytes, qsizetype at) -> std::optional<Entry> {
        const qsizetype feed = bytes.indexOf('\n', at);
        if (feed < 0) {
            return std::nullopt;
        }
        const QList<QByteArray> head = bytes.sliced(at, feed - at).toByteArray().split(' ');
        if (head.size() != 4 || head[1].size() != 1 || !isKind(head[1][0])) {
            return std::nullopt;
        }
        bool numbered = false;
        bool sized = false;
        Entry entry;
        entry.number = head[0].toULongLong(&numbered);
        entry.kind = head[1][0];
        const qsizetype size = head[2].toLongLong(&sized);
        if (!numbered || !sized || size < 0 || size >= bytes.size() - feed - 1) {
            return std::nullopt;
        }
        entry.payload = bytes.sliced(feed + 1, size).toByteArray();
        entry.end = feed + 1 + size + 1;
        if (bytes[entry.end - 1] != '\n' || QByteArray::number(qChecksum(entry.payload), 16) != head[3]) {
            return std::nullopt;
        }
        return entry;
    };

    Contents contents;
    QByteArray bytes;
    readFileStart(path(), kMaxBytes, bytes);
    const qsizetype firstEnd = bytes.indexOf('\n');
    bool numbered = false;
    contents.saved = bytes.first(std::max<qsizetype>(firstEnd, 0)).toULongLong(&numbered);
    qsizetype at = numbered ? firstEnd + 1 : 0;
    contents.end = at;
    m_number = contents.saved;
    while (at < bytes.size()) {
        std::optional<Entry> entry = entryAt(bytes, at);
        if (!entry) {
            // What a power cut left behind; an entry may still begin on a later line.
            const qsizetype feed = bytes.indexOf('\n', at);
            at = feed < 0 ? bytes.size() : feed + 1;
            continue;
        }
        at = contents.end = entry->end;
        m_number = std::max(m_number, entry->number);
        contents.entries.push_back(std::move(*entry));
    }
    m_size = contents.end;
    m_learnt = true;
    return contents;
}

void cJournal::learn() {
    if (!m_learnt) {
        read();
    }
}

std::vector<cJournal::Change> cJournal::replay(QByteArrayView list) {
    const Contents contents = read();
    std::uint64_t saved = contents.saved;
    QByteArray print;
    for (const Entry& entry : contents.entries) {
        if (entry.kind == kSaving && entry.number > saved) {
            if (print.isEmpty()) {
                print = fingerprint(list);
            }
            saved = entry.payload == print ? entry.number : saved;
        }
    }
    std::vector<Change> changes;
    for (const Entry& entry : contents.entries) {
        if (entry.kind != kSaving && entry.number > saved) {
            changes.push_back({static_cast<Change::Kind>(entry.kind), toText(entry.payload)});
        }
    }
    return changes;
}

bool cJournal::append(Change::Kind kind, const QString& text) {
    return write(static_cast<char>(kind), toBytes(text));
}

QByteArray cJournal::firstLine() const {
    return QByteArray::number(static_cast<qulonglong>(m_number)) + '\n';
}

// Makes the file with its first line.
bool cJournal::begin() {
    const QByteArray first = firstLine();
    if (!replaceFile(path(), first)) {
        return false;
    }
    m_size = first.size();
    return true;
}

bool cJournal::write(char kind, const QByteArray& payload) {
    learn();
    const QByteArray bytes = entryBytes(m_number + 1, kind, payload);
    const bool fits = kind == kSaving || m_size + bytes.size() <= kMaxBytes;
    if (!fits || (!FileExists(path()) && !begin())) {
        return false;
    }
    QFile file(path());
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) {
        return false;
    }
    // Behind the last whole entry: what a crash or a full disk cut off must not stand in the way.
    if ((file.size() > m_size && !file.resize(m_size)) || !file.seek(std::min(m_size, file.size()))) {
        return false;
    }
    if (file.write(bytes) != bytes.size()) {
        file.resize(m_size);
        return false;
    }
    m_size = file.pos();
    ++m_number;
    tmrSync.setEnabled(true);
    return true;
}

bool cJournal::save(const QByteArray& list) {
    learn();
    // Should the program end between the two steps, the next run knows the new list by its print.
    const bool used = FileExists(path());
    if (used && write(kSaving, fingerprint(list))) {
        sync();
    }
    if (!replaceFile(m_folders.dataFile(m_listFile), list)) {
        return false;
    }
    tmrSync.setEnabled(false);
    if (used) {
        empty();
    }
    return true;
}

// In place, and nobody waits for the disk: the list has all entries, and whatever a power cut leaves of
// the file is known as saved or damaged. A full disk has room for nothing, and that is as good as a
// first line.
void cJournal::empty() {
    QFile file(path());
    if (file.open(QIODevice::ReadWrite | QIODevice::Unbuffered) && file.resize(0)) {
        const QByteArray first = firstLine();
        m_size = file.write(first) == first.size() ? first.size() : 0;
    }
}

void cJournal::sync() {
    tmrSync.setEnabled(false);
    m_folders.syncFile(path());
}

} // namespace tessel
