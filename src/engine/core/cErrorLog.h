// error.txt: one line for each event that somebody who helps a user would want to read. A log of 4 MiB
// becomes error.txt.1, in the place of the one before.
#pragma once

#include <QString>
#include <QStringList>

namespace tessel {

class Clock;
class Folders;
struct OwnState;

class cErrorLog {
public:
    cErrorLog(const Clock& clock, const Folders& folders, const OwnState& own)
        : m_clock(clock), m_folders(folders), m_own(own) {}

    // Adds the line: time, source, code, message, date, version, SID, location, joined by " ,". Line
    // breaks in the arguments become blanks. False when it could not be written; nobody else is told.
    bool LogEvent(const QString& source, const QString& message, const QString& code);
    // The newest lines, at most so many, the oldest of them first.
    QStringList lastLines(int count) const;

private:
    const Clock& m_clock;
    const Folders& m_folders;
    const OwnState& m_own;
};

} // namespace tessel
