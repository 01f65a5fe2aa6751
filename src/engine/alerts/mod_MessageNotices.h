// What becomes of a message that arrived: inbox, history, popup and tone.
#pragma once

namespace tessel {

class Inbox;
class NotificationHistory;
class Popups;
class Settings;
class Tones;
struct ReceivedMessage;

class MessageNotices {
public:
    MessageNotices(const Settings& settings, Inbox& inbox, NotificationHistory& history, Popups& popups,
                   Tones& tones)
        : m_settings(settings), m_inbox(inbox), m_history(history), m_popups(popups), m_tones(tones) {}

    // The inbox has it whatever is switched off.
    void messageArrived(const ReceivedMessage& message);

private:
    const Settings& m_settings;
    Inbox& m_inbox;
    NotificationHistory& m_history;
    Popups& m_popups;
    Tones& m_tones;
};

} // namespace tessel
