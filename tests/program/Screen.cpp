#include "Screen.h"

#include <QProcess>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace tessel {

namespace {
constexpr std::uint32_t kLongestProperty = 1024;
constexpr std::uint16_t kCoverSide = 4000;

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply> std::unique_ptr<Reply, Free> owned(Reply* reply) {
    return std::unique_ptr<Reply, Free>(reply);
}
} // namespace

Screen::Screen() : m_connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(m_connection) == 0) {
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    }
}

Screen::~Screen() {
    xcb_disconnect(m_connection);
}

xcb_atom_t Screen::atom(const char* name) const {
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const auto reply = owned(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : XCB_NONE;
}

QByteArray Screen::property(xcb_window_t window, xcb_atom_t name) const {
    const auto cookie =
        xcb_get_property(m_connection, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, kLongestProperty);
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    return reply ? QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                              xcb_get_property_value_length(reply.get()))
                 : QByteArray();
}

xcb_window_t Screen::find(qint64 pid, const QByteArray& title) const {
    const xcb_atom_t pidName = atom("_NET_WM_PID");
    const xcb_atom_t titleName = atom("_NET_WM_NAME");
    const auto tree =
        owned(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_root), nullptr));
    for (int i = 0; tree && i < xcb_query_tree_children_length(tree.get()); ++i) {
        const xcb_window_t window = xcb_query_tree_children(tree.get())[i];
        const QByteArray owner = property(window, pidName);
        std::uint32_t number = 0;
        std::memcpy(&number, owner.data(),
                    std::min<std::size_t>(sizeof number, static_cast<std::size_t>(owner.size())));
        if (number != static_cast<std::uint32_t>(pid) || property(window, titleName) != title) {
            continue;
        }
        const auto shown = owned(xcb_get_window_attributes_reply(
            m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
        if (shown && shown->map_state == XCB_MAP_STATE_VIEWABLE) {
            return window;
        }
    }
    return XCB_NONE;
}

void Screen::close(xcb_window_t window) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom("WM_PROTOCOLS");
    event.data.data32[0] = atom("WM_DELETE_WINDOW");
    event.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(m_connection, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
    xcb_flush(m_connection);
}

void Screen::press(xcb_window_t window, const QByteArray& keys) {
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_flush(m_connection);
    QProcess::execute(QStringLiteral("xdotool"),
                      {QStringLiteral("key"), QStringLiteral("--clearmodifiers"), QString::fromLatin1(keys)});
}

void Screen::cover() {
    const xcb_window_t window = xcb_generate_id(m_connection);
    const std::uint32_t unmanaged = 1;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_root, 0, 0, kCoverSide, kCoverSide, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                      &unmanaged);
    xcb_map_window(m_connection, window);
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_flush(m_connection);
}

bool Screen::isOnTop(xcb_window_t window) const {
    const auto tree =
        owned(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_root), nullptr));
    bool above = false;
    for (int i = 0; tree && i < xcb_query_tree_children_length(tree.get()); ++i) {
        const xcb_window_t each = xcb_query_tree_children(tree.get())[i];
        if (each == window) {
            above = true;
        } else if (above) {
            const auto shown = owned(xcb_get_window_attributes_reply(
                m_connection, xcb_get_window_attributes(m_connection, each), nullptr));
            if (shown && shown->map_state == XCB_MAP_STATE_VIEWABLE) {
                return false;
            }
        }
    }
    return above;
}

} // namespace tessel
