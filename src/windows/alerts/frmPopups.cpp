#include "windows/alerts/frmPopups.h"

#include "controls/look/ScreenPlacement.h"
#include "controls/look/Tokens.h"
#include "controls/popup/PopupControl.h"
#include "engine/alerts/mod_Popups.h"

#include <QGuiApplication>
#include <QRegularExpression>

namespace tessel {

namespace {

// "11:43:56 AM" and "Front Desk 2" as "11:43 AM \u00B7 Front Desk 2".
QString footOf(const PopupContent& content) {
    QString time = content.time;
    static const QRegularExpression seconds(QStringLiteral("^(\\d{1,2}:\\d{2}):\\d{2}"));
    time.replace(seconds, QStringLiteral("\\1"));
    QStringList parts{time, content.sender};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(" \u00B7 "));
}

// The plain pictures would drown in the colours of these popups; those of the bars stand on any back.
Image pictureOf(int number) {
    switch (static_cast<Image>(number)) {
    case Image::Doorbell:
        return Image::BarDoorbell;
    case Image::Phone:
        return Image::BarPhone;
    case Image::Urgent:
        return Image::BarUrgent;
    default:
        return static_cast<Image>(number);
    }
}

void SetBlueTheme(PopupLook& look, const PopupContent& content) {
    look.frameFrom = QColor(50, 50, 255);
    look.frameTo = QColor(255, 255, 255);
    look.bodyFrom = QColor(70, 70, 250);
    look.bodyTo = QColor(200, 200, 200);
    look.caption = content.caption;
    look.label = content.label;
    look.turnOffButton = true;
}

void SetUrgentTheme(PopupLook& look, const PopupContent& content) {
    SetBlueTheme(look, content);
    look.bodyFrom = QColor(250, 16, 85);
}

void SetMessageTheme(PopupLook& look, const PopupContent& content) {
    look.messageLayout = true;
    look.caption = content.label;
}

PopupLook lookOf(const PopupContent& content, const Images& images) {
    PopupLook look;
    switch (content.theme) {
    case PopupTheme::Blue:
        SetBlueTheme(look, content);
        break;
    case PopupTheme::Urgent:
        SetUrgentTheme(look, content);
        break;
    case PopupTheme::Message:
        SetMessageTheme(look, content);
        break;
    }
    look.text = content.text;
    look.time = footOf(content);
    look.pulse = content.theme == PopupTheme::Urgent;
    look.optionsButton = look.messageLayout;
    look.icon = images.image(pictureOf(content.icon), QGuiApplication::palette());
    look.framedIcon = pictureOf(content.icon) != static_cast<Image>(content.icon);
    look.fontSize = content.fontSize;
    look.movable = content.movable;
    // One that cannot be seen would still be in the way of the mouse.
    constexpr double kLeastOpacity = 0.2;
    look.opacity = std::max(kLeastOpacity, content.opacity);
    return look;
}

} // namespace

PopupWindows::PopupWindows(std::function<void(const QString&, const QString&)> note)
    : m_note(std::move(note)) {}

PopupWindows::~PopupWindows() = default;

PopupControl& PopupWindows::window(PopupId popup) {
    std::unique_ptr<PopupControl>& window = m_windows[static_cast<std::size_t>(popup)];
    if (!window) {
        window = std::make_unique<PopupControl>();
        Popups& engine = *m_engine;
        const auto click = [&engine, popup](PopupItem item) {
            return [&engine, popup, item] { engine.clicked(popup, item); };
        };
        QObject::connect(window.get(), &PopupControl::closeClicked, &engine, click(PopupItem::Close));
        QObject::connect(window.get(), &PopupControl::textClicked, &engine, click(PopupItem::Text));
        QObject::connect(window.get(), &PopupControl::turnOffClicked, &engine, click(PopupItem::TurnOff));
        QObject::connect(window.get(), &PopupControl::optionsClicked, &engine, click(PopupItem::Options));
        QObject::connect(window.get(), &PopupControl::moved, &engine,
                         [&engine, popup](QPoint place) { engine.moved(popup, place); });
    }
    return *window;
}

void PopupWindows::show(PopupId popup, const PopupContent& content) {
    PopupControl& shown = window(popup);
    PopupLook look = lookOf(content, m_images);
    look.shadow = m_effects.composites && m_effects.composites();
    look.motion = m_effects.animates && m_effects.animates();
    // A stored place may lie on a screen that is not there today.
    const QList<QRect> areas = freeScreenAreas();
    const QRect main = areas.isEmpty() ? QRect() : areas.first();
    const QSize size = shown.prepare(look, main);
    const QPoint wanted = content.place.value_or(freePlace(popup, size, main));
    shown.show(placedOnScreens(wanted, size, areas).topLeft());
}

QPoint PopupWindows::freePlace(PopupId popup, QSize size, const QRect& area) const {
    // An alert must not hide under a message that came after it: popups stand on each other's heads.
    QRect place(PopupControl::defaultPlace(size, area), size);
    // Moving off one may move it onto another, so each is looked at as often as there are popups.
    for (int turn = 0; turn < kPopupCount * kPopupCount; ++turn) {
        const int other = turn % kPopupCount;
        const auto& window = m_windows[static_cast<std::size_t>(other)];
        if (other == static_cast<int>(popup) || !window || !window->isVisible()) {
            continue;
        }
        const QRect there = window->box();
        if (there.adjusted(0, -look::kStackGap, 0, look::kStackGap).intersects(place)) {
            place.moveBottom(there.top() - look::kStackGap - 1);
        }
    }
    return place.topLeft();
}

void PopupWindows::close(PopupId popup) {
    if (const auto& shown = m_windows[static_cast<std::size_t>(popup)]; shown) {
        shown->hide();
    }
}

void PopupWindows::closeAll() {
    for (const auto& shown : m_windows) {
        if (shown) {
            shown->hide();
        }
    }
}

} // namespace tessel
