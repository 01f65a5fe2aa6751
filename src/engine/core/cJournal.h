// The journal of a list file: what a list gained and lost since its file was last saved.
#pragma once

#include "engine/ports/cClock.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <vector>

namespace tessel {

class Folders;

// A list file is written whole, some time after a change. Until then each change stands in a journal
// beside it, NAME.journal, so that a kill loses nothing and a power cut at most the last second.
//
// How a list uses it:
//
//     cJournal m_journal{clock, folders, "inbox.dat"};
//
//     load:    read and show the records of the list file, then
//              for (const cJournal::Change& change : m_journal.replay(bytesOfListFile)) { ... }
//              and save later, if there were any
//     add:     m_journal.add(record)     at once, with the text that the list file would hold
//     remove:  m_journal.remove(key)     the key is the list's own affair, say a `MessageID`
//     clear:   m_journal.removeAll()
//     save:    m_journal.save(bytesOfListFile) in the place of `replaceFile`: it empties the journal,
//              and no crash between the two makes a change count twice or not at all
//     always:  if (m_journal.wantsSave()) save soon: a flood must not let the journal grow
//
// A list that is not to be kept between runs calls nothing but `save`.
class cJournal {
public:
    struct Change {
        enum class Kind : char { Added = '+', Removed = '-', AllRemoved = '0' };
        Kind kind;
        QString text; // the record, or the key of what was removed

        bool operator==(const Change&) const = default;
    };

    // `listFile`: a bare name of the data folder.
    cJournal(Clock& clock, const Folders& folders, const QString& listFile);

    // Each of these reaches the system before it returns, and the disk within `tmrSync`. False when it
    // could not be written; then only a save keeps the change.
    bool add(const QString& record) { return append(Change::Kind::Added, record); }
    bool remove(const QString& key) { return append(Change::Kind::Removed, key); }
    bool removeAll() { return append(Change::Kind::AllRemoved, {}); }

    // The changes that the list file does not have, the oldest first. `list`: the bytes of the list
    // file, empty if there is none. Damaged entries are left out; those behind them are not.
    std::vector<Change> replay(QByteArrayView list);

    // Replaces the list file and empties the journal. False when the old list file stands; the journal
    // then keeps what it has.
    bool save(const QByteArray& list);

    // True when the journal has grown so much that the list should be saved soon.
    bool wantsSave() const { return m_size > kWantsSaveBytes; }

    QString path() const;

    // How long a change may stand in the system's memory alone, one sync for all that came meanwhile.
    Timer tmrSync;

    static constexpr qint64 kWantsSaveBytes = 4 << 20;
    // A journal grows no further than this, whatever keeps its list from being saved.
    static constexpr qint64 kMaxBytes = 16 << 20;

private:
    struct Entry;
    struct Contents;

    bool append(Change::Kind kind, const QString& text);
    bool write(char kind, const QByteArray& payload);
    // The entries of the file. Learns where they end and the highest number.
    Contents read();
    void learn();
    QByteArray firstLine() const;
    bool begin();
    void empty();
    void sync();

    const Folders& m_folders;
    QString m_listFile;
    bool m_learnt = false;      // what stands in the file of an earlier run
    std::uint64_t m_number = 0; // of the last entry written
    qint64 m_size = 0;          // up to here the file is whole
};

} // namespace tessel
