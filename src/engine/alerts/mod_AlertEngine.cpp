#include "engine/alerts/mod_AlertEngine.h"

#include "engine/alerts/mod_AlertBar.h"
#include "engine/alerts/mod_NotificationHistory.h"
#include "engine/alerts/mod_Popups.h"
#include "engine/alerts/mod_Tones.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_Settings.h"
#include "engine/network/mod_FitText.h"
#include "engine/network/mod_Network_MC.h"
#include "engine/network/mod_Network_Protocol.h"
#include "engine/ports/cPopupDisplay.h"
#include "engine/ports/cWindows.h"

#include <algorithm>

namespace tessel {

// What the kinds of alerts differ in.
struct AlertEngine::Kind {
    NoticeKind kind;
    PopupTheme theme;
    const char* caption;
    const char* tone;
    HistoryCode code;
    const char* word; // nullptr: the alert's title
    bool popup;
    bool history;
};

namespace {

constexpr char kDoorBellEveryone[] = "DoorBell Everyone";
// One step of the shake; so many fill the time that a glance takes.
constexpr int kShakeStepMs = 10;
constexpr int kMostShakes = 500;
constexpr int kFarthestShake = 7; // pixels

Code codeToOne(QuickAlert alert) {
    return alert == QuickAlert::PhoneCall ? Code::XAP : alert == QuickAlert::Urgent ? Code::XAUM : Code::XAD1;
}

Code codeToTag(QuickAlert alert) {
    return alert == QuickAlert::PhoneCall ? Code::XAPT
           : alert == QuickAlert::Urgent  ? Code::XAUMT
                                          : Code::XAD1T;
}

} // namespace

AlertEngine::AlertEngine(const Settings& settings, Clock& clock, NetworkProtocol& protocol,
                         NetworkMC& network, Popups& popups, AlertBar& bar, Tones& tones,
                         NotificationHistory& history, Windows& windows, PopupDisplay& display)
    : tmrShake(clock, "tmrShake", kShakeStepMs, Timer::Kind::Repeating, [this] { shakeOnce(); }),
      m_settings(settings), m_clock(clock), m_protocol(protocol), m_network(network), m_popups(popups),
      m_bar(bar), m_tones(tones), m_history(history), m_windows(windows), m_display(display) {
    protocol.attach(Code::XAD0, [this](const cPacket& packet) {
        PlayDoorBell_Global(QLatin1String(kDoorBellEveryone), packet.text(Field::Location),
                            packet.text(Field::SID), packet.bodyText());
    });
    const auto attach = [&protocol,
                         this](std::initializer_list<Code> codes,
                               void (AlertEngine::*receive)(const QString&, const QString&, const QString&)) {
        for (const Code code : codes) {
            protocol.attach(code, [this, receive](const cPacket& packet) {
                (this->*receive)(packet.text(Field::Location), packet.bodyValue(1), packet.text(Field::SID));
            });
        }
    };
    attach({Code::XAD1, Code::XAD1T}, &AlertEngine::PlayDoorBell);
    attach({Code::XAP, Code::XAPT}, &AlertEngine::PlayPhoneCall);
    attach({Code::XAUM, Code::XAUMT}, &AlertEngine::PlayUrgent);
}

void AlertEngine::play(const Kind& kind, const QString& title, const QString& label,
                       const QString& senderName, const QString& senderSid, const QString& text) {
    const QString time = m_clock.timeText();
    // First: whatever happens next, what was shown is in the history.
    if (kind.history) {
        const QString word = kind.word != nullptr ? QString::fromLatin1(kind.word) : title;
        const bool named = kind.kind == NoticeKind::DoorBell;
        m_history.AddItem(
            {kind.code,
             kind.code == HistoryCode::Urgent ? word + QLatin1String(" (") + senderName + u')' : word,
             named ? senderName : QString(), text, time, m_clock.dateText(), senderSid});
    }
    if (kind.popup) {
        m_popups.ShowNotifyPopupAlert({kind.theme, label,
                                       kind.code == HistoryCode::DoorBellEveryone ? text : text.trimmed(),
                                       time, senderSid, QLatin1String(kind.caption), kind.kind, senderName});
    }
    m_tones.PlayTone(QLatin1String(kind.tone));
    if (m_settings.Settings_DBB()) {
        BuzzFunc();
    }
    m_bar.CreateMessagebarAlert(title + u':', text, senderName, static_cast<int>(kind.kind));
}

void AlertEngine::PlayDoorBell(const QString& senderName, const QString& text, const QString& senderSid) {
    play({NoticeKind::DoorBell, PopupTheme::Blue, "Tessel DoorBell", "DoorbellOne", HistoryCode::DoorBell,
          "DoorBell", m_settings.Settings_DNP(), m_settings.Recents_DB()},
         QStringLiteral("DoorBell"), QStringLiteral("DoorBell"), senderName, senderSid, text);
}

void AlertEngine::PlayDoorBell_Global(const QString& title, const QString& senderName,
                                      const QString& senderSid, const QString& text) {
    play({NoticeKind::DoorBell, PopupTheme::Blue, "Tessel DoorBell", "DoorbellAll",
          HistoryCode::DoorBellEveryone, nullptr, m_settings.Settings_DNP(), m_settings.Recents_DBG()},
         title, title, senderName, senderSid, text);
}

void AlertEngine::PlayPhoneCall(const QString& senderName, const QString& text, const QString& senderSid) {
    play({NoticeKind::PhoneCall, PopupTheme::Blue, "Tessel Phone Call", "Phone", HistoryCode::PhoneCall,
          "PhoneCall", m_settings.Settings_PNP(), m_settings.Recents_PC()},
         QStringLiteral("Phone Call"), QStringLiteral("Phone Call"), senderName, senderSid, text);
}

void AlertEngine::PlayUrgent(const QString& senderName, const QString& text, const QString& senderSid) {
    play({NoticeKind::Urgent, PopupTheme::Urgent, "Tessel Urgent", "Urgent", HistoryCode::Urgent, "Urgent",
          m_settings.Settings_UNP(), m_settings.Recents_PC()},
         QStringLiteral("Urgent"), senderName, senderName, senderSid, text);
}

void AlertEngine::sendDoorBellToAll(const QString& text) {
    if (!m_network.CanSend()) {
        return;
    }
    m_protocol.send(Code::XAD0, FitText(text));
    m_display.Set_TrayPopup(kProductName, QStringLiteral("Doorbell Sent"));
}

void AlertEngine::sendToOne(QuickAlert alert, const QString& SID, const QString& text) {
    if (!SID.isEmpty()) {
        m_protocol.send(codeToOne(alert), QString(SID + ValueMark + FitText(text)));
    }
}

void AlertEngine::sendToTag(QuickAlert alert, const QString& SID, int tag, const QString& text) {
    if (!SID.isEmpty()) {
        m_protocol.send(codeToTag(alert), QString(QString::number(tag) + ValueMark + FitText(text)));
    }
}

QString AlertEngine::withoutPrefix(const QString& text, bool* stripped) const {
    const QString& prefix = m_settings.QuickMenu_AlertGroupCommand();
    const bool found = !prefix.isEmpty() && text.startsWith(prefix, Qt::CaseInsensitive);
    if (stripped != nullptr) {
        *stripped = found;
    }
    return found ? text.sliced(prefix.size()) : text;
}

void AlertEngine::SendQuickAlert(QuickAlert command, const AlertTarget& target, const QString& text) {
    if (!m_network.CanSend()) {
        return;
    }
    bool toGroup = false;
    const QString rest = withoutPrefix(text, &toGroup);
    switch (command) {
    case QuickAlert::Message:
        emit quickMessage(target, rest.left(kLongestQuickMessage), toGroup);
        break;
    case QuickAlert::DoorBell:
    case QuickAlert::PhoneCall:
    case QuickAlert::Urgent:
        if (toGroup) {
            sendToTag(command, target.SID, target.groupTag, rest.left(kLongestQuickAlert));
        } else {
            sendToOne(command, target.SID, rest.left(kLongestQuickAlert));
        }
        break;
    default:
        return;
    }
    m_tones.PlaySentTone();
}

bool AlertEngine::SendDoorBell(const QString& text) {
    if (!m_network.CanSend()) {
        return false;
    }
    sendDoorBellToAll(withoutPrefix(text).left(kLongestDoorBell));
    m_tones.PlaySentTone();
    return true;
}

bool AlertEngine::SendDoorBell_Group(const QString& members, const QString& text) {
    if (!m_network.CanSend()) {
        return false;
    }
    const QString rest = withoutPrefix(text).left(kLongestDoorBell);
    for (const QString& member : members.split(ListMark)) {
        sendToOne(QuickAlert::DoorBell, ListItemSID(member).toString(), rest);
    }
    m_tones.PlaySentTone();
    return true;
}

void AlertEngine::BuzzFunc() {
    m_shakesLeft = std::clamp(m_settings.Settings_DBBL(), -1, kMostShakes) + 1;
    tmrShake.setEnabled(m_shakesLeft > 0);
}

void AlertEngine::shakeOnce() {
    std::uniform_int_distribution<int> offset(-kFarthestShake, kFarthestShake);
    if (m_shakesLeft-- > 0 && m_windows.shakeMain(offset(m_random), offset(m_random))) {
        return;
    }
    tmrShake.setEnabled(false);
    m_windows.shakeMain(0, 0);
}

} // namespace tessel
