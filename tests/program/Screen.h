// The screen as others see it: the windows of the X server, without a window manager.
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <xcb/xcb.h>

namespace tessel {

class Screen {
public:
    Screen();
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    bool isOpen() const { return m_root != XCB_NONE; }
    // The shown window of a process with exactly this title; XCB_NONE for none.
    xcb_window_t find(qint64 pid, const QByteArray& title) const;
    // Asks a window to close, as a click on its cross does.
    void close(xcb_window_t window);
    // Presses a key in a window, in the notation of xdotool.
    void press(xcb_window_t window, const QByteArray& keys);
    // Puts a window of the test above all others.
    void cover();
    // Whether no window of another process lies above.
    bool isOnTop(xcb_window_t window) const;

private:
    xcb_atom_t atom(const char* name) const;
    QByteArray property(xcb_window_t window, xcb_atom_t name) const;

    xcb_connection_t* m_connection;
    xcb_window_t m_root = XCB_NONE;
};

} // namespace tessel
