#include "engine/operations/mod_Updates.h"

#include "engine/core/cOwnState.h"
#include "engine/core/mod_FileTools.h"
#include "engine/core/mod_Folders.h"
#include "engine/operations/mod_Admin.h"
#include "engine/ports/cSession.h"

namespace tessel {

namespace {
const QString kUpdateHelper = QStringLiteral("update.exe");
} // namespace

Updates::Updates(const OwnState& own, const Folders& folders, const Admin& admin, Clock& clock,
                 Session& session)
    : tmrUpdates(clock, "tmrUpdates", 30000, Timer::Kind::OneShot, [this] { checkSilently(); }), m_own(own),
      m_folders(folders), m_admin(admin), m_session(session) {}

bool Updates::allowed() const {
    return !Admin::restricted(m_admin.Updates) && FileExists(m_folders.program() + kUpdateHelper);
}

void Updates::start(UpdateRun run) {
    const QString tail = run == UpdateRun::Silent     ? QStringLiteral("/silent")
                         : run == UpdateRun::CheckNow ? QStringLiteral("/checknow")
                                                      : QStringLiteral("/configure");
    m_session.startProgram(m_folders.program() + kUpdateHelper, {tail});
}

void Updates::checkSilently() {
    if (!Admin::restricted(m_admin.Updates) && !m_own.remoteSession) {
        start(UpdateRun::Silent);
    }
}

} // namespace tessel
