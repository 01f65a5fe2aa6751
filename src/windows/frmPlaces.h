// Places and sizes of the windows beside the main one.
#pragma once

class QWidget;

namespace tessel {

class WindowRegistry;

// Puts a window where it was when it was last closed, onto a screen of today, and remembers its place
// from now on whenever it goes. Its object name tells it from the others. To be called before it shows.
void keepPlace(QWidget& window, WindowRegistry& registry);

} // namespace tessel
