#include "platform/X11HotKeys.h"

#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tessel {

namespace {

// Key symbols, as X11 numbers them.
constexpr xcb_keysym_t kF1 = 0xffbe;
constexpr xcb_keysym_t kNumLock = 0xff7f;
constexpr xcb_keysym_t kScrollLock = 0xff14;
constexpr xcb_keysym_t kAltLeft = 0xffe9;
constexpr int kFirstFunctionKey = 112;
constexpr int kLastFunctionKey = 123;
constexpr int kModifierCount = 8;

template <typename T> using FromServer = std::unique_ptr<T, decltype(&std::free)>;

template <typename T> FromServer<T> owned(T* pointer) {
    return {pointer, &std::free};
}

// Digits have their characters' codes.
xcb_keysym_t symbolOf(int key) {
    const bool functionKey = key >= kFirstFunctionKey && key <= kLastFunctionKey;
    return static_cast<xcb_keysym_t>(functionKey ? static_cast<int>(kF1) + key - kFirstFunctionKey : key);
}

} // namespace

X11HotKeys::~X11HotKeys() {
    disconnectScreen();
}

HotKeyRoad X11HotKeys::road() {
    if (m_connection == nullptr && qEnvironmentVariableIsEmpty("DISPLAY")) {
        return HotKeyRoad::None;
    }
    return HotKeyRoad::Screen;
}

bool X11HotKeys::connectScreen() {
    if (m_connection != nullptr) {
        return true;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        return false;
    }
    int preferred = 0;
    xcb_connection_t* const connection = xcb_connect(nullptr, &preferred);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        return false;
    }
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; preferred > 0 && screens.rem > 1; --preferred) {
        xcb_screen_next(&screens);
    }
    m_connection = connection;
    m_root = screens.data->root;
    m_symbols = xcb_key_symbols_alloc(connection);
    readModifiers();
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &X11HotKeys::readEvents);
    return true;
}

void X11HotKeys::disconnectScreen() {
    m_notifier.reset();
    if (m_symbols != nullptr) {
        xcb_key_symbols_free(m_symbols);
        m_symbols = nullptr;
    }
    if (m_connection != nullptr) {
        xcb_disconnect(m_connection);
        m_connection = nullptr;
    }
    m_held.clear();
}

// The modifier that a key is on this keyboard; 0 for none.
std::uint16_t X11HotKeys::modifierOf(std::uint32_t symbol) const {
    const auto map =
        owned(xcb_get_modifier_mapping_reply(m_connection, xcb_get_modifier_mapping(m_connection), nullptr));
    const auto wanted = owned(xcb_key_symbols_get_keycode(m_symbols, symbol));
    if (!map || !wanted) {
        return 0;
    }
    const xcb_keycode_t* const codes = xcb_get_modifier_mapping_keycodes(map.get());
    const int perModifier = map->keycodes_per_modifier;
    for (int place = 0; place < kModifierCount * perModifier; ++place) {
        for (const xcb_keycode_t* code = wanted.get(); *code != XCB_NO_SYMBOL; ++code) {
            if (codes[place] == *code) {
                return static_cast<std::uint16_t>(1U << (place / perModifier));
            }
        }
    }
    return 0;
}

void X11HotKeys::readModifiers() {
    m_alt = modifierOf(kAltLeft);
    if (m_alt == 0) {
        m_alt = XCB_MOD_MASK_1;
    }
    m_locks = {0};
    for (const std::uint16_t lock :
         {std::uint16_t{XCB_MOD_MASK_LOCK}, modifierOf(kNumLock), modifierOf(kScrollLock)}) {
        const std::size_t count = m_locks.size();
        for (std::size_t i = 0; lock != 0 && i < count; ++i) {
            const auto both = static_cast<std::uint16_t>(m_locks[i] | lock);
            if (std::find(m_locks.begin(), m_locks.end(), both) == m_locks.end()) {
                m_locks.push_back(both);
            }
        }
    }
}

void X11HotKeys::locate(Held& held) const {
    held.mask = held.modifier == kModControl ? std::uint16_t{XCB_MOD_MASK_CONTROL}
                : held.modifier == kModShift ? std::uint16_t{XCB_MOD_MASK_SHIFT}
                                             : m_alt;
    held.codes.clear();
    const auto codes = owned(xcb_key_symbols_get_keycode(m_symbols, symbolOf(held.key)));
    for (const xcb_keycode_t* code = codes.get(); code != nullptr && *code != XCB_NO_SYMBOL; ++code) {
        held.codes.push_back(*code);
    }
}

// All or nothing: a key that comes only while Caps Lock is off would look broken at random.
bool X11HotKeys::grab(const Held& held) {
    std::vector<xcb_void_cookie_t> asked;
    for (const std::uint8_t code : held.codes) {
        for (const std::uint16_t lock : m_locks) {
            asked.push_back(xcb_grab_key_checked(m_connection, 0, m_root,
                                                 static_cast<std::uint16_t>(held.mask | lock), code,
                                                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        }
    }
    bool all = !asked.empty();
    for (const xcb_void_cookie_t cookie : asked) {
        all = !owned(xcb_request_check(m_connection, cookie)) && all;
    }
    if (!all) {
        ungrab(held);
    }
    return all && xcb_connection_has_error(m_connection) == 0;
}

void X11HotKeys::ungrab(const Held& held) {
    for (const std::uint8_t code : held.codes) {
        for (const std::uint16_t lock : m_locks) {
            xcb_ungrab_key(m_connection, code, m_root, static_cast<std::uint16_t>(held.mask | lock));
        }
    }
    xcb_flush(m_connection);
}

bool X11HotKeys::RegisterHotKey(int id, int modifier, int key, const QString& /*purpose*/) {
    if (!connectScreen()) {
        return false;
    }
    // The screen lets one program grab a key twice, and would tell it of one press twice.
    for (const auto& [other, held] : m_held) {
        if (held.modifier == modifier && held.key == key) {
            return false;
        }
    }
    Held wanted{modifier, key, 0, {}};
    locate(wanted);
    const bool grabbed = !m_held.contains(id) && grab(wanted);
    if (grabbed) {
        m_held.emplace(id, std::move(wanted));
    }
    // Events that came while the answers were awaited wait inside the library, where the socket tells
    // nothing of them.
    QMetaObject::invokeMethod(this, &X11HotKeys::readEvents, Qt::QueuedConnection);
    return grabbed;
}

bool X11HotKeys::UnregisterHotKey(int id) {
    const auto found = m_held.find(id);
    if (found == m_held.end()) {
        return false;
    }
    ungrab(found->second);
    m_held.erase(found);
    return true;
}

void X11HotKeys::readEvents() {
    while (m_connection != nullptr) {
        const auto event = owned(xcb_poll_for_event(m_connection));
        if (!event) {
            break;
        }
        switch (event->response_type & ~0x80) {
        case XCB_KEY_PRESS:
            keyDown(*reinterpret_cast<const xcb_key_press_event_t*>(event.get()));
            break;
        case XCB_KEY_RELEASE:
            keyUp(*reinterpret_cast<const xcb_key_press_event_t*>(event.get()));
            break;
        case XCB_MAPPING_NOTIFY: {
            auto* const mapping = reinterpret_cast<xcb_mapping_notify_event_t*>(event.get());
            if (mapping->request != XCB_MAPPING_POINTER) {
                xcb_refresh_keyboard_mapping(m_symbols, mapping);
                keyboardChanged();
            }
            break;
        }
        default:
            break;
        }
    }
    if (m_connection != nullptr && xcb_connection_has_error(m_connection) != 0) {
        disconnectScreen();
        emit changed();
    }
}

X11HotKeys::Held* X11HotKeys::heldBy(const xcb_key_press_event_t& event, int& id) {
    constexpr std::uint16_t kAsked = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT;
    for (auto& [number, held] : m_held) {
        const bool modified = (event.state & (kAsked | m_alt)) == held.mask;
        if (modified && std::find(held.codes.begin(), held.codes.end(), event.detail) != held.codes.end()) {
            id = number;
            return &held;
        }
    }
    return nullptr;
}

void X11HotKeys::keyDown(const xcb_key_press_event_t& event) {
    int id = 0;
    const Held* const held = heldBy(event, id);
    // A key that is held down comes as a release and a press of the same millisecond again and again;
    // it would switch a status on and off.
    if (held != nullptr && (held->releasedAt == 0 || event.time != held->releasedAt)) {
        emit pressed(id);
    }
}

void X11HotKeys::keyUp(const xcb_key_press_event_t& event) {
    // The modifier may be up before the key is.
    for (auto& [number, held] : m_held) {
        if (std::find(held.codes.begin(), held.codes.end(), event.detail) != held.codes.end()) {
            held.releasedAt = event.time;
        }
    }
}

// Another keyboard or layout: the keys may lie elsewhere now. Most often they do not, and then nothing is let
// go of: the key may be on its way just now, since the server tells of a keyboard by its first key.
void X11HotKeys::keyboardChanged() {
    const std::vector<std::uint16_t> locks = m_locks;
    readModifiers();
    std::map<int, Held> now = m_held;
    bool same = locks == m_locks;
    for (auto& [id, held] : now) {
        locate(held);
        const Held& before = m_held.at(id);
        same = same && held.mask == before.mask && held.codes == before.codes;
    }
    if (same) {
        return;
    }
    const std::vector<std::uint16_t> today = std::exchange(m_locks, locks);
    for (const auto& [id, held] : m_held) {
        ungrab(held);
    }
    m_locks = today;
    m_held.clear();
    for (const auto& [id, held] : now) {
        if (grab(held)) {
            m_held.emplace(id, held);
        }
    }
    if (m_held.size() != now.size()) {
        emit changed();
    }
}

} // namespace tessel
