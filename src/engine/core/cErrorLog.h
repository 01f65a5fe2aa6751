// error.txt: one line for each event that somebody who helps a user would want to read.
#pragma once

#include <QString>

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

private:
    const Clock& m_clock;
    const Folders& m_folders;
    const OwnState& m_own;
};

} // namespace tessel
