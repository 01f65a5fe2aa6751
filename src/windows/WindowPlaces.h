// Where windows stand: on a screen, where they were, in front.
#pragma once

#include <QPoint>

#include <optional>

class QWidget;

namespace tessel {

class WindowRegistry;

// Puts a window where it was when it was last closed, onto a screen of today, and remembers its place
// from now on whenever it goes. Its object name tells it from the others. To be called before it shows.
// `allScreens`: false puts it on the main screen, wherever it was. While its own screen is missing it stands
// on another one, and returns once that is there again.
void keepPlace(QWidget& window, WindowRegistry& registry, bool allScreens = true);

// Brings an open window wholly onto its screen, frame included, soon after it is put up: the frame is
// the window manager's, and not known before. `lent`: where it stands as long as its own screen is
// missing, and part of the window; it follows.
void fitOnScreenSoon(QWidget& window, std::optional<QPoint>& lent);

// A window that is hidden, minimised or behind others comes to the front and takes the focus.
void putInFront(QWidget& window);

} // namespace tessel
