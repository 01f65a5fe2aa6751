#include "engine/alerts/mod_Popups.h"

#include "engine/alerts/mod_MessageCard.h"
#include "engine/core/cOwnState.h"
#include "engine/core/mod_Definitions.h"
#include "engine/core/mod_INIData.h"
#include "engine/core/mod_Settings.h"
#include "engine/ports/cPopupDisplay.h"

#include <QStringList>

#include <algorithm>

namespace tessel {

namespace {

constexpr qint64 kSecondMs = 1000;
constexpr qint64 kMinuteMs = 60000;
constexpr qint64 kLongestStayMs = qint64{7} * 24 * 60 * kMinuteMs;
constexpr int kOpaque = 255;
constexpr int kLongestNotice = 1000;
constexpr int kLongestMessage = 240;

// Popups have no way to show the character; a bar does.
QString withoutAmpersand(QString text) {
    return text.replace(u'&', QLatin1String("and"));
}

int iconOf(NoticeKind kind) {
    switch (kind) {
    case NoticeKind::DoorBell:
        return kDoorBellIcon;
    case NoticeKind::PhoneCall:
        return kPhoneCallIcon;
    case NoticeKind::Status:
        return kStatusIcon;
    case NoticeKind::Urgent:
        break;
    }
    return kUrgentIcon;
}

Setting<QString>& placeSetting(Settings& settings, PopupId popup) {
    switch (popup) {
    case PopupId::ctrlPopupStatus:
        return settings.Settings_SNPM0;
    case PopupId::ctrlPopupAlert:
        return settings.Settings_SNPM1;
    case PopupId::ctrlPopupMessage:
        break;
    }
    return settings.Settings_SNPM2;
}

} // namespace

Popups::Popups(const OwnState& own, Settings& settings, INIData& data, Clock& clock, PopupDisplay& display)
    : tmrStatusPopup(clock, "tmrStatusPopup", 0, Timer::Kind::OneShot,
                     [this] { close(PopupId::ctrlPopupStatus); }),
      tmrAlertPopup(clock, "tmrAlertPopup", 0, Timer::Kind::OneShot,
                    [this] { close(PopupId::ctrlPopupAlert); }),
      tmrMessagePopup(clock, "tmrMessagePopup", 0, Timer::Kind::OneShot,
                      [this] { close(PopupId::ctrlPopupMessage); }),
      m_own(own), m_settings(settings), m_data(data), m_display(display) {}

Timer& Popups::timer(PopupId popup) {
    return popup == PopupId::ctrlPopupStatus  ? tmrStatusPopup
           : popup == PopupId::ctrlPopupAlert ? tmrAlertPopup
                                              : tmrMessagePopup;
}

void Popups::ShowNotifyPopup(const Notice& notice) {
    showNotice(PopupId::ctrlPopupStatus, notice);
}

void Popups::ShowNotifyPopupAlert(const Notice& notice) {
    showNotice(PopupId::ctrlPopupAlert, notice);
}

void Popups::showNotice(PopupId popup, const Notice& notice) {
    if (m_own.doNotDisturb) {
        return;
    }
    PopupContent content;
    content.theme = notice.theme;
    content.caption = notice.caption;
    content.icon = iconOf(notice.kind);
    content.label = withoutAmpersand(notice.label.left(kLongestNotice));
    content.text = withoutAmpersand(notice.text.left(kLongestNotice));
    content.time = notice.time;
    if (notice.name != notice.label) {
        content.sender = withoutAmpersand(notice.name.left(kLongestNotice));
    }
    const bool alert = notice.kind != NoticeKind::Status;
    show(popup, std::move(content),
         alert ? m_settings.Settings_ANPTM() * kMinuteMs : m_settings.Settings_SNPT() * kSecondMs);
    state(popup).SID = notice.SID;
}

void Popups::ShowMessagePopup(const QString& name, const QString& body, const QString& time,
                              const QString& id) {
    if (m_own.doNotDisturb) {
        return;
    }
    PopupContent content;
    content.theme = PopupTheme::Message;
    content.icon = kMessageIcon;
    content.label = QLatin1String("From: ") + withoutAmpersand(name);
    content.time = time;
    // A number from a file that was edited by hand must not cover the screen.
    content.fontSize = std::min(toNumber(m_settings.Settings_MNPFS()), kLargestFont);
    if (m_settings.Settings_MPP()) {
        content.text = QStringLiteral("Message Alert");
    } else {
        const QString first = body.section(ListMark, 0, 0);
        content.text = withoutAmpersand(first.left(kLongestMessage));
        if (first.size() > kLongestMessage) {
            content.text += QLatin1String("...");
        }
    }
    show(PopupId::ctrlPopupMessage, std::move(content), m_settings.Settings_MNPTM() * kMinuteMs);
    state(PopupId::ctrlPopupMessage).tag = id;
}

void Popups::show(PopupId popup, PopupContent content, qint64 stayMs) {
    close(popup);
    content.movable = m_settings.Settings_SNPM();
    content.opacity = std::clamp(m_settings.Settings_SNPTP(), 0, kOpaque) / static_cast<double>(kOpaque);
    content.place = storedPlace(popup);
    // An interval of nothing leaves the popup up until the user closes it: an alert is not to be lost.
    timer(popup).setInterval(static_cast<int>(std::clamp<qint64>(stayMs, 0, kLongestStayMs)));
    timer(popup).setEnabled(true);
    state(popup) = {true, {}, {}};
    m_display.show(popup, content);
}

std::optional<QPoint> Popups::storedPlace(PopupId popup) const {
    if (!m_settings.Settings_SNPM() || !m_settings.Settings_SNPMS()) {
        return std::nullopt;
    }
    const QStringList parts = placeSetting(m_settings, popup)().split(u',');
    if (parts.size() < 2) {
        return std::nullopt;
    }
    bool leftOk = false;
    bool topOk = false;
    const QPoint place(parts[0].trimmed().toInt(&leftOk), parts[1].trimmed().toInt(&topOk));
    return leftOk && topOk ? std::optional(place) : std::nullopt;
}

void Popups::close(PopupId popup) {
    timer(popup).setEnabled(false);
    if (!state(popup).up) {
        return;
    }
    state(popup) = {};
    m_display.close(popup);
}

void Popups::closeStatusOf(const QString& SID) {
    if (isUp(PopupId::ctrlPopupStatus) && state(PopupId::ctrlPopupStatus).SID == SID) {
        close(PopupId::ctrlPopupStatus);
    }
}

void Popups::ResetPopupAlertPositions(bool forget) {
    for (const PopupId popup :
         {PopupId::ctrlPopupStatus, PopupId::ctrlPopupAlert, PopupId::ctrlPopupMessage}) {
        close(popup);
        if (forget) {
            placeSetting(m_settings, popup).set({});
            const QString key = QStringLiteral("SNPM%1").arg(static_cast<int>(popup));
            m_data.DeleteSetting(kUserFile, QStringLiteral("Settings"), key);
        }
    }
}

void Popups::clicked(PopupId popup, PopupItem item) {
    const QString id = tag(popup);
    switch (item) {
    case PopupItem::Close:
        close(popup);
        break;
    case PopupItem::Text:
        close(popup);
        if (!id.isEmpty()) {
            emit openMessage(id);
        }
        break;
    case PopupItem::TurnOff:
        if (popup != PopupId::ctrlPopupMessage) {
            close(popup);
            emit turnOffAlertBar();
        }
        break;
    case PopupItem::Options:
        if (popup == PopupId::ctrlPopupMessage) {
            emit openMessageOptions();
        }
        break;
    }
}

void Popups::moved(PopupId popup, QPoint place) {
    if (m_settings.Settings_SNPM() && m_settings.Settings_SNPMS()) {
        placeSetting(m_settings, popup).set(QStringLiteral("%1,%2").arg(place.x()).arg(place.y()));
    }
}

} // namespace tessel
