// Access to the keys of INI files on disk.
#pragma once

#include "engine/core/cIniDocument.h"

#include <QString>
#include <QStringList>

#include <map>
#include <vector>

namespace tessel {

// One instance serves the whole station. `Path`, `Section`, `Key` and `Default` are set one by one
// before an access, and the access must follow without a wait between. After each access `Success`
// tells whether it worked, and `LastReturnCode` is the length of what was read, or 1 or 0 for a write.
//
// A file that cannot be read, or is larger than `kMaxIniBytes`, reads as empty, and is never written:
// what stands in it is not this program's to lose. Every write replaces the file at once.
class cInifile {
public:
    QString Path;
    QString Section;
    QString Key;
    QString Default;
    int LastReturnCode = 0;
    bool Success = false;

    // The value of `Key`, or `Default` if the key is absent.
    QString Value();
    bool setValue(const QString& value);
    bool DeleteKey();
    bool DeleteSection();
    // The whole section, one "key=value" a line.
    QString INISection();
    // Replaces the section's keys by those of the block.
    bool setINISection(const QString& block);
    QStringList Sections();
    std::vector<cIniDocument::KeyValue> EnumerateCurrentSection();
    // As above for each section, in the order of `Sections`.
    std::vector<std::pair<QString, std::vector<cIniDocument::KeyValue>>> EnumerateAllSections();

    // Writes several keys of `Section` with one replacement of the file.
    bool setValues(const std::vector<cIniDocument::KeyValue>& values);

    // A whole number, or `fallback` for a text that is none or out of range.
    static int CLngDefault(const QString& text, int fallback);

private:
    struct Cached {
        cIniDocument document;
        bool exists = false;
        bool writable = false; // false: there is a file that could not be read
    };

    Cached& load();
    // Writes what differs from `before`, the bytes that were loaded.
    bool store(Cached& cached, const QByteArray& before);
    bool finish(bool success, qsizetype code);

    std::map<QString, Cached> m_files;
};

} // namespace tessel
