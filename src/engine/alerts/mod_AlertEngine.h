// Doorbells, phone calls and urgent alerts, sent and received.
#pragma once

#include "engine/ports/cClock.h"

#include <QObject>
#include <QString>

#include <random>

namespace tessel {

class AlertBar;
class NetworkMC;
class NetworkProtocol;
class NotificationHistory;
class PopupDisplay;
class Popups;
class Settings;
class Tones;
class Windows;
enum class Code : std::uint8_t;
enum class HistoryCode;
enum class NoticeKind;

// Commands of the quick menu of a location's row.
enum class QuickAlert { Message = 402, DoorBell = 404, PhoneCall = 405, Urgent = 406 };

// The row that a quick alert starts from.
struct AlertTarget {
    QString SID;
    int groupTag = 0; // to which a text with the group's prefix goes
    QString name{};
};

class AlertEngine : public QObject {
    Q_OBJECT
public:
    static constexpr int kLongestQuickAlert = 30;
    static constexpr int kLongestQuickMessage = 5100;
    static constexpr int kLongestDoorBell = 25;

    AlertEngine(const Settings& settings, Clock& clock, NetworkProtocol& protocol, NetworkMC& network,
                Popups& popups, AlertBar& bar, Tones& tones, NotificationHistory& history, Windows& windows,
                PopupDisplay& display);

    // An alert for this location arrived. Whatever is switched off, the alert bar shows.
    void PlayDoorBell(const QString& senderName, const QString& text, const QString& senderSid);
    void PlayDoorBell_Global(const QString& title, const QString& senderName, const QString& senderSid,
                             const QString& text);
    void PlayPhoneCall(const QString& senderName, const QString& text, const QString& senderSid);
    void PlayUrgent(const QString& senderName, const QString& text, const QString& senderSid);

    // The builders. Nothing is sent to an empty target, and nothing while offline: the footer says so.
    void sendDoorBellToAll(const QString& text);
    void sendToOne(QuickAlert alert, const QString& SID, const QString& text);
    void sendToTag(QuickAlert alert, const QString& SID, int tag, const QString& text);

    // The quick menu of a row. A text that begins with the group's prefix goes, without it, to all
    // locations of the row's group.
    void SendQuickAlert(QuickAlert command, const AlertTarget& target, const QString& text);
    // The doorbell window: to everyone, or to the members of a group, each a name, ":" and a SID,
    // joined by `ListMark`. False: offline, nothing was sent.
    bool SendDoorBell(const QString& text);
    bool SendDoorBell_Group(const QString& members, const QString& text);

    // Shakes the main window for a moment and puts it back; a minimised one stays as it is. Another
    // alert meanwhile begins the shake anew.
    void BuzzFunc();

    Timer tmrShake;

signals:
    // A quick message is to be composed and sent.
    void quickMessage(const tessel::AlertTarget& target, const QString& text, bool toGroup);

private:
    struct Kind;
    void play(const Kind& kind, const QString& title, const QString& label, const QString& senderName,
              const QString& senderSid, const QString& text);
    void shakeOnce();
    QString withoutPrefix(const QString& text, bool* stripped = nullptr) const;

    const Settings& m_settings;
    Clock& m_clock;
    NetworkProtocol& m_protocol;
    NetworkMC& m_network;
    Popups& m_popups;
    AlertBar& m_bar;
    Tones& m_tones;
    NotificationHistory& m_history;
    Windows& m_windows;
    PopupDisplay& m_display;
    std::minstd_rand m_random;
    int m_shakesLeft = 0;
};

} // namespace tessel
