// What the desktop can draw, and whether its user wants things to move.
#pragma once

#include <QObject>

namespace tessel {

class DesktopEffects {
public:
    // Asks the desktop; until it has answered, its files hold.
    DesktopEffects();

    // Whether windows can be seen through: somebody composes the screen.
    static bool composites();
    // False where the user has turned the desktop's animations off. Asks again for the next time.
    bool animates();

private:
    void ask();

    QObject m_asking;       // what is asked lives no longer than this
    bool m_animates = true; // as the desktop's settings service says
    bool m_asked = false;   // and has not answered yet
};

} // namespace tessel
