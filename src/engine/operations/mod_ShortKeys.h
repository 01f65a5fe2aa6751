// Keys that mean something wherever the focus is inside the main window.
#pragma once

#include "engine/ports/cClock.h"

namespace tessel {

class LocalStatus;
class Windows;

class ShortKeys {
public:
    ShortKeys(LocalStatus& status, Windows& windows, Clock& clock);

    // F1 to F9, as numbers 112 to 120, are the nine quick statuses; nothing for other keys.
    void Process_ShortKeys(int keyCode);
    // A character typed into the search box: Ctrl+Z, then Ctrl+E within four seconds, opens the table of
    // locations.
    void Process_Keys(int keyAscii);

    Timer tmrKeyMod;

private:
    LocalStatus& m_status;
    Windows& m_windows;
    bool KeyModArmed = false;
};

} // namespace tessel
