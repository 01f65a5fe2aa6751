#include "engine/operations/mod_LocationProfile.h"

#include "engine/core/cOwnState.h"
#include "engine/core/cRestrictions.h"
#include "engine/core/mod_INIData.h"
#include "engine/core/mod_Limits.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_FitText.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cSession.h"
#include "engine/ports/cSystemFacts.h"

namespace tessel {

namespace {
const QString kUserSection = QStringLiteral("User");
const QString kNameKey = QStringLiteral("LOCATION");
} // namespace

QString LocationProfile::storedName() const {
    return m_targets.data.ReadSetting(kUserFile, kUserSection, kNameKey, m_targets.own.windowsUserName);
}

void LocationProfile::storeName(const QString& name) {
    m_targets.data.WriteSetting(kUserFile, kUserSection, kNameKey, name);
}

void LocationProfile::LoadLocationName() {
    const bool computersName = Restrictions::restricted(m_targets.admin.UserName);
    m_targets.own.location = FitOwn(computersName ? m_targets.facts.hostName : storedName());
}

void LocationProfile::SaveWelcome(const WelcomeChoices& choices) {
    if (choices.tag != m_targets.own.TAG) {
        m_targets.settings.User_TAG.set(choices.tag);
        m_targets.own.TAG = choices.tag;
    }
    m_targets.settings.Settings_DBNAV.set(choices.doorBell);
    const QString name = FitText(choices.location).trimmed();
    storeName(name.isEmpty() ? m_targets.own.windowsUserName : name);
    m_targets.settings.User_FirstRun.set(false);
    m_targets.session.SetAutoStart(true);
}

void LocationProfile::SaveUserName(const QString& name) {
    const QString text = FitText(name).trimmed().left(kLongestLocation);
    if (text.isEmpty() || Restrictions::restricted(m_targets.admin.UserChange)) {
        return;
    }
    storeName(text);
    LoadLocationName();
    m_targets.network.AnnounceAnew();
}

void LocationProfile::setColorTag(int tag) {
    const bool known = (tag >= 1 && tag <= static_cast<int>(kTagColors.size())) || tag == kNoTag;
    if (!known || tag == m_targets.own.TAG) {
        return;
    }
    m_targets.settings.User_TAG.set(tag);
    m_targets.own.TAG = tag;
    m_targets.network.AnnounceAnew();
}

void LocationProfile::ClearNote() {
    m_targets.own.note.clear();
    m_targets.data.WriteSetting(kUserFile, QStringLiteral("Note"), QStringLiteral("ACTIVE"), {});
    m_targets.protocol.send(Code::XAS);
}

} // namespace tessel
