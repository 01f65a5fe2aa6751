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
class cPacket;
struct OwnState;

class OwnPresence : public QObject {
    Q_OBJECT
public:
    static constexpr int kLongestNote = tessel::kLongestNote;

    OwnPresence(OwnState& own, INIData& data, const Clock& clock, NetworkProtocol& protocol);

    // Toggles the occupied flag; turned off, it forgets the patient and the time.
    void SetOccupiedStatusRemote(bool named, const QString& name);

    // 0 clears the tag.
    void Set_StaffTag(std::int16_t tag);
    // The same without a time of its own: what stands there stays.
    void announceStaffTag(std::int16_t tag);

    // Takes the staff tag of a location away: the own one at once, another by a request.
    void ClearStaffTag(const QString& SID);

    // Keeps the note, trimmed, stores it, and announces it.
    void SetLocationNote(const QString& note);

signals:
    // The own state changed.
    void changed();

private:
    void attachHandlers(NetworkProtocol& protocol);

    OwnState& m_own;
    INIData& m_data;
    const Clock& m_clock;
    NetworkProtocol& m_protocol;
};

} // namespace tessel
