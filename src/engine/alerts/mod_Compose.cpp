#include "engine/alerts/mod_Compose.h"

#include "engine/alerts/mod_AlertEngine.h"
#include "engine/alerts/mod_Tones.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_Identity.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_Endpoints.h"
#include "engine/network/mod_FitText.h"
#include "engine/network/mod_Network_Protocol.h"

#include <algorithm>

namespace tessel {

namespace {
const QString kPacketEndText = QStringLiteral("<\u20ACP>");
const QString kPacketEndShown = QStringLiteral("\u2039 \u20ACP>");
const QString kValueMarkShown = QStringLiteral(". \u20AC .");
constexpr int kMessageIDSize = 12;
} // namespace

QString FitMessage(const QString& text) {
    QString fit = text;
    fit.replace(kPacketEndText, kPacketEndShown, Qt::CaseInsensitive);
    // Two marks may share a dot: the second one is there only after the first is gone.
    while (fit.contains(ValueMark)) {
        fit.replace(ValueMark, kValueMarkShown);
    }
    return fit;
}

Compose::Compose(const OwnState& own, const Settings& settings, const Clock& clock, NetworkProtocol& protocol,
                 const Endpoints& endpoints, Identity& identity, NotificationHistory& history, Tones& tones)
    : m_own(own), m_settings(settings), m_clock(clock), m_protocol(protocol), m_endpoints(endpoints),
      m_identity(identity), m_history(history), m_tones(tones) {}

QString Compose::payload(int type, const QString& recipients, const QString& id, const QString& body) const {
    return QStringList{QString::number(type), recipients, id, body}.join(ValueMark);
}

QString Compose::BuildMessage(int type, MessageLog log, const QString& recipients, const QString& body,
                              bool everyone, bool several) {
    const QString id = m_identity.MakeMessageID();
    if (m_settings.Recents_MSG()) {
        HistoryMessage entry{type, log, everyone, id, {}, {}, body, m_clock.timeText(), m_clock.dateText()};
        if (several) {
            entry.name = recipients;
        } else {
            const QStringView item = QStringView(recipients).split(ListMark).front();
            entry.name = ListItemName(item).toString();
            entry.SID = ListItemSID(item).toString();
        }
        m_history.AddMessage(entry);
    }
    return payload(type, recipients, id, body);
}

void Compose::SendMessage(const QString& payload, const QString& third, bool everyone) {
    m_protocol.SendPacket(everyone ? u"XATE" : u"XATM", payload, third);
}

void Compose::SendMessageToTag(const QString& payload, const QString& third, int tag) {
    m_protocol.SendPacket(u"XATG", QString(QString::number(tag) + ListMark + payload), third);
}

int Compose::room(const QString& recipients) const {
    const qsizetype around = payload(0, recipients, QString(kMessageIDSize, u'X'), {}).size();
    return m_protocol.bodyRoom(Code::XATM) - static_cast<int>(around);
}

// Recipients in as few lists as there are packets needed, each of at most `room` characters. Empty when
// one recipient alone is longer.
QStringList Compose::packed(const QString& recipients, int room) const {
    if (recipients.size() <= room) {
        return {recipients};
    }
    QStringList lists;
    for (const QString& item : recipients.split(ListMark, Qt::SkipEmptyParts)) {
        if (item.size() > room) {
            return {};
        }
        if (!lists.isEmpty() && lists.back().size() + ListMark.size() + item.size() <= room) {
            lists.back() += ListMark + item;
        } else {
            lists += item;
        }
    }
    return lists;
}

SendResult Compose::send(const OutgoingMessage& message) {
    if (!m_own.canSend()) {
        return SendResult::Offline;
    }
    const QStringList lists = packed(message.recipients, room({}) - static_cast<int>(message.body.size()));
    if (lists.isEmpty()) {
        return SendResult::TooLong;
    }
    const QString whole = BuildMessage(message.type, message.log, message.recipients, message.body,
                                       message.everyoneMark, message.several);
    if (lists.size() == 1) {
        SendMessage(whole, {}, message.everyone);
        return SendResult::Sent;
    }
    // Each packet has an id of its own: a location drops the second one of the same id, whether the
    // first was meant for it or not.
    for (const QString& list : lists) {
        SendMessage(payload(message.type, list, m_identity.MakeMessageID(), message.body), {},
                    message.everyone);
    }
    return SendResult::Sent;
}

SendResult Compose::CreateMessage(const AlertTarget& target, const QString& text, bool group) {
    const QString body = FitMessage(text);
    if (!group) {
        return send({.recipients = ListItem(target.name, target.SID) + ListMark, .body = body});
    }
    if (!m_own.canSend()) {
        return SendResult::Offline;
    }
    const QString payload =
        BuildMessage(0, MessageLog::SentToOne, QString::number(target.groupTag), body, false, false);
    SendMessageToTag(payload, {}, target.groupTag);
    return SendResult::Sent;
}

SendResult Compose::CreateMessage(const MessageDraft& draft) {
    if (!m_own.canSend()) {
        return SendResult::Offline;
    }
    if (draft.text.trimmed().size() < kShortestMessage) {
        return SendResult::TooShort;
    }
    if (!draft.everyone && draft.recipients.isEmpty()) {
        return SendResult::NoRecipient;
    }
    const bool one = !draft.everyone && draft.recipientCount == 1;
    const SendResult result = send({.log = one ? MessageLog::SentToOne : MessageLog::SentToSeveral,
                                    .recipients = draft.everyone ? kEveryone : draft.recipients,
                                    .body = FitMessage(draft.text),
                                    .everyone = draft.everyone,
                                    .everyoneMark = draft.everyone,
                                    .several = !draft.everyone && !one});
    if (result == SendResult::Sent) {
        m_tones.PlaySentTone();
    }
    return result;
}

QStringList Compose::VerifyOnlineList(const QString& recipients) const {
    QStringList offline;
    for (const Recipient& recipient : SplitRecipients(recipients)) {
        if (!recipient.name.isEmpty() && recipient.SID != m_own.SID &&
            !m_endpoints.Endpoint_VerifyOnline(recipient.SID)) {
            offline += recipient.name;
        }
    }
    return offline;
}

} // namespace tessel
