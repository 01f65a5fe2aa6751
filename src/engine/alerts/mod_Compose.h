// Messages on their way out: to whom, in which packet, and what the history keeps of them.
#pragma once

#include "engine/alerts/mod_NotificationHistory.h"
#include "engine/alerts/mod_Recipients.h"

#include <QString>
#include <QStringList>

namespace tessel {

class Endpoints;
class Identity;
class NetworkProtocol;
class Tones;
enum class Code : std::uint8_t;
struct AlertTarget;
struct OwnState;

enum class SendResult {
    Sent,
    Offline,
    TooShort, // fewer than 2 characters without the blanks around them
    NoRecipient,
    TooLong // for a packet, even with a single recipient
};

// What the compose window holds.
struct MessageDraft {
    bool everyone = false;
    QString recipients;
    int recipientCount = 0; // 0 for a group, which thus counts as several
    QString text;
};

// How a list of recipients names everyone.
inline const QString kEveryone = QStringLiteral(":");

// A message that is made up and needs only to be sent.
struct OutgoingMessage {
    int type = 0; // 0 a message, 1 a reply
    MessageLog log = MessageLog::SentToOne;
    QString recipients{};
    QString body{};
    bool everyone = false;     // goes to everyone, whatever the recipients
    bool everyoneMark = false; // of its entry in the history
    bool several = false;      // the recipients are more than one
};

// A text as it can travel inside a message: what would cut its packet or shift its values gets a blank
// or a character that looks alike. Everything else stays, a `ListMark` too.
QString FitMessage(const QString& text);

class Compose {
public:
    static constexpr int kLongestMessage = 5100;
    static constexpr int kShortestMessage = 2;

    Compose(const OwnState& own, const Settings& settings, const Clock& clock, NetworkProtocol& protocol,
            const Endpoints& endpoints, Identity& identity, NotificationHistory& history, Tones& tones);

    // The payload of a new message. Draws its id and enters it in the history; sends nothing. `several`:
    // `recipients` are more than one location.
    QString BuildMessage(int type, MessageLog log, const QString& recipients, const QString& body,
                         bool everyone, bool several);
    // Both do nothing while offline.
    void SendMessage(const QString& payload, const QString& third, bool everyone);
    void SendMessageToTag(const QString& payload, const QString& third, int tag);

    // Builds and sends in as many packets as the recipients need.
    SendResult send(const OutgoingMessage& message);

    // The quick menu of a row. `group`: to all locations of the row's colour tag.
    SendResult CreateMessage(const AlertTarget& target, const QString& text, bool group);
    // The compose window. Plays the "Sent" tone when it was sent.
    SendResult CreateMessage(const MessageDraft& draft);

    // Names of those recipients who are off the network now, without this location.
    QStringList VerifyOnlineList(const QString& recipients) const;

    // How many characters of a body fit into a message to these recipients.
    int room(const QString& recipients) const;

private:
    QString payload(int type, const QString& recipients, const QString& id, const QString& body) const;
    QStringList packed(const QString& recipients, int room) const;

    const OwnState& m_own;
    const Settings& m_settings;
    const Clock& m_clock;
    NetworkProtocol& m_protocol;
    const Endpoints& m_endpoints;
    Identity& m_identity;
    NotificationHistory& m_history;
    Tones& m_tones;
};

} // namespace tessel
