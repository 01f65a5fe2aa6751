// The message that is open for reading, and the answer to it.
#pragma once

#include "engine/alerts/mod_Compose.h"
#include "engine/alerts/mod_Messages.h"

#include <QHash>
#include <QObject>
#include <QString>

namespace tessel {

class Inbox;
class LocationViews;

class Reply : public QObject {
    Q_OBJECT
public:
    Reply(const OwnState& own, const LocationViews& views, Compose& compose, Inbox& inbox);

    // Opens a message in the place of the one that was open. `fromHistory`: it is no row of the inbox
    // that an answer would remove.
    void LoadMessage(const ReceivedMessage& message, bool fromHistory);

    const ReceivedMessage& message() const { return m_message; }
    // Sender, time and long date.
    QString heading();
    // The message and what it answers, as it is shown and as an answer quotes it.
    QString original() const;
    // Whether an answer could arrive: the sender is in the table, or the answer goes to everyone.
    bool canReply() const;
    bool offersAcknowledge() const { return !m_fromHistory; }
    bool ReplyToEveryone() const { return m_replyToEveryone; }

    // Sends an answer and takes the message out of the inbox. Of a quoted text that is too long for a
    // packet the end is left out.
    SendResult CreateMessage(const QString& text);
    // The text of an acknowledgement, which is an ordinary answer.
    QString acknowledgement() const;

    // What was written and not sent: of each message until it is answered, or the program ends, since
    // another message may be opened over it at any moment.
    QString draft() const { return m_drafts.value(draftKey()); }
    void setDraft(const QString& text);

signals:
    void loaded();

private:
    const OwnState& m_own;
    const LocationViews& m_views;
    Compose& m_compose;
    Inbox& m_inbox;
    cStamp m_stamp;
    ReceivedMessage m_message;
    bool m_fromHistory = false;
    bool m_replyToEveryone = false;

    static constexpr int kMostDrafts = 50;
    QString draftKey() const { return m_message.SID + u' ' + m_message.MessageID; }
    QHash<QString, QString> m_drafts;
};

} // namespace tessel
