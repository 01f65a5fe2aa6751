#include "engine/operations/mod_LocationProfile.h"

#include "engine/core/cOwnState.h"
#include "engine/core/cRestrictions.h"
#include "engine/core/mod_INIData.h"
#include "engine/core/mod_Limits.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_FitText.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/network/mod_Network_Protocol.h"

namespace tessel {

LocationProfile::LocationProfile(OwnState& own, INIData& data, Settings& settings, const Restrictions& admin,
                                 NetworkProtocol& protocol, NetworkMC& network)
    : m_own(own), m_data(data), m_settings(settings), m_admin(admin), m_protocol(protocol),
      m_network(network) {}

void LocationProfile::SaveUserName(const QString& name) {
    const QString text = FitText(name).trimmed().left(kLongestLocation);
    if (text.isEmpty() || Restrictions::restricted(m_admin.UserChange)) {
        return;
    }
    m_data.WriteSetting(kUserFile, QStringLiteral("User"), QStringLiteral("LOCATION"), text);
    emit nameStored();
    m_network.AnnounceAnew();
}

void LocationProfile::setColorTag(int tag) {
    const bool known = (tag >= 1 && tag <= static_cast<int>(kTagColors.size())) || tag == kNoTag;
    if (!known || tag == m_own.TAG) {
        return;
    }
    m_settings.User_TAG.set(tag);
    m_own.TAG = tag;
    m_network.AnnounceAnew();
}

void LocationProfile::ClearNote() {
    m_own.note.clear();
    m_data.WriteSetting(kUserFile, QStringLiteral("Note"), QStringLiteral("ACTIVE"), {});
    m_protocol.send(Code::XAS);
}

} // namespace tessel
