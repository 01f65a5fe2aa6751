// What the user says of this location itself: its name, colour and note.
#pragma once

#include "engine/core/mod_Definitions.h"

#include <QString>

namespace tessel {

class INIData;
class NetworkMC;
class NetworkProtocol;
class Session;
class Settings;
struct OwnState;
struct Restrictions;
struct SystemFacts;

// What the dialog of the first run asks.
struct WelcomeChoices {
    QString location;
    int tag = kNoTag; // 41: none chosen
    bool doorBell = false;
};

class LocationProfile {
public:
    // What it acts upon.
    struct Targets {
        OwnState& own;
        const SystemFacts& facts;
        INIData& data;
        Settings& settings;
        const Restrictions& admin;
        Session& session;
        NetworkProtocol& protocol;
        NetworkMC& network;
    };

    explicit LocationProfile(const Targets& targets) : m_targets(targets) {}

    // The name in user.cfg, or else the user's.
    QString storedName() const;
    // Takes the stored name, or the computer's where the administrator wants that.
    void LoadLocationName();
    // Takes the choices of the first run, and starts with the user's session from now on.
    void SaveWelcome(const WelcomeChoices& choices);

    // Stores the name and tells all locations, which takes a second in which events are handled. Nothing
    // happens for an empty name, or where the administrator keeps it.
    void SaveUserName(const QString& name);
    // Stores colour tag 1 to 20, or 41 for none, and tells all locations in the same way.
    void setColorTag(int tag);
    // Takes the own note away, and tells all locations.
    void ClearNote();

private:
    void storeName(const QString& name);

    Targets m_targets;
};

} // namespace tessel
