// Keys that reach the station while another program has the focus.
#pragma once

#include <QObject>
#include <QString>

namespace tessel {

// Who brings a key to the station.
enum class HotKeyRoad {
    None,   // nobody: there is no screen to ask
    Screen, // grabbed from the screen
    // Grabbed from a screen of X11 programs inside a Wayland desktop: it succeeds, and the key comes
    // only while such a program has the focus.
    ForeignScreen,
    Desktop // bound by the desktop, which may have chosen another key
};

// The modifiers of a key, as numbers of the table of codes.
inline constexpr int kModAlt = 1;
inline constexpr int kModControl = 2;
inline constexpr int kModShift = 4;

// Implemented by the platform and by tests. A key is held until it is given up or the process ends.
class HotKeys : public QObject {
    Q_OBJECT
public:
    // Holds a key under `id`, 0 to 255. `key`: 112 to 123 for F1 to F12, or the code of a digit.
    // `purpose` tells the user what it is for, where the desktop shows that. False when another program
    // has the key, or there is nobody to ask.
    virtual bool RegisterHotKey(int id, int modifier, int key, const QString& purpose) = 0;
    // False when `id` held nothing.
    virtual bool UnregisterHotKey(int id) = 0;
    virtual bool holds(int id) const = 0;
    // As far as is known now: the first question may set off a longer one, and `changed` tells.
    virtual HotKeyRoad road() = 0;
    // The desktop's words for the key it bound; empty where it is the one that was asked for.
    virtual QString assigned(int id) const = 0;

signals:
    // The key went down; repeats of a key that is held tell nothing.
    void pressed(int id);
    // What `holds`, `road` or `assigned` say is different now.
    void changed();
};

} // namespace tessel
