// Access to the keys of INI files on disk.
#pragma once

#include "engine/core/cIniDocument.h"

#include <QString>

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace tessel {

// One instance serves the whole station. `Path`, `Section`, `Key` and `Default` are set one by one
// before an access, and the access must follow without a wait between. After each access `Success`
// tells whether it worked, and `LastReturnCode` is the length of what was read, or 1 or 0 for a write.
//
// A file that cannot be read, or is larger than `kMaxIniBytes`, reads as empty, and is never written:
// what stands in it is not this program's to lose. Every write replaces the file at once.
//
// What could not be written is remembered, key by key, and holds for this run as if it were: reading
// finds it, and each later write to the file, or `tryAgain`, brings it into the file as that then is.
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

    // Writes several keys of `Section` with one replacement of the file.
    bool setValues(const std::vector<cIniDocument::KeyValue>& values);
    // Writes and removes keys of any sections, `Section` and `Key` apart, with one replacement of the file.
    bool setAll(const std::vector<cIniDocument::Change>& changes);

    // While one of these stands, each file is read once, however many of its keys are asked for; a write
    // reads it anew. For a run of accesses without a wait between, like those of the start. One at a time.
    class OneReading {
    public:
        explicit OneReading(cInifile& ini) : m_ini(ini) { m_ini.m_reading = ++m_ini.m_readings; }
        ~OneReading() { m_ini.m_reading = 0; }
        OneReading(const OneReading&) = delete;
        OneReading& operator=(const OneReading&) = delete;

    private:
        cInifile& m_ini;
    };

    // Writes what earlier writes could not, in every file.
    void tryAgain();
    // Leaves a file as it is for the rest of this run, whatever is written to it.
    void forbid(const QString& path);

    // Told of each write, and whether it reached its file.
    std::function<void(const QString& path, bool stored)> written;

    // A whole number, or `fallback` for a text that is none or out of range.
    static int CLngDefault(const QString& text, int fallback);

private:
    using Change = cIniDocument::Change;
    struct Cached {
        QByteArray bytes;      // of the file
        cIniDocument document; // the same with what waits
        bool current = false;  // the document is made of these bytes
        bool exists = false;
        bool writable = false;  // false: there is a file that could not be read
        bool forbidden = false; // for this run
        int reading = 0;        // in which it was read last
        std::vector<Change> waiting;
    };

    Cached& load(const QString& path);
    Cached& loadAnew(const QString& path);
    static void apply(cIniDocument& document, const Change& change);
    // Makes the changes and writes the file; what does not reach it waits.
    bool store(const QString& path, const std::vector<Change>& changes);
    static bool replace(const QString& path, Cached& cached);
    bool finish(bool success, qsizetype code);

    std::map<QString, Cached> m_files;
    int m_readings = 0; // so far
    int m_reading = 0;  // 0: none
};

} // namespace tessel
