// What the endpoint table tells those who show it.
#pragma once

#include "engine/network/cPacket.h"

#include <QString>
#include <QStringList>

namespace tessel {

// A location came in.
struct EndpointAdded {
    QString location;
    QString SID;
    QString block; // the presence block as it came
    Presence presence;
    QString note;
    std::int16_t tag = 0;
    QString marker;
};

// A location's status, occupied flag or do-not-disturb changed.
struct PresenceChanged {
    QString location;
    QString SID;
    QString block;
    Presence presence;
    QString note;
};

struct StaffTagChanged {
    QString location;
    QString SID;
    std::int16_t tag = 0;
    QString time;
};

struct NoteChanged {
    QString location;
    QString SID;
    QString note;
};

// A keep-alive of a location with a status.
struct StatusTimeRefreshed {
    QString SID;
    QString status;
    QString statusTime;
};

// Kinds of entries of the notification history, by their codes.
enum class HistoryCode {
    DoorBell = 0,
    PhoneCall = 1,
    Status = 2,
    StatusCleared = 3,
    Occupied = 4,
    Urgent = 5,
    StatusUpdated = 6,
    StaffTagSet = 7,
    StaffTagCleared = 8,
    Open = 9,
    DoorBellEveryone = 10
};

struct HistoryEntry {
    HistoryCode code;
    QString word;
    QString location;
    QString text;
    QString time;
    QString date;
    QString SID;
};

} // namespace tessel
