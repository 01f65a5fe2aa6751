// Identities: the SID that makes a station itself, and the ids of messages.
#pragma once

#include <QString>

#include <cstdint>
#include <random>

namespace tessel {

class cErrorLog;
class Clock;
class INIData;
struct OwnState;

inline constexpr char kSIDMask[] = "###XX###XXX#";
inline constexpr char kMessageIDMask[] = "X##XXX###XX#";

class Identity {
public:
    // `seed`: 0 takes the clock and the system's noise; anything else makes the ids repeatable.
    Identity(OwnState& own, INIData& data, cErrorLog& log, const Clock& clock, std::uint64_t seed = 0);

    // Takes the SID from user.cfg as it stands there, or makes one. A damaged user.cfg is put aside first;
    // where that fails, the SID stays empty and nothing is written.
    void LoadSID();
    // What the user is to hear of a damaged user.cfg; empty when there was none.
    const QString& damage() const { return m_damage; }
    // Makes and stores a new id. Empty when it could not be stored. Does not change the own state.
    QString CreateSID();
    // Deletes the id and makes a new one, which comes into force at the next start.
    void ResetSID();

    // "#" gives a digit, "X" a capital letter, anything else itself. Empty unless the result has 12
    // characters.
    QString MakeRandomID(const QString& mask);
    QString MakeMessageID() { return MakeRandomID(QString::fromLatin1(kMessageIDMask)); }

private:
    void tellOfDamage(const QString& text);

    OwnState& m_own;
    INIData& m_data;
    cErrorLog& m_log;
    QString m_damage;
    std::mt19937_64 m_random;
};

} // namespace tessel
