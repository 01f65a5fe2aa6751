// All facts of this location that somebody who helps its user asks for.
#pragma once

#include <QString>
#include <QStringList>

namespace tessel {

class Admin;
class Clock;
class Endpoints;
class NetworkMC;
class NetworkProtocol;
class Settings;
class Tones;
class cErrorLog;
struct OwnState;
struct SystemFacts;

class Diagnostics {
public:
    // What is asked for facts.
    struct Sources {
        const OwnState& own;
        const SystemFacts& facts;
        const Settings& settings;
        const Admin& admin;
        const NetworkMC& network;
        const NetworkProtocol& protocol;
        const Tones& tones;
        const Endpoints& endpoints;
        const cErrorLog& log;
        const Clock& clock;
    };

    explicit Diagnostics(const Sources& sources) : m_from(sources) {}

    // One fact a line, its label in front.
    QString GetDiagInfo() const;
    // Whether tones can be heard, in one line.
    QString SoundInfo() const;
    // The newest lines of error.txt, the last one at the end.
    QStringList LogLines() const;

    // All of this, the table of locations and the versions of what the program runs on, as one text for
    // somebody outside the office: no patient, status, note or text of a message is in it, nor what stands
    // between brackets in the log.
    QString HelpReport() const;

private:
    Sources m_from;
};

// A line of the log without what stands between "[" and "]", which others have written.
QString withoutBrackets(const QString& line);

} // namespace tessel
