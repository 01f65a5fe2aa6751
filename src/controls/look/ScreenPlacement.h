// Windows that come back onto a screen.
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

class QWidget;

namespace tessel {

// The place for a window of `wanted` size: on the screen that `position` lies on or is nearest to,
// wholly inside its free area, and cut to it. Without a position: the middle of the first screen.
QRect placedOnScreens(std::optional<QPoint> position, QSize wanted, const QList<QRect>& freeAreas);

// Whether a window that was put at `position` finds the screen that it was on.
bool isOnScreens(QPoint position, const QList<QRect>& freeAreas);

// The free areas of today's screens, the main one first; `all`: false for the main one alone.
QList<QRect> freeScreenAreas(bool all = true);

// A window's size, chosen for letters of usual height, for those that it has. Never larger than its screen.
QSize sizeForLetters(const QWidget& window, QSize usual);

} // namespace tessel
