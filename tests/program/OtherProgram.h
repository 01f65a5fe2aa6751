// Another program, at which somebody works: a window that has the keyboard and keeps what is typed.
#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

#include <vector>

namespace tessel {

class OtherProgram {
public:
    OtherProgram();
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    void comeToFront();
    // Takes this key with Ctrl for itself, on the whole desktop.
    void grabWithControl(xcb_keycode_t key);
    // The small letters typed into it so far.
    const QByteArray& typed();
    // How often the keyboard went elsewhere since it last came to the front.
    int timesLeft();
    // From now on windows that come up get the keyboard, unless they say that they do not want it: as a
    // desktop does, which the screen of a test has not.
    void focusNewWindows() { m_managing = true; }

private:
    void takeIn();
    bool wantsFocus(xcb_window_t window) const;
    std::vector<std::uint32_t> numbers(xcb_window_t window, xcb_atom_t property) const;

    xcb_connection_t* m_connection;
    xcb_window_t m_root = XCB_NONE;
    xcb_window_t m_window = XCB_NONE;
    xcb_atom_t m_userTime = XCB_NONE;
    QByteArray m_letters = QByteArray(256, '\0'); // by keycode
    QByteArray m_typed;
    int m_left = 0;
    bool m_managing = false;
};

} // namespace tessel
