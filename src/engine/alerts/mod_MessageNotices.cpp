#include "engine/alerts/mod_MessageNotices.h"

#include "engine/alerts/mod_Inbox.h"
#include "engine/alerts/mod_Messages.h"
#include "engine/alerts/mod_NotificationHistory.h"
#include "engine/alerts/mod_Popups.h"
#include "engine/alerts/mod_Tones.h"
#include "engine/core/mod_Settings.h"

namespace tessel {

void MessageNotices::messageArrived(const ReceivedMessage& message) {
    m_inbox.Add_Message(message);
    if (m_settings.Recents_MSG()) {
        m_history.AddMessage({message.kind == u"1" ? 1 : 0, MessageLog::Received, message.everyone,
                              message.MessageID, message.location, message.SID, message.text, message.time,
                              message.date});
    }
    if (m_settings.Settings_MNP()) {
        m_popups.ShowMessagePopup(message.location, message.text, message.time, message.MessageID);
    }
    if (m_settings.Settings_MNT()) {
        m_tones.PlayTone(message.everyone ? QStringLiteral("AllMsg") : QStringLiteral("SingleMsg"));
    }
}

} // namespace tessel
