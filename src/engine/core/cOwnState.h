// What this station is and does at the moment. All of it but the bookkeeping at the end travels in
// every packet.
#pragma once

#include "engine/core/mod_Definitions.h"

#include <QString>

#include <cstdint>

namespace tessel {

struct OwnState {
    QString SID;      // 12 characters, or whatever stands in user.cfg; empty when it could not be stored
    QString location; // the name shown everywhere
    QString host;
    QString note;
    std::int32_t TAG = kNoTag;

    QString status; // empty: none
    QString statusTime;
    QString statusTone;
    bool occupied = false;
    QString patientName;
    QString occupiedTime;
    std::int16_t staffTag = 0; // 0: none, else 30 to 39
    QString staffTagTime;
    bool doNotDisturb = false;

    QString ownIPAddress; // empty: none chosen
    QString windowsUserName;
    QString startDate;
    QString startTime;
    bool online = false;
    bool leaving = false; // the goodbye is on its way, and nothing may follow it
    // Whether what is sent now can reach anybody. Whatever sends asks this, and nothing else.
    bool canSend() const { return online && !leaving; }
    bool exiting = false; // never cleared again
    bool inboxDirty = false;
    bool remoteSession = false;
};

} // namespace tessel
