// What a popup shows.
#pragma once

#include <QPoint>
#include <QString>

#include <optional>

namespace tessel {

// The three popups. A new one replaces the old of its kind.
enum class PopupId { ctrlPopupStatus, ctrlPopupAlert, ctrlPopupMessage };
inline constexpr int kPopupCount = 3;

enum class PopupTheme { Blue, Urgent, Message };

// Parts of a popup that can be clicked.
enum class PopupItem { Close = 1, Text, TurnOff, Options };

// All texts are plain.
struct PopupContent {
    PopupTheme theme = PopupTheme::Blue;
    QString caption;
    QString label; // stands above the text
    QString text;
    QString time;
    QString sender;   // who rang; empty where the label says it
    int icon = 0;     // image number
    int fontSize = 0; // points of the text; 0: the desktop's
    bool movable = true;
    double opacity = 1.0;        // 0 to 1
    std::optional<QPoint> place; // of the upper left corner; none: the default place
};

} // namespace tessel
