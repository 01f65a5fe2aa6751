#include "OtherProgram.h"

#include <cstdlib>
#include <cstring>
#include <memory>

namespace tessel {

namespace {

struct Free {
    void operator()(void* what) const { std::free(what); }
};
template <typename Got> std::unique_ptr<Got, Free> owned(Got* got) {
    return std::unique_ptr<Got, Free>(got);
}

constexpr std::uint16_t kSide = 900;
constexpr std::uint32_t kHintsLength = 9; // numbers in WM_HINTS

} // namespace

OtherProgram::OtherProgram() : m_connection(xcb_connect(nullptr, nullptr)) {
    const xcb_setup_t* const setup = xcb_get_setup(m_connection);
    m_root = xcb_setup_roots_iterator(setup).data->root;
    m_window = xcb_generate_id(m_connection);
    const std::uint32_t values[] = {1, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE};
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, m_root, 0, 0, kSide, kSide, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    const std::uint32_t children = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &children);
    xcb_map_window(m_connection, m_window);

    constexpr char kUserTime[] = "_NET_WM_USER_TIME";
    const auto atom = owned(xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, sizeof kUserTime - 1, kUserTime), nullptr));
    m_userTime = atom ? atom->atom : XCB_NONE;
    const xcb_keycode_t first = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first);
    const auto keys = owned(xcb_get_keyboard_mapping_reply(
        m_connection, xcb_get_keyboard_mapping(m_connection, first, count), nullptr));
    for (std::size_t key = 0; keys && key < count; ++key) {
        const xcb_keysym_t plain =
            xcb_get_keyboard_mapping_keysyms(keys.get())[key * keys->keysyms_per_keycode];
        if (plain >= 'a' && plain <= 'z') {
            m_letters[static_cast<qsizetype>(first + key)] = static_cast<char>(plain);
        }
    }
}

OtherProgram::~OtherProgram() {
    xcb_disconnect(m_connection);
}

void OtherProgram::comeToFront() {
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection, m_window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
    owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    takeIn();
    m_left = 0;
}

void OtherProgram::grabWithControl(xcb_keycode_t key) {
    xcb_grab_key(m_connection, 0, m_root, XCB_MOD_MASK_CONTROL, key, XCB_GRAB_MODE_ASYNC,
                 XCB_GRAB_MODE_ASYNC);
    xcb_flush(m_connection);
}

const QByteArray& OtherProgram::typed() {
    takeIn();
    return m_typed;
}

int OtherProgram::timesLeft() {
    takeIn();
    return m_left;
}

void OtherProgram::takeIn() {
    while (const auto event = owned(xcb_poll_for_event(m_connection))) {
        switch (event->response_type & 0x7F) {
        case XCB_KEY_PRESS:
            if (const char letter =
                    m_letters.at(reinterpret_cast<const xcb_key_press_event_t&>(*event).detail)) {
                m_typed += letter;
            }
            break;
        case XCB_FOCUS_OUT:
            ++m_left;
            break;
        case XCB_MAP_NOTIFY: {
            const auto& shown = reinterpret_cast<const xcb_map_notify_event_t&>(*event);
            if (m_managing && shown.override_redirect == 0 && wantsFocus(shown.window)) {
                xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, shown.window, XCB_CURRENT_TIME);
                xcb_flush(m_connection);
            }
            break;
        }
        default:
            break;
        }
    }
}

std::vector<std::uint32_t> OtherProgram::numbers(xcb_window_t window, xcb_atom_t property) const {
    const auto reply = owned(xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, kHintsLength),
        nullptr));
    std::vector<std::uint32_t> values(
        reply ? static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) / sizeof(std::uint32_t)
              : 0);
    if (!values.empty()) {
        std::memcpy(values.data(), xcb_get_property_value(reply.get()),
                    values.size() * sizeof(std::uint32_t));
    }
    return values;
}

bool OtherProgram::wantsFocus(xcb_window_t window) const {
    constexpr std::uint32_t kInputHint = 1;
    const auto hints = numbers(window, XCB_ATOM_WM_HINTS);
    const auto time = numbers(window, m_userTime);
    const bool accepts = hints.size() < 2 || (hints[0] & kInputHint) == 0 || hints[1] != 0;
    return accepts && (time.empty() || time[0] != 0);
}

} // namespace tessel
