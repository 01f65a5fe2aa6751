#include "engine/alerts/mod_Reply.h"

#include "engine/alerts/mod_Inbox.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/network/mod_FitText.h"
#include "engine/presence/mod_LocationViews.h"
#include "records/mod_PlainText.h"

namespace tessel {

Reply::Reply(const OwnState& own, const LocationViews& views, Compose& compose, Inbox& inbox)
    : m_own(own), m_views(views), m_compose(compose), m_inbox(inbox) {}

void Reply::LoadMessage(const ReceivedMessage& message, bool fromHistory) {
    m_message = message;
    m_fromHistory = fromHistory;
    m_replyToEveryone = fromHistory && message.everyone;
    emit loaded();
}

QString Reply::heading() {
    return QLatin1String("From: ") + withoutControls(m_message.location) + QLatin1String(" @ ") +
           m_message.time + QLatin1String(" on ") + m_stamp.LongDate(m_message.date);
}

QString Reply::original() const {
    return MessageText(m_message.text);
}

bool Reply::canReply() const {
    return m_replyToEveryone || m_views.Active_FindSID(m_message.SID) >= 0;
}

QString Reply::acknowledgement() const {
    constexpr int kLongestAcknowledged = 150;
    return QLatin1String("Acknowledged - ") + original().left(kLongestAcknowledged);
}

SendResult Reply::CreateMessage(const QString& text) {
    if (!m_own.canSend()) {
        return SendResult::Offline;
    }
    if (text.trimmed().size() < Compose::kShortestMessage) {
        return SendResult::TooShort;
    }
    const QString recipients =
        m_replyToEveryone ? kEveryone : ListItem(m_message.location, m_message.SID) + ListMark;
    const QString answer = FitMessage(text) + ListMark;
    const int room = m_compose.room(recipients) - static_cast<int>(answer.size());
    if (room < 0) {
        return SendResult::TooLong;
    }
    const QString quoted = FitMessage(u'(' + m_message.time + QLatin1String(") ") + m_message.location +
                                      QLatin1String(" : ") + original());
    OutgoingMessage outgoing{.recipients = recipients, .body = answer + quoted.left(room)};
    if (m_replyToEveryone) {
        outgoing.everyone = outgoing.everyoneMark = true;
        outgoing.log = MessageLog::SentToSeveral;
    } else {
        outgoing.type = 1;
        outgoing.log = MessageLog::ReplySent;
        outgoing.everyoneMark = m_message.everyone;
    }
    const SendResult result = m_compose.send(outgoing);
    if (result == SendResult::Sent) {
        m_inbox.Delete_Message_ID(m_message.MessageID);
        m_drafts.remove(draftKey());
    }
    return result;
}

void Reply::setDraft(const QString& text) {
    if (text.isEmpty()) {
        m_drafts.remove(draftKey());
    } else if (m_drafts.size() < kMostDrafts || m_drafts.contains(draftKey())) {
        m_drafts[draftKey()] = text;
    }
}

} // namespace tessel
