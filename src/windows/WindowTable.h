// The table of windows: what each is called, how it lives and what makes it.
#pragma once

#include "engine/ports/cWindows.h"

class QWidget;

namespace tessel {

class Station;
class WindowRegistry;

enum class Life {
    Face,   // what the program shows of itself: the main window, or before it the first run's dialog
    Kept,   // a window of its own; closing hides it, and it comes back as it was
    Dialog, // over the window that it is opened from; closing deletes it
    Modal   // likewise, and that window is held until it is closed
};

// What a window is made of.
struct WindowParts {
    Station& station;
    WindowRegistry& registry;
    QWidget* owner; // nullptr: none
};

struct WindowRow {
    WindowId window;
    const char* form; // its object name, under which its place is stored
    Life life;
    QWidget* (*make)(const WindowParts& parts);
};

const WindowRow& windowRow(WindowId window);

} // namespace tessel
