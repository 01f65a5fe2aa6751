// The three popups: whether one shows, what it says, how long it stays and where.
#pragma once

#include "engine/ports/cClock.h"
#include "engine/ports/cPopup.h"

#include <QObject>
#include <QString>

#include <array>

namespace tessel {

class INIData;
class PopupDisplay;
class Settings;
struct OwnState;

// What a notice is about: it picks the icon and how long a popup stays.
enum class NoticeKind { DoorBell = 0, PhoneCall = 1, Urgent = 2, Status = 99 };

struct Notice {
    PopupTheme theme = PopupTheme::Blue;
    QString label;
    QString text;
    QString time;
    QString SID;
    QString caption;
    NoticeKind kind = NoticeKind::Status;
    QString name;
};

class Popups : public QObject {
    Q_OBJECT
public:
    static constexpr std::int32_t kLargestFont = 24; // points, of a message

    Popups(const OwnState& own, Settings& settings, INIData& data, Clock& clock, PopupDisplay& display);

    // Under do not disturb none of these does anything at all.
    void ShowNotifyPopup(const Notice& notice);
    void ShowNotifyPopupAlert(const Notice& notice);
    void ShowMessagePopup(const QString& name, const QString& body, const QString& time, const QString& id);

    void close(PopupId popup);
    // Closes the status popup if it shows this location.
    void closeStatusOf(const QString& SID);
    // Back to the default place; `forget` also deletes the stored places.
    void ResetPopupAlertPositions(bool forget);

    bool isUp(PopupId popup) const { return state(popup).up; }
    // The message id that a popup carries; empty for none.
    const QString& tag(PopupId popup) const { return state(popup).tag; }

    // The user's acts.
    void clicked(PopupId popup, PopupItem item);
    void moved(PopupId popup, QPoint place);

    Timer tmrStatusPopup;
    Timer tmrAlertPopup;
    Timer tmrMessagePopup;

signals:
    void turnOffAlertBar();
    // The user wants to read the message with this id.
    void openMessage(const QString& id);
    void openMessageOptions();

private:
    struct State {
        bool up = false;
        QString SID;
        QString tag;
    };

    const State& state(PopupId popup) const { return m_states[static_cast<std::size_t>(popup)]; }
    State& state(PopupId popup) { return m_states[static_cast<std::size_t>(popup)]; }
    Timer& timer(PopupId popup);
    void showNotice(PopupId popup, const Notice& notice);
    void show(PopupId popup, PopupContent content, qint64 stayMs);
    std::optional<QPoint> storedPlace(PopupId popup) const;

    const OwnState& m_own;
    Settings& m_settings;
    INIData& m_data;
    PopupDisplay& m_display;
    std::array<State, kPopupCount> m_states;
};

} // namespace tessel
