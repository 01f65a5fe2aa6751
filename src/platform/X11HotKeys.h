// Keys grabbed from the X11 screen, over a connection of their own.
#pragma once

#include "engine/ports/cHotKeys.h"

#include <QSocketNotifier>

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

struct xcb_connection_t;
struct xcb_key_press_event_t;
struct _XCBKeySymbols; // NOLINT(bugprone-reserved-identifier): the library's own name

namespace tessel {

// The screen is asked for when the first key is wanted; without one every key fails.
class X11HotKeys : public HotKeys {
    Q_OBJECT
public:
    ~X11HotKeys() override;

    bool RegisterHotKey(int id, int modifier, int key, const QString& purpose) override;
    bool UnregisterHotKey(int id) override;
    bool holds(int id) const override { return m_held.contains(id); }
    HotKeyRoad road() override;
    QString assigned(int) const override { return {}; }

private:
    struct Held {
        int modifier;
        int key;
        std::uint16_t mask;              // without the lock keys
        std::vector<std::uint8_t> codes; // key codes of the keyboard
        std::uint32_t releasedAt = 0;    // server time of the last release, ms
    };

    bool connectScreen();
    void disconnectScreen();
    void readModifiers();
    std::uint16_t modifierOf(std::uint32_t symbol) const;
    // Finds where the key lies on today's keyboard.
    void locate(Held& held) const;
    bool grab(const Held& held);
    void ungrab(const Held& held);
    void readEvents();
    void keyDown(const xcb_key_press_event_t& event);
    void keyUp(const xcb_key_press_event_t& event);
    void keyboardChanged();
    Held* heldBy(const xcb_key_press_event_t& event, int& id);

    xcb_connection_t* m_connection = nullptr;
    _XCBKeySymbols* m_symbols = nullptr;
    std::uint32_t m_root = 0;
    std::uint16_t m_alt = 0;
    std::vector<std::uint16_t> m_locks; // every combination of the lock keys, none among them
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::map<int, Held> m_held;
};

} // namespace tessel
