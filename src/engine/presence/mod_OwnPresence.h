// What this location shows of itself beside its status: occupied room, staff tag, note. Each change is
// announced; requests of other locations come in here too.
#pragma once

#include "engine/core/mod_Limits.h"

#include <QObject>
#include <QString>

namespace tessel {

class Clock;
class INIData;
class NetworkProtocol;
class Windows;
class cPacket;
struct OwnState;

class OwnPresence : public QObject {
    Q_OBJECT
public:
    static constexpr int kLongestNote = tessel::kLongestNote;
    static constexpr int kShortestNote = 4; // of one that is set in a window
    static constexpr int kLongestPatient = 15;

    OwnPresence(OwnState& own, INIData& data, const Clock& clock, NetworkProtocol& protocol,
                Windows& windows);

    // Toggles the occupied flag; turned off, it forgets the patient and the time. With `Ask` the one who
    // seats is asked for a name, and the others are told when that window has closed.
    void SetOccupiedStatus(bool Ask);
    // The window that asks for the name has closed. A name of one character counts as none.
    void namePatient(const QString& name);
    // Toggles on another location's request.
    void SetOccupiedStatusRemote(bool Named, const QString& Name);
    // What counts as the patient's name of a typed text: trimmed, and at least 2 characters.
    static QString patientOf(const QString& typed);

    // 0 clears the tag.
    void Set_StaffTag(std::int16_t tag);
    // The same without a time of its own: what stands there stays.
    void announceStaffTag(std::int16_t tag);

    // Takes the staff tag of a location away: the own one at once, another by a request.
    void ClearStaffTag(const QString& SID);

    // Keeps the note, trimmed, stores it, and announces it.
    void SetLocationNote(const QString& note);
    // The same from the own window. False, and nothing happens, for fewer than 4 characters.
    bool SetActiveNote(const QString& typed);
    // Takes the note away until the next start: user.cfg keeps it.
    void RemoveActiveNote();

signals:
    // The own state changed.
    void changed();

private:
    void toggleOccupied(const QString& patient);
    void SaveActiveNote();
    void attachHandlers(NetworkProtocol& protocol);

    OwnState& m_own;
    INIData& m_data;
    const Clock& m_clock;
    NetworkProtocol& m_protocol;
    Windows& m_windows;
    bool m_asking = false; // for a patient's name
};

} // namespace tessel
