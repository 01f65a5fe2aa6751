// What could not be saved: kept in mind, told, and tried again.
#pragma once

#include "engine/ports/cClock.h"

#include <QObject>
#include <QString>
#include <QStringList>

namespace tessel {

class cErrorLog;
struct OwnState;

// Whoever writes a file of the user's tells here how it went. While a file is not saved, everybody is
// asked each half minute to try again, with what the file should hold by then. The user reads it in
// the footer once the station is online, and error.txt gets one line, as soon as that can be written.
class cSaver : public QObject {
    Q_OBJECT
public:
    cSaver(const OwnState& own, Clock& clock, cErrorLog& log);

    // The last write of the file succeeded, or did not.
    void note(const QString& path, bool saved);
    // Something about the files that the user is to read once the station is online.
    void tellOnce(const QString& text);
    // The program ends: the last try.
    void unload();

    Timer tmrSaver;

signals:
    void tryAgain();
    // A text for the desktop to show, with `footer` or without.
    void notice(const QString& text);
    void footer(const QString& text, const QString& tip, bool timed);

private:
    void tick();
    void tell();
    void tellLog();

    const OwnState& m_own;
    Clock& m_clock;
    cErrorLog& m_log;
    QStringList m_unsaved;
    QStringList m_notices;
    QStringList m_untold; // of these the log does not know yet
    std::int64_t m_toldAt = -1;
    bool m_inFooter = false;
};

} // namespace tessel
