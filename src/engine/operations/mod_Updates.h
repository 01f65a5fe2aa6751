// The helper that updates the program, which is a program of its own.
#pragma once

#include "engine/ports/cClock.h"

namespace tessel {

class Admin;
class Folders;
class Session;
struct OwnState;

// How the helper is started.
enum class UpdateRun { Silent, CheckNow, Configure };

class Updates {
public:
    Updates(const OwnState& own, const Folders& folders, const Admin& admin, Clock& clock, Session& session);

    // Whether the helper is there, and the user may start it.
    bool allowed() const;
    // Nothing happens where the helper is not there.
    void start(UpdateRun run);

    // Looks for updates once, where the administrator lets it.
    Timer tmrUpdates;

private:
    void checkSilently();

    const OwnState& m_own;
    const Folders& m_folders;
    const Admin& m_admin;
    Session& m_session;
};

} // namespace tessel
