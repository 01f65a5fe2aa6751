// Windows above all others.
#pragma once

class QWidget;

namespace tessel {

// Nothing happens to a window that is so already. One that is open stays open, and keeps or lacks the
// focus as before.
class clsOnTop {
public:
    static void MakeTopMost(QWidget& window);
    static void MakeNormal(QWidget& window);
};

// The one or the other. A window that does not follow lies under a main window that stays on top.
void Set_onTop(QWidget& window, bool onTop);

} // namespace tessel
